#pragma once
// Asks for a new size of the background picture, width and height each on their own.
#include <QDialog>
#include <QSize>

class QLineEdit;
class QPushButton;

class picker_resizebackground : public QDialog {
    Q_OBJECT
public:
    explicit picker_resizebackground(QWidget* parent = nullptr);

    QPushButton* resize_button;
    QPushButton* cancel_button;
    QLineEdit* height_edit;
    QLineEdit* width_edit;
};

// The size typed in, an empty field counting as 0; (0, 0) when cancelled.
QSize ask_background_size();

#pragma once
// Edits the name, language and script of a command button.
#include <QDialog>

class QLineEdit;
class QPushButton;
class QRadioButton;
class QTextEdit;
class picker_view;
struct picker_button_data;

class picker_editCmdDialog : public QDialog {
    Q_OBJECT
public:
    picker_editCmdDialog(picker_view* view, picker_button_data* button);

    // Writes the fields into `button`; further targets and an unchecked language stay.
    void store_fields();

    picker_view* view;
    picker_button_data* button; // the caller's scratch record, not owned
    QLineEdit* name_edit;
    QTextEdit* command_edit;
    QRadioButton* mel_radio;
    QRadioButton* python_radio;
    QPushButton* ok_button;
    QPushButton* test_button;
    QPushButton* cancel_button;

public slots:
    // Runs the script as it stands in the dialog; the fields stay stored after a cancel.
    void test();
};

// True when accepted, with the fields written into `button`. The dialog's size and place
// are remembered across calls, cancelled ones included.
bool edit_command(picker_view* view, picker_button_data* button);

#pragma once
// Modal dialogs whose parent may die while they wait: a script run inside one may close the
// picker's window. Each is on the heap and held by a QPointer, so that its death with its
// parent is seen before it is touched again, and runs as one of the picker's loops.
#include "window/event_loops.h"

#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QStringList>

template <typename T> class held_dialog {
public:
    explicit held_dialog(T* made) : dialog(made) {}
    ~held_dialog() { delete dialog.data(); }
    held_dialog(const held_dialog&) = delete;
    held_dialog& operator=(const held_dialog&) = delete;

    // QDialog::exec; Rejected when the dialog died meanwhile.
    int exec() {
        const loop_scope scope;
        const int result = dialog->exec();
        return dialog ? result : int(QDialog::Rejected);
    }
    bool alive() const { return !dialog.isNull(); }
    T* operator->() const { return dialog.data(); }
    T* get() const { return dialog.data(); }

private:
    QPointer<T> dialog;
};

// QMessageBox's static question on a held box: the buttons in Qt's order, the given default
// or else the first that accepts; the button clicked. Cancel when the box died meanwhile.
QMessageBox::StandardButton
ask_user(QMessageBox::Icon icon, QWidget* parent, const QString& title, const QString& text,
         QMessageBox::StandardButtons buttons,
         QMessageBox::StandardButton default_button = QMessageBox::NoButton);

// QFileDialog's static functions on a held dialog: the chosen paths, none when cancelled.
QStringList choose_files(QWidget* parent, const QString& caption, const QString& directory,
                         const QString& filter, QFileDialog::FileMode mode,
                         QFileDialog::AcceptMode accept = QFileDialog::AcceptOpen);

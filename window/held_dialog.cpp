#include "window/held_dialog.h"

#include <QDialogButtonBox>
#include <QPushButton>

QMessageBox::StandardButton ask_user(QMessageBox::Icon icon, QWidget* parent, const QString& title,
                                     const QString& text, QMessageBox::StandardButtons buttons,
                                     QMessageBox::StandardButton default_button) {
    held_dialog<QMessageBox> box(new QMessageBox(icon, title, text, QMessageBox::NoButton, parent));
    const auto* roles = box->findChild<QDialogButtonBox*>();
    for (uint mask = QMessageBox::FirstButton; mask <= QMessageBox::LastButton; mask <<= 1) {
        const auto which = QMessageBox::StandardButton(uint(buttons) & mask);
        if (which == QMessageBox::NoButton)
            continue;
        QPushButton* button = box->addButton(which);
        if (box->defaultButton())
            continue;
        if (default_button == QMessageBox::NoButton
                ? roles && roles->buttonRole(button) == QDialogButtonBox::AcceptRole
                : which == default_button)
            box->setDefaultButton(button);
    }
    if (box.exec() == -1 || !box.alive())
        return QMessageBox::Cancel;
    return box->standardButton(box->clickedButton());
}

QStringList choose_files(QWidget* parent, const QString& caption, const QString& directory,
                         const QString& filter, QFileDialog::FileMode mode,
                         QFileDialog::AcceptMode accept) {
    held_dialog<QFileDialog> dialog(new QFileDialog(parent, caption, directory, filter));
    dialog->setFileMode(mode);
    dialog->setAcceptMode(accept);
    if (dialog.exec() != QDialog::Accepted || !dialog.alive())
        return {};
    return dialog->selectedFiles();
}

#include "window/picker_editCmdDialog.h"

#include "canvas/picker_view.h"
#include "document/picker_button.h"
#include "window/held_dialog.h"
#include "window/picker_settings.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextEdit>

picker_editCmdDialog::picker_editCmdDialog(picker_view* view_, picker_button_data* button_)
    : QDialog(view_), view(view_), button(button_) {
    setModal(true);
    setSizeGripEnabled(false);
    setWindowTitle(tr("Edit Command"));

    auto* name_label = new QLabel(tr("Name:"));
    auto* command_label = new QLabel(tr("Command:"));
    mel_radio = new QRadioButton(tr("MEL"));
    python_radio = new QRadioButton(tr("Python"));
    auto* group = new QButtonGroup(this);
    group->setExclusive(true);
    group->addButton(mel_radio);
    group->addButton(python_radio);
    // Any other language leaves both unchecked, and storing then keeps it.
    if (button->language == 0)
        mel_radio->setChecked(true);
    else if (button->language == 1)
        python_radio->setChecked(true);

    auto* radio_row = new QHBoxLayout;
    radio_row->addWidget(mel_radio);
    radio_row->addWidget(python_radio);
    radio_row->addStretch(1);

    name_edit = new QLineEdit;
    name_edit->setMaxLength(128);
    command_edit = new QTextEdit;
    // Qt's font cache keeps the family name past the plug-in's unloading: a heap copy.
    command_edit->setFont(QFont(QString::fromLatin1("Monospace"), 9));

    ok_button = new QPushButton(tr("OK"));
    test_button = new QPushButton(tr("Test"));
    cancel_button = new QPushButton(tr("Cancel"));
    connect(ok_button, SIGNAL(clicked(bool)), this, SLOT(accept()));
    connect(test_button, SIGNAL(clicked(bool)), this, SLOT(test()));
    connect(cancel_button, SIGNAL(clicked(bool)), this, SLOT(reject()));
    auto* button_row = new QHBoxLayout;
    button_row->setSpacing(80);
    button_row->addWidget(ok_button);
    button_row->addWidget(test_button);
    button_row->addWidget(cancel_button);

    auto* grid = new QGridLayout(this);
    grid->setColumnMinimumWidth(0, 80);
    grid->setColumnMinimumWidth(1, 200);
    grid->addWidget(name_label, 0, 0, Qt::AlignRight);
    grid->addWidget(name_edit, 0, 1);
    grid->setRowMinimumHeight(1, 5);
    grid->addWidget(new QLabel(tr("Language:")), 2, 0, Qt::AlignRight);
    grid->addLayout(radio_row, 2, 1);
    grid->setRowMinimumHeight(3, 1);
    grid->addWidget(command_label, 4, 0, Qt::AlignRight | Qt::AlignTop);
    grid->addWidget(command_edit, 4, 1);
    grid->setRowMinimumHeight(5, 1);
    grid->addLayout(button_row, 6, 0, 1, 2);

    name_edit->setText(button->label);
    if (!button->targets.isEmpty())
        command_edit->setPlainText(button->targets.first());
}

void picker_editCmdDialog::store_fields() {
    button->label = name_edit->text();
    if (button->targets.isEmpty())
        button->targets.append(command_edit->toPlainText());
    else
        button->targets[0] = command_edit->toPlainText();
    if (mel_radio->isChecked())
        button->language = 0;
    else if (python_radio->isChecked())
        button->language = 1;
}

void picker_editCmdDialog::test() {
    store_fields();
    if (!view)
        return;
    // The view runs whole buttons; a copy of the record stands in for one.
    picker_button scratch;
    static_cast<picker_button_data&>(scratch) = *button;
    view->run_button_script(&scratch);
}

bool edit_command(picker_view* view, picker_button_data* button) {
    held_dialog<picker_editCmdDialog> dialog(new picker_editCmdDialog(view, button));
    picker_settings settings;
    const QString size_key = settings_key("editCommandWindowSize");
    const QString pos_key = settings_key("editCommandWindowPos");
    // The first time the dialog takes its natural size and place.
    if (settings.contains(size_key) && settings.contains(pos_key)) {
        dialog->resize(settings.value(size_key, QSize(400, 450)).toSize());
        dialog->move(settings.value(pos_key, QPoint(50, 50)).toPoint());
    }
    const int result = dialog.exec();
    if (!dialog.alive())
        return false;
    settings.setValue(size_key, dialog->size());
    settings.setValue(pos_key, dialog->pos());
    if (result != QDialog::Accepted)
        return false;
    dialog->store_fields();
    return true;
}

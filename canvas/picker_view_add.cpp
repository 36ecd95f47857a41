// Making, retargeting and removing buttons by hand, and the tab's background picture.
#include "canvas/picker_view.h"
#include "document/selected_objects.h"
#include "editing/add_button_cmd.h"
#include "editing/list_cmds.h"
#include "window/held_dialog.h"
#include "window/picker_editCmdDialog.h"
#include "window/picker_resizebackground.h"
#include "window/picker_window.h"

#include <memory>

void picker_view::add_one_button() {
    undo_stack.push(new add_button_cmd(this, press_pos, tr("Add One Button")));
}

// The button pressed last takes the scene's selection as its targets.
void picker_view::update_button() {
    if (any_selected())
        undo_stack.push(new update_buttons_cmd(this, pressed_button, selected_objects));
}

void picker_view::delete_button() {
    if (any_selected())
        undo_stack.push(new delete_buttons_cmd(this));
}

// Over a command button this edits it in place, outside the undo stack; anywhere else it
// makes a new command button there, undoable, unless the dialog is cancelled. A script run
// from the dialog may close the tab or remove the button: the edit is then dropped.
void picker_view::add_command_button() {
    if (picker_button* button = button_at(press_pos); button && button->kind == 1) {
        picker_button_data record = button->data();
        if (!edit_command(this, &record) || !in_window() || !buttons.contains(button))
            return;
        static_cast<picker_button_data&>(*button) = record;
        update_button_geometry(button);
        emit changed();
        update();
        return;
    }
    auto command = std::make_unique<add_button_cmd>(this, press_pos, tr("Add Command Button"), 0,
                                                    QString(), QString());
    if (edit_command(this, &command->button) && in_window())
        undo_stack.push(command.release());
}

// Cancelling the file dialog is how a picture is removed, after a confirmation.
void picker_view::change_background() {
    const QString file = choose_files(this, tr("Choose Background"), QString(),
                                      tr("Images (*.png *.xpm *.jpg)"), QFileDialog::ExistingFile)
                             .value(0);
    if (!in_window())
        return;
    if (!file.isEmpty()) {
        if (!background.isNull())
            window->remove_background_image(this);
        background = QPixmap(file);
        background_id = QString::number(background.cacheKey());
    } else {
        if (background.isNull())
            return;
        const auto answer = ask_user(QMessageBox::Question, this, tr("Background"),
                                     tr("Remove current background image?"),
                                     QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel);
        if (answer != QMessageBox::Yes || !in_window())
            return;
        window->remove_background_image(this);
        background = QPixmap();
        background_id = QString::number(background.cacheKey());
        update();
    }
    window->store_background_image(this);
}

// The two numbers are taken as they are: no aspect ratio, no smoothing, no scene write.
void picker_view::resize_background() {
    const QSize size = ask_background_size();
    if (size.width() == 0 || size.height() == 0 || !in_window())
        return;
    const QPixmap scaled = background.scaled(size.width(), size.height(), Qt::IgnoreAspectRatio,
                                             Qt::FastTransformation);
    background_id = QString::number(scaled.cacheKey());
    background = scaled;
    update();
}

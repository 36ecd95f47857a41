#include "editing/add_button_cmd.h"

#include "canvas/picker_view.h"
#include "document/selected_objects.h"
#include "window/picker_window.h"

add_button_cmd::add_button_cmd(picker_view* view_, const QPoint& widget_point, const QString& text)
    : QUndoCommand(text), view(view_) {
    fill_common(widget_point);
    button.kind = 0;
    button.label = view->window->button_label;
    button.targets = selected_objects;
}

add_button_cmd::add_button_cmd(picker_view* view_, const QPoint& widget_point, const QString& text,
                               int language, const QString& label, const QString& command)
    : QUndoCommand(text), view(view_) {
    fill_common(widget_point);
    button.kind = 1;
    button.language = language;
    button.label = label;
    button.targets = QStringList{command};
}

void add_button_cmd::fill_common(const QPoint& widget_point) {
    const picker_window* window = view->window;
    button.position = view->to_picker(widget_point);
    button.size = window->button_width;
    button.width = window->button_width;
    button.height = window->button_height;
    button.color = window->button_color;
    button.label_color = window->label_color;
}

void add_button_cmd::redo() {
    index = view->add_button_record(button, -1);
    view->refresh_highlights();
    view->update();
    emit view->changed();
}

void add_button_cmd::undo() {
    // A script may have shortened the list since; the button is then gone already.
    if (index >= 0 && index < view->buttons.size())
        view->remove_button_record(index);
    view->refresh_highlights();
    view->update();
    emit view->changed();
}

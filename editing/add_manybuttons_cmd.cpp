#include "editing/add_manybuttons_cmd.h"

#include "canvas/picker_view.h"
#include "document/selected_objects.h"
#include "window/picker_window.h"

add_manybuttons_cmd::add_manybuttons_cmd(picker_view* view_) : view(view_) {}

void add_manybuttons_cmd::move_to(const QPoint& pos, Qt::KeyboardModifiers) {
    if (!armed)
        return;
    if (!placed)
        create_row(pos);
    else
        lay_out(pos);
}

// The row runs to the right, in reverse order of the selection.
void add_manybuttons_cmd::create_row(const QPoint& pos) {
    const picker_window* window = view->window;
    placed = true;
    anchor = view->to_picker(pos);
    QPoint at = anchor;
    for (int i = selected_objects.size() - 1; i >= 0; --i) {
        picker_button_data record;
        record.position = at;
        record.size = window->button_spacing;
        record.width = window->button_width;
        record.height = window->button_height;
        record.color = window->button_color;
        record.label_color = window->label_color;
        record.targets = QStringList{selected_objects[i]};
        added_indices.append(view->add_button_record(record, -1));
        at.rx() += window->button_spacing + 1;
    }
}

// The main axis of the drag keeps at least the spacing; the other follows the pointer.
void add_manybuttons_cmd::lay_out(const QPoint& pos) {
    const int spacing = view->window->button_spacing;
    const QPoint p = view->to_picker(pos);
    const int c = added_indices.size();
    if (c < 1)
        return;
    const int dx = (p.x() - anchor.x()) / c;
    const int dy = (p.y() - anchor.y()) / c;
    int step_x = dx, step_y = dy;
    if (qAbs(dx) > qAbs(dy))
        step_x = dx <= 0 ? -qMax(spacing, qAbs(dx)) : qMax(spacing, qAbs(dx));
    else
        step_y = dy <= 0 ? -qMax(spacing, qAbs(dy)) : qMax(spacing, qAbs(dy));
    QPoint at = anchor;
    for (int index : qAsConst(added_indices)) {
        if (index < view->buttons.size())
            view->set_button_position(view->buttons[index], at);
        at += QPoint(step_x, step_y);
    }
    view->update();
}

void add_manybuttons_cmd::finish() {
    view->refresh_highlights();
    emit view->changed();
    view->update_cursor(true);
}

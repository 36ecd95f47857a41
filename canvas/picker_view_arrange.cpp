// The view's tidying slots: align, distribute, size steps, nudges, a row of new buttons.
#include "canvas/picker_view.h"
#include "editing/add_manybuttons_cmd.h"
#include "editing/arrange_buttons_cmd.h"
#include "editing/list_cmds.h"
#include "editing/property_cmds.h"

#include "window/picker_window.h"

void picker_view::align_horizontal() {
    undo_stack.push(new arrange_buttons_cmd(this, 0));
}
void picker_view::align_vertical() {
    undo_stack.push(new arrange_buttons_cmd(this, 1));
}
void picker_view::distribute_horizontal() {
    undo_stack.push(new arrange_buttons_cmd(this, 2));
}
void picker_view::distribute_vertical() {
    undo_stack.push(new arrange_buttons_cmd(this, 3));
}

void picker_view::adjust_size(int delta) {
    if (!any_selected())
        return;
    undo_stack.push(new adjust_width_cmd(this, delta));
    undo_stack.push(new adjust_height_cmd(this, delta));
}

void picker_view::adjust_size_up() {
    adjust_size(1);
}
void picker_view::adjust_size_down() {
    adjust_size(-1);
}

void picker_view::nudge(const QPoint& delta) {
    if (any_selected())
        undo_stack.push(new nudge_buttons_cmd(this, delta));
}

void picker_view::nudge_left() {
    nudge(QPoint(-1, 0));
}
void picker_view::nudge_right() {
    nudge(QPoint(1, 0));
}
void picker_view::nudge_up() {
    nudge(QPoint(0, -1));
}
void picker_view::nudge_down() {
    nudge(QPoint(0, 1));
}

void picker_view::add_many_buttons() {
    if (gesture) {
        picker_mouse_cmd* old = gesture;
        gesture = nullptr;
        old->finish();
        delete old;
    }
    gesture = new add_manybuttons_cmd(this);
    update_cursor(true);
}

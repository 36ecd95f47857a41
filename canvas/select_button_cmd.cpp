#include "canvas/select_button_cmd.h"

#include "canvas/marquee_overlay.h"
#include "canvas/picker_view.h"
#include "document/button_queries.h"
#include "document/selected_objects.h"
#include "editing/move_buttons_cmd.h"
#include "window/picker_window.h"

select_button_cmd::select_button_cmd(picker_view* view_, const QPoint& pos,
                                     Qt::KeyboardModifiers modifiers)
    : view(view_), start(pos), last(pos) {
    if (modifiers & Qt::ShiftModifier) {
        additive = true;
        initial_selection = distinct_names(selected_objects);
    }
    edit = modifiers & Qt::ControlModifier;
    picker_button* hit = view->button_at(pos);
    if (hit)
        press_on_button(view->buttons.indexOf(hit));
    else if (!additive)
        view->window->clear_all_selected();
}

void select_button_cmd::press_on_button(int index) {
    picker_button* button = view->buttons[index];
    const bool was_selected = button->selected == 1;
    if (!edit) {
        if (!additive) {
            view->window->clear_all_selected();
            if (button->selected == 1)
                return;
            view->mark_selected(button, false);
        } else if (was_selected) {
            view->mark_deselected(button, false);
        } else {
            view->mark_selected(button, false);
        }
        view->refresh_highlights();
        view->update();
        return;
    }
    if (was_selected && additive) {
        view->mark_deselected(button, false);
        view->update();
        return;
    }
    if (!was_selected) {
        if (!additive)
            view->deselect_all();
        view->mark_selected(button, false);
    }
    moving = true;
    capture();
    if (!was_selected)
        view->update();
}

void select_button_cmd::capture() {
    for (int i = 0; i < view->buttons.size(); ++i) {
        if (view->buttons[i]->selected & 1) {
            moved_indices.append(i);
            moved_positions.append(view->buttons[i]->position);
        }
    }
}

QPoint select_button_cmd::drag_delta() const {
    const float inverse = 1.0f / float(view->zoom);
    return QPoint(int((float(last.x()) - float(start.x())) * inverse),
                  int((float(last.y()) - float(start.y())) * inverse));
}

void select_button_cmd::drag() {
    const QPoint delta = drag_delta();
    for (int i = 0; i < moved_indices.size(); ++i) {
        // Buttons a script deleted while the mouse was down are left out.
        if (moved_indices[i] < view->buttons.size())
            view->set_button_position(view->buttons[moved_indices[i]], moved_positions[i] + delta);
    }
    view->update();
}

void select_button_cmd::band() {
    auto* marquee = static_cast<marquee_overlay*>(view->overlays[0]);
    if (!rubber_band) {
        if ((last - start).manhattanLength() <= 3)
            return;
        rubber_band = true;
        marquee->start = start;
    }
    marquee->end = last;
    const QRect rect = marquee->marquee_rect();
    if (additive)
        view->match_selection(initial_selection);
    else
        view->deselect_all();
    view->select_in_rect(rect, additive);
    if (!edit)
        view->propagate_selection();
    view->update();
}

void select_button_cmd::move_to(const QPoint& pos, Qt::KeyboardModifiers) {
    if (pos == last)
        return;
    last = pos;
    if (moving)
        drag();
    else
        band();
}

void select_button_cmd::finish() {
    auto* marquee = static_cast<marquee_overlay*>(view->overlays[0]);
    const bool band_shown = !marquee->is_clear();
    if (band_shown)
        marquee->clear();
    if (!edit) {
        view->window->publish_selection();
        view->update();
        view->refresh_toolbox();
        return;
    }
    if (moving) {
        if (last != start)
            view->undo_stack.push(
                new move_buttons_cmd(view, moved_positions, moved_indices, drag_delta()));
        view->refresh_toolbox();
        return;
    }
    if (band_shown)
        view->update();
    view->refresh_toolbox();
}

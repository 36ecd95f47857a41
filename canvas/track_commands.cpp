#include "canvas/track_commands.h"

#include "canvas/picker_view.h"
#include "canvas/zoom_step.h"

#include <QDesktopServices>
#include <QUrl>

track_button_cmd::track_button_cmd(picker_view* view_, picker_button* button_, const QPoint& pos)
    : view(view_), button(button_), widget_rect(view_->to_widget(button_->rect)) {
    light(pos);
}

bool track_button_cmd::button_alive() const {
    return view->buttons.contains(button);
}

// The button is lit while the pointer is over it.
void track_button_cmd::light(const QPoint& pos) {
    if (!button_alive())
        return;
    const bool inside = widget_rect.contains(pos);
    if (button->selected == (inside ? 1 : 0))
        return;
    if (inside)
        view->mark_selected(button, false);
    else
        view->mark_deselected(button, false);
    view->update();
}

void track_button_cmd::move_to(const QPoint& pos, Qt::KeyboardModifiers) {
    light(pos);
}

void track_button_cmd::finish() {
    if (button_alive() && button->selected != 0) {
        view->run_button_script(button);
        view->mark_deselected(button, false);
        view->update();
    }
    view->refresh_toolbox();
}

track_url_cmd::track_url_cmd(const QRect& rect, const QPoint& pos, const QString& address)
    : link_rect(rect), last(pos), url(address) {}

void track_url_cmd::move_to(const QPoint& pos, Qt::KeyboardModifiers) {
    last = pos;
}

void track_url_cmd::finish() {
    if (link_rect.contains(last))
        QDesktopServices::openUrl(QUrl(url, QUrl::TolerantMode));
}

shift_picker_cmd::shift_picker_cmd(picker_view* view_, const QPoint& pos)
    : view(view_), start(pos), last(pos), start_offset(view_->offset) {}

void shift_picker_cmd::move_to(const QPoint& pos, Qt::KeyboardModifiers) {
    if (pos == last)
        return;
    view->set_offset(pos + start_offset - start);
    last = pos;
}

zoom_picker_cmd::zoom_picker_cmd(picker_view* view_, const QPoint& pos)
    : view(view_), start(pos), last(pos), start_zoom(float(view_->zoom)) {}

void zoom_picker_cmd::move_to(const QPoint& pos, Qt::KeyboardModifiers) {
    if (pos == last)
        return;
    last = pos;
    // Right and down zoom in, left and up zoom out, always from the press.
    const int d = (pos.y() - start.y()) + (pos.x() - start.x());
    view->zoom_at(zoom_step(d / 20, start_zoom), start);
}

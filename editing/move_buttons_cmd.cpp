#include "editing/move_buttons_cmd.h"

#include "canvas/picker_view.h"

move_buttons_cmd::move_buttons_cmd(picker_view* view_, const QVector<QPoint>& saved_,
                                   const QVector<int>& indices_, const QPoint& delta_)
    : QUndoCommand(QObject::tr("Move Buttons")), view(view_), saved(saved_), indices(indices_),
      delta(delta_) {}

void move_buttons_cmd::redo() {
    place(delta);
}
void move_buttons_cmd::undo() {
    place(QPoint(0, 0));
}

void move_buttons_cmd::place(const QPoint& offset) {
    for (int i = 0; i < indices.size() && i < saved.size(); ++i) {
        // A script may have deleted buttons since: an index past the list is skipped.
        if (indices[i] >= 0 && indices[i] < view->buttons.size())
            view->set_button_position(view->buttons[indices[i]], saved[i] + offset);
    }
    view->update();
    emit view->changed();
}

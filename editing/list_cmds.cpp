#include "editing/list_cmds.h"

namespace {

// The fully selected buttons and a value of each.
template <typename T, typename F>
void collect(const picker_view* view, QVector<int>& indices, T& saved, F value) {
    for (int i = 0; i < view->buttons.size(); ++i) {
        if (view->buttons[i]->selected & 1) {
            indices.append(i);
            saved.append(value(*view->buttons[i]));
        }
    }
}

QString counted(const QVector<int>& indices, const char* one, const char* many) {
    return QObject::tr(indices.size() >= 2 ? many : one);
}

} // namespace

change_label_cmd::change_label_cmd(picker_view* view_, const QString& label)
    : QUndoCommand(QObject::tr("Label Change")), view(view_), value(label) {
    collect(view, indices, saved, [](const picker_button& b) { return b.label; });
}

void change_label_cmd::redo() {
    if (indices.isEmpty())
        return;
    for (int i : qAsConst(indices)) {
        if (i < view->buttons.size()) // a script may have shortened the list since
            view->set_button_label(view->buttons[i], value);
    }
    view->update();
    emit view->changed();
    view->refresh_toolbox();
}

void change_label_cmd::undo() {
    if (indices.isEmpty())
        return;
    for (int i = 0; i < indices.size(); ++i) {
        if (indices[i] < view->buttons.size())
            view->set_button_label(view->buttons[indices[i]], saved[i]);
    }
    view->update();
    emit view->changed();
    view->refresh_toolbox();
}

nudge_buttons_cmd::nudge_buttons_cmd(picker_view* view_, const QPoint& step)
    : QUndoCommand(QObject::tr("Button Move")), view(view_), delta(step) {
    collect(view, indices, saved, [](const picker_button& b) { return b.position; });
}

void nudge_buttons_cmd::redo() {
    if (indices.isEmpty())
        return;
    for (int i = 0; i < indices.size(); ++i) {
        if (indices[i] < view->buttons.size())
            view->set_button_position(view->buttons[indices[i]], saved[i] + delta);
    }
    view->update();
    emit view->changed();
}

void nudge_buttons_cmd::undo() {
    if (indices.isEmpty())
        return;
    for (int i = 0; i < indices.size(); ++i) {
        if (indices[i] < view->buttons.size())
            view->set_button_position(view->buttons[indices[i]], saved[i]);
    }
    view->update();
    emit view->changed();
}

bool nudge_buttons_cmd::mergeWith(const QUndoCommand* other) {
    const auto* next = dynamic_cast<const nudge_buttons_cmd*>(other);
    if (!next || next->indices != indices)
        return false;
    delta += next->delta;
    return true;
}

delete_buttons_cmd::delete_buttons_cmd(picker_view* view_)
    : view(view_), saved(view_->selected_indices_and_data(indices)) {
    setText(counted(indices, "Delete Button", "Delete Buttons"));
}

void delete_buttons_cmd::redo() {
    view->remove_buttons(indices);
}
void delete_buttons_cmd::undo() {
    view->restore_buttons(indices, saved);
}

cut_buttons_cmd::cut_buttons_cmd(picker_view* view_)
    : view(view_), saved(view_->selected_indices_and_data(indices)) {
    setText(counted(indices, "Cut Button", "Cut Buttons"));
}

void cut_buttons_cmd::redo() {
    view->remove_buttons(indices);
    view->deselect_all();
    view->update();
    emit view->changed();
}

void cut_buttons_cmd::undo() {
    view->restore_buttons(indices, saved);
    view->deselect_all();
    view->select_indices(indices, true);
    view->update();
    emit view->changed();
    view->refresh_toolbox();
}

paste_buttons_cmd::paste_buttons_cmd(picker_view* view_, const QList<picker_button_data>& list,
                                     bool place_as_is)
    : QUndoCommand(QObject::tr("Paste Buttons")), view(view_), records(list),
      in_place(place_as_is) {
    if (records.isEmpty())
        return;
    bounds = QRect(records.first().position, QSize(1, 1));
    for (const picker_button_data& r : qAsConst(records)) {
        const QPoint p = r.position;
        if (p.x() < bounds.left())
            bounds.setLeft(p.x());
        if (p.x() > bounds.right())
            bounds.setRight(p.x());
        if (p.y() < bounds.top())
            bounds.setTop(p.y());
        if (p.y() > bounds.bottom())
            bounds.setBottom(p.y());
    }
}

void paste_buttons_cmd::redo() {
    QPoint offset(0, 0);
    if (!in_place)
        offset = view->to_picker(view->rect().center()) - bounds.center();
    indices.clear();
    for (picker_button_data record : qAsConst(records)) {
        record.position += offset;
        indices.append(view->add_button_record(record, -1));
    }
    view->deselect_all();
    view->select_indices(indices, true);
    // Widget pixels against picker units, and the bounds before the offset: as it stands.
    if (view->rect().contains(bounds))
        view->update();
    else
        view->frame_rect(bounds, true);
    emit view->changed();
    view->refresh_toolbox();
}

void paste_buttons_cmd::undo() {
    view->remove_buttons(indices);
    view->deselect_all();
    view->update();
    emit view->changed();
    view->refresh_toolbox();
}

update_buttons_cmd::update_buttons_cmd(picker_view* view_, const picker_button* button,
                                       const QStringList& names)
    : QUndoCommand(QObject::tr("Button Update")), view(view_), index(-1), targets(names) {
    for (int i = 0; i < view->buttons.size() && index < 0; ++i) {
        if (view->buttons[i] == button)
            index = i;
    }
}

void update_buttons_cmd::redo() {
    if (index < 0 || index >= view->buttons.size())
        return;
    picker_button* button = view->buttons[index];
    qSwap(targets, button->targets);
    button->target_selected.resize(button->targets.size());
    view->mark_selected(button, false);
    view->refresh_highlights();
    view->update();
    emit view->changed();
    view->refresh_toolbox();
}

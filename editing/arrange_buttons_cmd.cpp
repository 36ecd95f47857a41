#include "editing/arrange_buttons_cmd.h"

#include "canvas/picker_view.h"

arrange_buttons_cmd::arrange_buttons_cmd(picker_view* view_, int mode_)
    : QUndoCommand(QObject::tr("Arrange Buttons")), view(view_), mode(mode_) {
    qint64 sum_x = 0, sum_y = 0;
    for (int i = 0; i < view->buttons.size(); ++i) {
        const picker_button* b = view->buttons[i];
        if (!(b->selected & 1))
            continue;
        sum_x += b->position.x();
        sum_y += b->position.y();
        const QRect point(b->position, QSize(1, 1));
        bounds = indices.isEmpty() ? point : bounds.united(point);
        indices.append(i);
        saved.append(b->position);
    }
    const int c = indices.size();
    if (c == 0)
        return;
    sort_by_key();
    mean = QPoint(int(sum_x / c), int(sum_y / c));
    // The next multiple of c strictly above: the far button lands past the far edge.
    bounds.setWidth(bounds.width() + c - bounds.width() % c);
    bounds.setHeight(bounds.height() + c - bounds.height() % c);
}

int arrange_buttons_cmd::key(int index) const {
    const QPoint p = view->buttons[index]->position;
    return mode == 0 || mode == 2 ? p.x() : p.y();
}

// A stable insertion sort: ties keep their list order.
void arrange_buttons_cmd::sort_by_key() {
    QVector<int> sorted{indices.first()};
    for (int n = 1; n < indices.size(); ++n) {
        const int entry = indices[n];
        if (!(key(entry) < key(sorted.last()))) {
            sorted.append(entry);
            continue;
        }
        int at = 0;
        while (!(key(sorted[at]) > key(entry)))
            ++at;
        sorted.insert(at, entry);
    }
    indices = sorted;
}

void arrange_buttons_cmd::redo() {
    const int c = indices.size();
    if (c < 2)
        return;
    const int step_x = bounds.width() / (c - 1);
    const int step_y = bounds.height() / (c - 1);
    for (int k = 0; k < c; ++k) {
        if (indices[k] >= view->buttons.size()) // a script shortened the list since
            continue;
        picker_button* b = view->buttons[indices[k]];
        const QPoint p = b->position;
        const QPoint to = mode == 0   ? QPoint(p.x(), mean.y())
                          : mode == 1 ? QPoint(mean.x(), p.y())
                          : mode == 2 ? QPoint(bounds.left() + k * step_x, p.y())
                                      : QPoint(p.x(), bounds.top() + k * step_y);
        view->set_button_position(b, to);
    }
    view->update();
    emit view->changed();
}

void arrange_buttons_cmd::undo() {
    if (indices.isEmpty())
        return;
    // Saved in list order, written in sorted order, and only the position: kept as it is.
    for (int i = 0; i < indices.size() && i < saved.size(); ++i) {
        if (indices[i] < view->buttons.size())
            view->buttons[indices[i]]->position = saved[i];
    }
    view->update();
    emit view->changed();
}

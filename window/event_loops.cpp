#include "window/event_loops.h"

#include <QDialog>
#include <QList>
#include <QPointer>
#include <QWidget>
#include <utility>

namespace {

int depth = 0;

QList<QPointer<QWidget>>& kept() {
    static QList<QPointer<QWidget>> widgets;
    return widgets;
}

} // namespace

loop_scope::loop_scope() {
    ++depth;
}

loop_scope::~loop_scope() {
    if (--depth > 0)
        return;
    // The handler that opened the outermost loop is still on the stack: the kept widgets go
    // once control is back in the event loop below it.
    kept().removeAll(nullptr);
    for (const QPointer<QWidget>& widget : qAsConst(kept()))
        widget->deleteLater();
}

bool in_picker_loop() {
    return depth > 0;
}

void dispose_when_unwound(QWidget* widget) {
    if (depth == 0) {
        delete widget;
        return;
    }
    // Its open dialogs and menus end with it, and so do the loops they run.
    const QList<QWidget*> children = widget->findChildren<QWidget*>();
    for (QWidget* child : children) {
        if (!child->isWindow() || !child->isVisible())
            continue;
        if (auto* dialog = qobject_cast<QDialog*>(child))
            dialog->reject();
        else
            child->close();
    }
    widget->hide();
    widget->setParent(nullptr);
    kept().append(widget);
}

void delete_disposed_widgets() {
    for (const QPointer<QWidget>& widget : std::exchange(kept(), {}))
        delete widget.data();
}

#pragma once
// Where a mouse event happened on the screen. Qt 6 renamed the accessor and deprecated the
// old one; both give the position the event carries.
#include <QMouseEvent>
#include <QPoint>

inline QPoint screen_position(const QMouseEvent* event) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->globalPosition().toPoint();
#else
    return event->globalPos();
#endif
}

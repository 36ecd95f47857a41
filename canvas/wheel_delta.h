#pragma once
// The wheel's turn as Qt 5's QWheelEvent::delta() gave it, from angleDelta(), which Qt 5
// and Qt 6 both have: the component of larger magnitude, the vertical one on a tie. Qt
// delivers the wheel turned with Alt held, and tilt wheels, as a horizontal delta.
#include <QWheelEvent>
#include <QtGlobal>

inline int wheel_delta(const QWheelEvent* event) {
    const QPoint angle = event->angleDelta();
    return qAbs(angle.x()) > qAbs(angle.y()) ? angle.x() : angle.y();
}

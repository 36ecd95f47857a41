#pragma once
// The rubber band of a selecting drag: a faint white veil with a solid white border.
#include "canvas/picker_overlay.h"

#include <QPoint>
#include <QRect>

class marquee_overlay : public picker_overlay {
public:
    QPoint start;
    QPoint end;

    void paint(QPainter* painter) override;
    // |dx| by |dy|, whichever side of `start` the drag went.
    QRect marquee_rect() const;
    bool is_clear() const { return start.isNull() && end.isNull(); }
    void clear() { start = end = QPoint(0, 0); }
};

#include "canvas/marquee_overlay.h"

#include <QPainter>

QRect marquee_overlay::marquee_rect() const {
    QRect r;
    r.setLeft(qMin(start.x(), end.x()));
    r.setWidth(qMax(start.x(), end.x()) - r.left());
    r.setTop(qMin(start.y(), end.y()));
    r.setHeight(qMax(start.y(), end.y()) - r.top());
    return r;
}

void marquee_overlay::paint(QPainter* painter) {
    if (start == end)
        return;
    const QRect r = marquee_rect();
    if (r.isEmpty())
        return;
    painter->setOpacity(0.2);
    painter->setPen(Qt::NoPen);
    painter->fillRect(r, QBrush(Qt::white));
    painter->setPen(QColor(Qt::white));
    painter->setBrush(Qt::NoBrush);
    painter->setOpacity(1.0);
    painter->drawRects(&r, 1);
    painter->setPen(Qt::NoPen);
}

#pragma once
// Converting to int where the value may come from a script or a file: what does not fit
// stops at the ends of the int range, where a bare conversion or sum is undefined.
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QtGlobal>
#include <cmath>
#include <limits>
#include <utility>

// Truncates toward zero; beyond the range, its nearest end; NaN gives 0.
template <typename Real> int truncate_to_int(Real value) {
    if (std::isnan(value))
        return 0;
    if (value >= Real(2147483648.0))
        return std::numeric_limits<int>::max();
    if (value < Real(-2147483648.0))
        return std::numeric_limits<int>::min();
    return int(value);
}

inline int clamp_to_int(qint64 value) {
    return int(qBound(qint64(std::numeric_limits<int>::min()), value,
                      qint64(std::numeric_limits<int>::max())));
}

// A rectangle of `size` whose centre is `centre`, with the edges QRect::moveCenter gives it;
// near the ends of the int range it is pushed inwards so that its edges exist.
inline QRect centred_rect(const QSize& size, const QPoint& centre) {
    const auto edges = [](int length, int middle) {
        const qint64 span = qint64(length) - 1;
        const qint64 first =
            qBound(qint64(std::numeric_limits<int>::min()) - qMin<qint64>(span, 0),
                   qint64(middle) - span / 2,
                   qint64(std::numeric_limits<int>::max()) - qMax<qint64>(span, 0));
        return std::make_pair(int(first), int(first + span));
    };
    const auto [left, right] = edges(size.width(), centre.x());
    const auto [top, bottom] = edges(size.height(), centre.y());
    QRect rect;
    rect.setCoords(left, top, right, bottom);
    return rect;
}

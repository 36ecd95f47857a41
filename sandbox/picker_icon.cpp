#include "picker_icon.h"

#include <QPainter>
#include <QPixmap>

namespace sandbox {

QIcon picker_icon() {
    QPixmap pixmap(32, 32);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x33, 0x36, 0x3b));
    p.drawRoundedRect(QRectF(1, 1, 30, 30), 5, 5);
    const QColor colors[] = {QColor(0xe2, 0x4a, 0x4a), QColor(0xf2, 0xc1, 0x4e),
                             QColor(0x4a, 0x90, 0xe2), QColor(0x5c, 0xc2, 0x7a)};
    const QRectF cells[] = {QRectF(12, 4, 8, 6), QRectF(6, 13, 20, 6), QRectF(6, 22, 8, 6),
                            QRectF(18, 22, 8, 6)};
    for (int i = 0; i < 4; ++i) {
        p.setBrush(colors[i]);
        p.drawRoundedRect(cells[i], 1.5, 1.5);
    }
    return QIcon(pixmap);
}

} // namespace sandbox

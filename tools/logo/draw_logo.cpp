// Draws the picker's images: the window icon (a turtle shell of hexagons on a rounded
// tile) and the banner logo (the icon small, beside the name).
// Build: g++ -fPIC draw_logo.cpp $(pkg-config --cflags --libs Qt5Gui) -o draw_logo
// Run:   QT_QPA_PLATFORM=offscreen ./draw_logo ZelvaniLogo.png PickerWindowLogoCropped.png
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

namespace {

QPolygonF hexagon(QPointF centre, qreal radius) {
    QPolygonF poly;
    for (int i = 0; i < 6; ++i) {
        const qreal a = qDegreesToRadians(60.0 * i + 30.0);
        poly << centre + QPointF(radius * qCos(a), radius * qSin(a));
    }
    return poly;
}

QImage draw_icon() {
    const int size = 64;
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);

    QLinearGradient tile(0, 0, 0, size);
    tile.setColorAt(0, QColor(0x2e, 0x7d, 0x5b));
    tile.setColorAt(1, QColor(0x1b, 0x4d, 0x3a));
    p.setPen(Qt::NoPen);
    p.setBrush(tile);
    p.drawRoundedRect(QRectF(1, 1, size - 2, size - 2), 12, 12);

    // Head and feet peeking out of the shell.
    p.setBrush(QColor(0xb8, 0xd9, 0x8a));
    p.drawEllipse(QPointF(32, 12), 6, 6);
    for (const QPointF foot : {QPointF(15, 22), QPointF(49, 22), QPointF(15, 46), QPointF(49, 46)})
        p.drawEllipse(foot, 5, 5);

    p.setBrush(QColor(0xe8, 0xb9, 0x3c));
    p.setPen(QPen(QColor(0x6b, 0x45, 0x10), 2));
    p.drawEllipse(QPointF(32, 35), 19, 21);
    p.setBrush(QColor(0xf3, 0xd0, 0x6a));
    const qreal r = 6.5;
    p.drawPolygon(hexagon(QPointF(32, 35), r));
    for (int i = 0; i < 6; ++i) {
        const qreal a = qDegreesToRadians(60.0 * i);
        p.drawPolygon(
            hexagon(QPointF(32, 35) + QPointF(2 * r * 0.87 * qCos(a), 2 * r * 0.87 * qSin(a)) * 1.0,
                    r * 0.8));
    }
    p.end();
    return image;
}

// 30 pixels high, so that it stands above the banner's 22-pixel strip.
QImage draw_banner_logo(const QImage& icon) {
    QImage image(118, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(QRectF(4, 1, 26, 26), icon);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(14);
    font.setBold(true);
    p.setFont(font);
    p.setPen(Qt::white);
    p.drawText(QRectF(34, 8, 84, 22), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Zelvani"));
    return image;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc < 3)
        return 2;
    const QImage icon = draw_icon();
    return icon.save(QString::fromLocal8Bit(argv[1])) &&
                   draw_banner_logo(icon).save(QString::fromLocal8Bit(argv[2]))
               ? 0
               : 1;
}

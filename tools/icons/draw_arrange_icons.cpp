// Draws the four arrange icons of the canvas menu: buttons lined up on a guide, or spread
// at even steps along an axis.
// Build: g++ -fPIC draw_arrange_icons.cpp $(pkg-config --cflags --libs Qt5Gui) -o draw_icons
// Run:   QT_QPA_PLATFORM=offscreen ./draw_icons OUTPUT_DIR
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

namespace {

const int size = 32;
const QColor guide(0x4f, 0xc3, 0xf7);
const QColor block(0xe0, 0xe0, 0xe0);
const QColor outline(0x30, 0x30, 0x30);

QImage blank() {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

void draw_block(QPainter& p, const QRectF& r) {
    p.setPen(QPen(outline, 1.0));
    p.setBrush(block);
    p.drawRoundedRect(r, 2, 2);
}

// Draws the horizontal form of an icon; `vertical` mirrors it across the diagonal.
template <typename Draw> QImage icon(bool vertical, Draw draw) {
    QImage image = blank();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    if (vertical)
        p.setTransform(QTransform(0, 1, 1, 0, 0, 0));
    draw(p);
    return image;
}

// Blocks of three sizes centred on one guide.
QImage align(bool vertical) {
    return icon(vertical, [](QPainter& p) {
        draw_block(p, QRectF(2.5, 10.5, 7, 11));
        draw_block(p, QRectF(12.5, 6.5, 7, 19));
        draw_block(p, QRectF(22.5, 12.5, 7, 7));
        p.setPen(QPen(guide, 2.0));
        p.drawLine(QPointF(0, 16), QPointF(size, 16));
    });
}

// Three blocks at even steps, with the step marked between them.
QImage distribute(bool vertical) {
    return icon(vertical, [](QPainter& p) {
        p.setPen(QPen(guide, 2.0));
        for (const qreal x : {4.0, 16.0, 28.0})
            p.drawLine(QPointF(x, 1), QPointF(x, 31));
        draw_block(p, QRectF(1.5, 9.5, 6, 13));
        draw_block(p, QRectF(13.5, 5.5, 6, 21));
        draw_block(p, QRectF(25.5, 11.5, 6, 9));
    });
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const QDir out(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("."));
    const bool ok = align(false).save(out.filePath("align-horizontal.png")) &&
                    align(true).save(out.filePath("align-vertical.png")) &&
                    distribute(false).save(out.filePath("distribute-horizontal.png")) &&
                    distribute(true).save(out.filePath("distribute-vertical.png"));
    return ok ? 0 : 1;
}

#include "window/picker_colorMenu.h"

#include <QMouseEvent>
#include <QPainter>

picker_colorMenu::picker_colorMenu(const QVector<QRgb>& colors_, int columns_, int cell_size_,
                                   QWidget* parent)
    : QWidget(parent), colors(colors_), columns(qMax(columns_, 1)), cell_size(cell_size_) {
    rows = colors.size() / columns;
    const int step = cell_size + gap;
    menu_size = QSize(step * columns + gap, step * rows + gap);
    setMinimumSize(menu_size);
    setAttribute(Qt::WA_MouseTracking);
    resize(menu_size);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setWindowFlags(Qt::Popup);
}

int picker_colorMenu::nearest_index(const QColor& color) const {
    if (colors.isEmpty())
        return 0;
    auto distance = [&color](QRgb c) {
        const int r = qRed(c) - color.red(), g = qGreen(c) - color.green(),
                  b = qBlue(c) - color.blue();
        return r * r + g * g + b * b;
    };
    int best = 0;
    int best_distance = distance(colors[0]);
    for (int i = 1; i < colors.size(); ++i) {
        const int d = distance(colors[i]);
        if (d < best_distance) {
            best = i;
            best_distance = d;
        }
    }
    return best;
}

int picker_colorMenu::index_at(const QPoint& pos) const {
    if (pos.x() < 0 || pos.x() > menu_size.width() || pos.y() < 0 || pos.y() > menu_size.height())
        return -1;
    const int step = cell_size + gap;
    return pos.x() / step + (pos.y() / step) * columns;
}

void picker_colorMenu::mouseMoveEvent(QMouseEvent* event) {
    if (event->pos() == last_pos)
        return;
    const int index = index_at(event->pos());
    if (index != hover) {
        hover = index;
        update();
    }
    last_pos = event->pos();
}

// The popup opens on the press of its button, so the release of that press must not pick:
// a release before any press is ignored, and the first press only arms it.
void picker_colorMenu::mousePressEvent(QMouseEvent*) {
    if (!armed) {
        armed = true;
        return;
    }
    pick();
}

void picker_colorMenu::mouseReleaseEvent(QMouseEvent*) {
    if (!armed)
        return;
    pick();
}

void picker_colorMenu::pick() {
    if (hover >= 0 && hover < colors.size())
        emit colorChanged(colors[hover]);
    close();
}

void picker_colorMenu::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(40, 40, 40));
    const QRect all = rect();
    painter.drawRects(&all, 1);

    const int step = cell_size + gap;
    if (hover >= 0) {
        painter.setBrush(highlight);
        painter.drawRoundedRect(QRectF((hover % columns) * step, (hover / columns) * step,
                                       cell_size + 2 * gap, cell_size + 2 * gap),
                                2.0, 2.0, Qt::AbsoluteSize);
    }
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const int index = row * columns + column;
            const int x = gap + column * step;
            const int y = gap + row * step;
            painter.setBrush(QColor::fromRgba(colors[index]));
            if (index == hover) // smaller, so the highlight frames it
                painter.drawRect(x + 2, y + 2, cell_size - 4, cell_size - 4);
            else
                painter.drawRect(x, y, cell_size, cell_size);
        }
    }
}

QVector<QRgb> color_swatches() {
    static const double shades[5][2] = {
        {0.43, 0.702}, {0.498, 1.0}, {1.0, 1.0}, {1.0, 0.749}, {1.0, 0.502}};
    QVector<QRgb> out;
    out.reserve(72);
    for (const auto& shade : shades) {
        double hue = 0;
        for (int i = 0; i < 12; ++i, hue += 1.0 / 12)
            out.append(QColor::fromHsvF(hue, shade[0], shade[1], 1.0).rgba());
    }
    // The steps are summed, so the last grey is held to 1.0 rather than computed as 11/11.
    double value = 0;
    for (int i = 0; i < 12; ++i, value += 1.0 / 11)
        out.append(QColor::fromHsvF(0, 0, qMin(value, 1.0), 1.0).rgba());
    return out;
}

QVector<QRgb> label_color_swatches() {
    return {0xff000000, 0xffffffff};
}

namespace {

picker_colorMenu* open_menu(const QVector<QRgb>& colors, int columns, const QPoint& point,
                            const QColor& color, QObject* receiver, const char* slot) {
    auto* menu = new picker_colorMenu(colors, columns, 17);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const int i = menu->nearest_index(color);
    const int step = menu->cell_size + menu->gap;
    const int h = menu->cell_size / 2;
    // The gap counts on y only; the swatch still lies under the point.
    menu->move(point.x() - ((i % menu->columns) * step + h),
               point.y() - ((i / menu->columns) * step + menu->gap + h));
    QObject::connect(menu, SIGNAL(colorChanged(QRgb)), receiver, slot);
    menu->show();
    if (menu->hover != i) {
        menu->hover = i;
        menu->update();
    }
    return menu;
}

} // namespace

picker_colorMenu* open_color_menu(const QPoint& point, const QColor& color, QObject* receiver,
                                  const char* slot) {
    return open_menu(color_swatches(), 12, point, color, receiver, slot);
}

picker_colorMenu* open_label_color_menu(const QPoint& point, const QColor& color, QObject* receiver,
                                        const char* slot) {
    return open_menu(label_color_swatches(), 1, point, color, receiver, slot);
}

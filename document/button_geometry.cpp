#include "document/button_geometry.h"

#include "document/int_range.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <algorithm>

const QFont& label_font() {
    static const QFont font = [] {
        // Qt's font cache keeps the family name past this library's unloading: a heap copy,
        // never a literal that lives in the library.
        QFont f(QString::fromLatin1("Tahoma"));
        f.setPixelSize(11);
        f.setStyleStrategy(QFont::NoAntialias);
        // Whole-pixel advances and stems on the pixel grid, whatever the machine's font
        // settings: unhinted, a label centred at a fraction of a pixel loses thin stems (the
        // "L" of "L Arm") in its one-bit rendering.
        f.setHintingPreference(QFont::PreferFullHinting);
        return f;
    }();
    return font;
}

int held_coordinate(double v) {
    // NaN compares false both ways and ends at 0.
    if (!(v > -picker_geometry_limit))
        return v < 0 ? -picker_geometry_limit : 0;
    return v < picker_geometry_limit ? int(v) : picker_geometry_limit;
}

QPoint held_position(const QPoint& p) {
    return QPoint(held_coordinate(p.x()), held_coordinate(p.y()));
}

int held_size(int v) {
    return qBound(-picker_geometry_limit, v, picker_geometry_limit);
}

namespace {

// No screen shows more of a label than this many pixels around its middle, at any zoom:
// a longer label keeps its full width for the button and its picture keeps the middle.
constexpr int max_label_picture_width = 1 << 15;

// Measuring is the cost of opening big pickers: one metrics object serves every label.
const QFontMetrics& label_metrics() {
    static const QFontMetrics metrics(label_font());
    return metrics;
}

} // namespace

void reset_button_rect(picker_button& button) {
    button.rect = centred_rect(QSize(button.width, button.height), button.position);
}

void update_button_geometry(picker_button& button) {
    QSize text = label_metrics().boundingRect(button.label).size();
    text = QSize(held_size(text.width()), held_size(text.height()));
    if (text.width() % 2)
        text.rwidth() += 1;
    if (text.height() % 2)
        text.rheight() += 1;
    text.rwidth() += 2;

    button.rect = centred_rect(
        QSize(std::max(text.width() + 2, button.width), std::max(text.height(), button.height)),
        button.position);

    const QSize picture(qMin(text.width(), max_label_picture_width), text.height());
    QImage image(picture, QImage::Format_ARGB32);
    image.fill(0);
    QPainter painter(&image);
    painter.setFont(label_font());
    painter.setBrush(Qt::black);
    painter.setPen(QColor::fromRgb(button.label_color));
    // Centred in the text's own width, so that a cut picture keeps the label's middle.
    const int cut = (text.width() - picture.width()) / 2;
    painter.drawText(QRect(QPoint(-cut, 0), text), Qt::AlignHCenter | Qt::AlignVCenter,
                     button.label);
    painter.end();
    button.label_pixmap = QPixmap::fromImage(image);
}

picker_button* make_button_record(const picker_button_data& data) {
    auto* button = new picker_button;
    static_cast<picker_button_data&>(*button) = data;
    button->target_selected = QVector<bool>(data.targets.size(), false);
    button->position = held_position(button->position);
    button->width = std::max(held_size(button->width), 1);
    button->height = std::max(held_size(button->height), 1);
    button->size = button->width;
    if (button->label.isEmpty())
        reset_button_rect(*button);
    else
        update_button_geometry(*button);
    return button;
}

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

namespace {

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
    if (text.width() % 2)
        text.rwidth() += 1;
    if (text.height() % 2)
        text.rheight() += 1;
    text.rwidth() += 2;

    button.rect = centred_rect(
        QSize(std::max(text.width() + 2, button.width), std::max(text.height(), button.height)),
        button.position);

    QImage image(text, QImage::Format_ARGB32);
    image.fill(0);
    QPainter painter(&image);
    painter.setFont(label_font());
    painter.setBrush(Qt::black);
    painter.setPen(QColor::fromRgb(button.label_color));
    painter.drawText(QRect(QPoint(0, 0), text), Qt::AlignHCenter | Qt::AlignVCenter, button.label);
    painter.end();
    button.label_pixmap = QPixmap::fromImage(image);
}

picker_button* make_button_record(const picker_button_data& data) {
    auto* button = new picker_button;
    static_cast<picker_button_data&>(*button) = data;
    button->target_selected = QVector<bool>(data.targets.size(), false);
    button->width = std::max(button->width, 1);
    button->height = std::max(button->height, 1);
    button->size = button->width;
    if (button->label.isEmpty())
        reset_button_rect(*button);
    else
        update_button_geometry(*button);
    return button;
}

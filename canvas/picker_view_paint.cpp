// Painting a view: a constant backdrop, the picture, the visible buttons in list order,
// then the overlays. Plain and fast: labels are cached pixmaps scaled with the button.
#include "canvas/picker_overlay.h"
#include "canvas/picker_view.h"
#include "document/int_range.h"

#include <QLinearGradient>
#include <QPaintEvent>
#include <QPainter>

void picker_view::paintEvent(QPaintEvent* event) {
    if (!isVisible())
        return;
    QPainter painter(this);
    // No smooth pixmap transform: labels and the picture keep hard pixels under zoom.
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(event->rect(), QBrush(QColor(51, 51, 51, 255)));
    if (!background.isNull())
        painter.drawPixmap(to_widget(background.rect()), background, background.rect());
    if (!buttons.isEmpty()) {
        const QRect visible = rect_to_picker(event->rect());
        // Once for all: a command button leaves its pen behind for the shapes after it.
        painter.setPen(Qt::NoPen);
        for (const picker_button* button : qAsConst(buttons)) {
            if (!visible.intersects(button->rect))
                continue;
            if (button->kind != 0)
                paint_command_button(&painter, button);
            else
                paint_selection_button(&painter, button);
        }
    }
    for (picker_overlay* overlay : overlays)
        overlay->paint(&painter);
}

void picker_view::paint_selection_button(QPainter* painter, const picker_button* button) {
    const QBrush fill(button->selected == 0   ? QColor::fromRgb(button->color)
                      : button->selected == 1 ? QColor(224, 224, 224, 255)
                                              : QColor(128, 128, 128, 255));
    const QRectF shape(to_widget(button->rect));
    if (button->targets.size() <= 1) {
        painter->fillRect(shape, fill);
    } else if (button->label_pixmap.isNull()) {
        painter->setBrush(fill);
        painter->drawEllipse(shape);
    } else {
        painter->setBrush(fill);
        const qreal r = 0.2 * qMin(shape.width(), shape.height());
        painter->drawRoundedRect(shape, r, r, Qt::AbsoluteSize);
    }
    paint_label(painter, button, shape.center());
}

void picker_view::paint_command_button(QPainter* painter, const picker_button* button) {
    const QRectF shape(to_widget(button->rect));
    const QColor color = QColor::fromRgb(button->color);
    QBrush fill, outline;
    if (button->selected == 0) {
        QLinearGradient gradient(shape.topLeft(), shape.bottomLeft());
        gradient.setColorAt(0.0, color.lighter(150));
        gradient.setColorAt(0.1, color);
        gradient.setColorAt(0.9, color);
        gradient.setColorAt(1.0, color.darker(150));
        fill = QBrush(gradient);
        outline = QBrush(Qt::black);
    } else if (button->selected == 1) {
        fill = QBrush(color.lighter(150));
        outline = QBrush(Qt::white);
    } else {
        fill = outline = QBrush(QColor(128, 128, 128, 255));
    }
    painter->setBrush(fill);
    painter->setPen(QPen(outline, 0.5, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    const qreal r = 0.05 * qMin(shape.width(), shape.height());
    painter->drawRoundedRect(shape, r, r, Qt::AbsoluteSize);
    paint_label(painter, button, shape.center());
}

void picker_view::paint_label(QPainter* painter, const picker_button* button,
                              const QPointF& centre) {
    const QPixmap& pixmap = button->label_pixmap;
    if (pixmap.isNull())
        return;
    const QRectF source(QPointF(0, 0), QSizeF(pixmap.size()));
    QRectF target(0, 0, int(pixmap.width() * zoom + 0.5), int(pixmap.height() * zoom + 0.5));
    target.moveCenter(
        QPointF(truncate_to_int(centre.x() + 0.5), truncate_to_int(centre.y() + 0.5)));
    // A light label on a selected button punches through the near-white fill.
    if (button->kind == 0 && button->selected == 1 && (button->label_color & 0x808080)) {
        painter->setCompositionMode(QPainter::CompositionMode_Xor);
        painter->drawPixmap(target, pixmap, source);
        painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
        return;
    }
    painter->drawPixmap(target, pixmap, source);
}

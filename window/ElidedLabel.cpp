#include "window/ElidedLabel.h"

#include <QPainter>
#include <QTextLayout>

ElidedLabel::ElidedLabel(const QString& text, QWidget* parent) : QFrame(parent), content(text) {}

void ElidedLabel::setText(const QString& text) {
    content = text;
    update();
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QFontMetrics metrics = painter.fontMetrics();
    const int line_height = metrics.lineSpacing();
    int y = 0;
    bool did_elide = false;

    QTextLayout layout(content, painter.font());
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid();) {
        line.setLineWidth(width());
        const int next_y = y + line_height;
        if (height() >= next_y + line_height) {
            line.draw(&painter, QPoint(0, y));
            y = next_y;
            line = layout.createLine();
            continue;
        }
        // The last line that fits takes the rest of the text, elided on the left.
        const QString rest = content.mid(line.textStart());
        painter.drawText(QPoint(0, y + metrics.ascent()),
                         metrics.elidedText(rest, Qt::ElideLeft, width()));
        did_elide = layout.createLine().isValid();
        break;
    }
    layout.endLayout();

    if (did_elide != elided) {
        elided = did_elide;
        emit elisionChanged(did_elide);
    }
}

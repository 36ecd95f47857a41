#pragma once
// A popup grid of colour swatches. It opens with the current colour's swatch under the
// pointer and answers with colorChanged() when a swatch is picked.
#include <QColor>
#include <QPoint>
#include <QRgb>
#include <QSize>
#include <QVector>
#include <QWidget>

class picker_colorMenu : public QWidget {
    Q_OBJECT
public:
    picker_colorMenu(const QVector<QRgb>& colors, int columns, int cell_size,
                     QWidget* parent = nullptr);

    // The swatch closest in red, green and blue; a tie goes to the lower index.
    int nearest_index(const QColor& color) const;
    // The swatch index at a widget point, or -1 outside. Not clamped: the right edge's last
    // pixels give the next row, the bottom edge an index past the end.
    int index_at(const QPoint& pos) const;

    QVector<QRgb> colors;
    int columns;
    int rows;
    int cell_size;
    int gap = 2;
    int hover = -1;
    QPoint last_pos;
    QColor highlight{0, 182, 255, 255};
    QSize menu_size;
    bool armed = false;

signals:
    void colorChanged(QRgb color);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void pick();
};

// The 72 fill colours, 12 hues in 5 shades and a row of greys, row by row.
QVector<QRgb> color_swatches();
// Black and white, for labels.
QVector<QRgb> label_color_swatches();

// Open a new popup at a global point, with the swatch nearest `color` under it, and connect
// its colorChanged(QRgb) to `slot` of `receiver`. The popup deletes itself once closed.
picker_colorMenu* open_color_menu(const QPoint& point, const QColor& color, QObject* receiver,
                                  const char* slot);
picker_colorMenu* open_label_color_menu(const QPoint& point, const QColor& color, QObject* receiver,
                                        const char* slot);

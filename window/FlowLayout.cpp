#include "window/FlowLayout.h"

#include <QApplication>
#include <QWidget>

FlowLayout::FlowLayout(QWidget* parent, int margin, int h_spacing, int v_spacing)
    : QLayout(parent), horizontal_spacing(h_spacing), vertical_spacing(v_spacing) {
    if (margin >= 0)
        setContentsMargins(margin, margin, margin, margin);
}

FlowLayout::~FlowLayout() {
    qDeleteAll(items);
}

void FlowLayout::addItem(QLayoutItem* item) {
    items.append(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    return items.value(index);
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (index < 0 || index >= items.size())
        return nullptr;
    return items.takeAt(index);
}

int FlowLayout::count() const {
    return items.size();
}

QSize FlowLayout::sizeHint() const {
    return minimumSize();
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const QLayoutItem* item : items)
        size = size.expandedTo(item->minimumSize());
    // The one margin of the layout, -1 when the four differ.
    int left, top, right, bottom;
    getContentsMargins(&left, &top, &right, &bottom);
    const int margin = (left == top && top == right && right == bottom) ? left : -1;
    return size + QSize(2 * margin, 2 * margin);
}

Qt::Orientations FlowLayout::expandingDirections() const {
    return {};
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    do_layout(rect, false);
}

bool FlowLayout::hasHeightForWidth() const {
    return true;
}

int FlowLayout::heightForWidth(int width) const {
    return do_layout(QRect(0, 0, width, 0), true);
}

int FlowLayout::smart_spacing(QStyle::PixelMetric metric) const {
    QObject* owner = parent();
    if (!owner)
        return -1;
    if (owner->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(owner);
        return widget->style()->pixelMetric(metric, nullptr, widget);
    }
    return static_cast<QLayout*>(owner)->spacing();
}

int FlowLayout::spacing_for(QLayoutItem* item, Qt::Orientation orientation) const {
    const bool horizontal = orientation == Qt::Horizontal;
    const int own = horizontal ? horizontal_spacing : vertical_spacing;
    int space = own >= 0 ? own
                         : smart_spacing(horizontal ? QStyle::PM_LayoutHorizontalSpacing
                                                    : QStyle::PM_LayoutVerticalSpacing);
    if (space == -1) {
        // A spacer has no widget of its own to ask.
        const QWidget* widget = item->widget();
        QStyle* style = widget ? widget->style() : QApplication::style();
        space = style->layoutSpacing(QSizePolicy::PushButton, QSizePolicy::PushButton, orientation);
    }
    return space;
}

int FlowLayout::do_layout(const QRect& rect, bool test_only) const {
    int left, top, right, bottom;
    getContentsMargins(&left, &top, &right, &bottom);
    const QRect effective = rect.adjusted(+left, +top, -right, -bottom);
    int x = effective.x();
    int y = effective.y();
    int line_height = 0;
    int n = 0;

    for (QLayoutItem* item : items) {
        ++n;
        const int space_x = spacing_for(item, Qt::Horizontal);
        const int space_y = spacing_for(item, Qt::Vertical);
        const QSize hint = item->sizeHint();
        int next_x = x + hint.width() + space_x;
        if (next_x - space_x > effective.right() && line_height > 0) {
            x = effective.x();
            y = y + line_height + space_y;
            next_x = x + hint.width() + space_x;
            line_height = 0;
        }
        if (!test_only) {
            // The eighth item, spacers counted, is the toolbox's label row: it takes the
            // rest of its line, short of the edge by 5 and the spacing.
            if (n == 8)
                item->setGeometry(
                    QRect(QPoint(x, y), QSize(effective.right() - 5 - space_x - x, hint.height())));
            else
                item->setGeometry(QRect(QPoint(x, y), hint));
        }
        x = next_x;
        line_height = qMax(line_height, hint.height());
    }
    return y + line_height - rect.y() + bottom;
}

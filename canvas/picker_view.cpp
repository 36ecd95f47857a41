#include "canvas/picker_view.h"

#include "window/picker_window.h"

#include <QPaintEvent>
#include <QPainter>

picker_view::picker_view(picker_window* owner) : QWidget(owner), window(owner) {
    setAutoFillBackground(false);
    setMinimumSize(50, 50);
}

picker_view::~picker_view() {
    clear_buttons();
}

void picker_view::clear_buttons() {
    qDeleteAll(buttons);
    buttons.clear();
    pressed_button = nullptr;
}

void picker_view::set_background_image(const QString& id, const QPixmap& pixmap) {
    background_id = id;
    background = pixmap;
    update();
}

void picker_view::refresh_toolbox() {
    if (window)
        window->refresh_toolbox();
}

void picker_view::paintEvent(QPaintEvent*) {
    // A plain backdrop with the picture at the origin until the canvas paints buttons.
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0x44, 0x44, 0x44));
    if (!background.isNull())
        painter.drawPixmap(0, 0, background);
}

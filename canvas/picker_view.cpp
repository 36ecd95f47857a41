#include "canvas/picker_view.h"

#include "canvas/banner_overlay.h"
#include "canvas/marquee_overlay.h"
#include "canvas/picker_mouse_cmd.h"

#include "window/picker_window.h"
#include <QCursor>

picker_view::picker_view(picker_window* owner) : QWidget(owner), window(owner) {
    setMinimumSize(50, 50);
    setMouseTracking(true);
    make_cursors();
    make_actions();
    zoom_timer.setSingleShot(false);
    connect(&zoom_timer, SIGNAL(timeout()), this, SLOT(animate_zoom()));
    overlays.push_back(new marquee_overlay);
    overlays.push_back(new banner_overlay(this));
}

picker_view::~picker_view() {
    delete gesture;
    delete edit_cursor;
    delete add_cursor;
    clear_buttons();
    for (picker_overlay* overlay : overlays)
        delete overlay;
}

void picker_view::clear_buttons() {
    qDeleteAll(buttons);
    buttons.clear();
    pressed_button = nullptr;
}

void picker_view::set_background_image(const QString& id, const QPixmap& pixmap) {
    background_id = id;
    background = pixmap;
    // Encoded ahead, off this thread, for the scene write that will want it.
    if (window)
        background_bytes.prepare(pixmap, &window->picture_encoders);
    update();
}

void picker_view::refresh_toolbox() {
    if (window)
        window->refresh_toolbox();
}

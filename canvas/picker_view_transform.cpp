// The one mapping between picker coordinates and widget pixels, and everything that
// changes it. The roundings through float are part of the arithmetic: painting, hit
// testing and the marquee all see exactly these rectangles.
#include "canvas/banner_overlay.h"
#include "canvas/picker_view.h"
#include "canvas/zoom_step.h"
#include "document/button_geometry.h"

#include <QWheelEvent>

namespace {

constexpr float min_zoom = 0.25f;
constexpr float max_zoom = 16.0f;

int to_widget_edge(int edge, double zoom, int offset) {
    return int(float(edge * zoom + offset));
}
int to_picker_edge(int edge, double zoom, int offset) {
    return int(float((edge - offset) / zoom));
}

float clamp_zoom(float z) {
    return z < min_zoom ? min_zoom : (z > max_zoom ? max_zoom : z);
}

// Each edge mapped by itself; right() and bottom() are a pixel inside, so the mapped
// rectangle comes out a pixel short on purpose.
template <typename F> QRect map_edges(const QRect& r, F edge) {
    const int l = edge(r.left(), true), t = edge(r.top(), false);
    return QRect(l, t, edge(r.right(), true) - l, edge(r.bottom(), false) - t);
}

} // namespace

QRect picker_view::to_widget(const QRect& r) const {
    return map_edges(
        r, [this](int e, bool x) { return to_widget_edge(e, zoom, x ? offset.x() : offset.y()); });
}

QRect picker_view::rect_to_picker(const QRect& r) const {
    return map_edges(
        r, [this](int e, bool x) { return to_picker_edge(e, zoom, x ? offset.x() : offset.y()); });
}

// A point far outside the widget maps to the held edge of the picker.
QPoint picker_view::to_picker(const QPoint& p) const {
    return QPoint(held_coordinate(double(float(qint64(p.x()) - offset.x())) / zoom),
                  held_coordinate(double(float(qint64(p.y()) - offset.y())) / zoom));
}

void picker_view::set_offset(const QPoint& new_offset) {
    if (new_offset == offset)
        return;
    offset = new_offset;
    update();
}

void picker_view::zoom_at(float new_zoom, const QPoint& anchor) {
    const double z = double(clamp_zoom(new_zoom));
    if (z == zoom)
        return;
    const double old = zoom;
    const int ox = offset.x(), oy = offset.y();
    const float px = float(int(float(anchor.x() - ox) / old));
    const float py = float(int(float(anchor.y() - oy) / old));
    zoom = z;
    offset.ry() += int(py * old + oy) - int(py * z + oy);
    offset.rx() += int(px * old + ox) - int(px * z + ox);
    update();
}

void picker_view::wheelEvent(QWheelEvent* event) {
    if (event->buttons() != Qt::NoButton)
        return;
    const int n = event->angleDelta().y() / 60;
    zoom_at(zoom_step(n, float(zoom)), event->position().toPoint());
}

QRect picker_view::content_bounds(bool selected_only) const {
    QRect bounds(0, 0, 0, 0);
    bool first = true;
    for (const picker_button* button : buttons) {
        if (selected_only && button->selected == 0)
            continue;
        bounds = first ? button->rect : bounds.united(button->rect);
        first = false;
    }
    return bounds;
}

void picker_view::frame_view() {
    frame_rect(content_bounds(any_selected()), false);
}

void picker_view::frame_rect(const QRect& r, bool keep_zoom) {
    if (r.isEmpty())
        return;
    const float zx = float(width()) / float(r.width()) * 0.75f;
    const float zy = float(height()) / float(r.height()) * 0.75f;
    float z = clamp_zoom(zy > zx ? zx : zy);
    if (keep_zoom && z > zoom)
        z = float(zoom);
    const QPoint c = r.center();
    const QPoint target(int(float(width() / 2) - float(c.x()) * z),
                        int(float(height() / 2) - float(c.y()) * z));
    if (double(z) == zoom && target == offset)
        return;
    anim_from_offset = offset;
    anim_t = 0;
    anim_to_offset = target;
    anim_to_zoom = z;
    anim_from_zoom = float(zoom);
    zoom_timer.start(20);
}

void picker_view::reset_view() {
    if (zoom == 1.0 && offset == QPoint(0, 0)) {
        update();
        return;
    }
    anim_t = 0;
    anim_from_offset = offset;
    anim_to_zoom = 1.0f;
    anim_to_offset = QPoint(0, 0);
    anim_from_zoom = float(zoom);
    zoom_timer.start(20);
    update();
}

void picker_view::animate_zoom() {
    anim_t += 0.125f;
    if (!(1.0f > anim_t)) {
        zoom_timer.stop();
        offset = anim_to_offset;
        zoom = anim_to_zoom;
        update();
        return;
    }
    const float t = anim_t;
    const float s = (t * t) * 3.0f - ((t * t) * t + (t * t) * t);
    zoom = double((anim_to_zoom - anim_from_zoom) * s + anim_from_zoom);
    offset = QPoint(int((float(anim_to_offset.x()) - float(anim_from_offset.x())) * s +
                        float(anim_from_offset.x())),
                    int((float(anim_to_offset.y()) - float(anim_from_offset.y())) * s +
                        float(anim_from_offset.y())));
    update();
}

void picker_view::resizeEvent(QResizeEvent*) {
    // The picker stays anchored at the top-left corner; only the banner follows the size.
    if (overlays.size() > 1)
        static_cast<banner_overlay*>(overlays[1])->layout(width(), height());
}

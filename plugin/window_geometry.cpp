#include "plugin/window_geometry.h"

#include "plugin/picker_globals.h"

#include "window/picker_settings.h"
#include <QGuiApplication>
#include <QScreen>

namespace {

// The rectangle kept when some screen holds it whole, else centred on the primary screen.
QRect placed_on_screen(QRect rect) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        if (screen->availableGeometry().contains(rect))
            return rect;
    }
    if (const QScreen* primary = QGuiApplication::primaryScreen())
        rect.moveCenter(primary->availableGeometry().center());
    return rect;
}

} // namespace

void read_window_geometry() {
    if (!picker_dock)
        return;
    const picker_settings settings;
    QSize size = settings.value(settings_key("pickerSize"), QSize(400, 400)).toSize();
    const QPoint pos = settings.value(settings_key("pickerPosition"), QPoint(120, 100)).toPoint();
    if (size.width() < 150)
        size.setWidth(150);
    // A low height widens the window and leaves the height as it was.
    if (size.height() < 150)
        size.setWidth(150);
    const QRect rect = placed_on_screen(QRect(pos, size));
    picker_dock->resize(rect.size());
    picker_dock->move(rect.topLeft());
}

void write_window_geometry() {
    if (!picker_dock)
        return;
    picker_settings settings;
    settings.setValue(settings_key("pickerSize"), picker_dock->size());
    settings.setValue(settings_key("pickerPosition"), picker_dock->pos());
}

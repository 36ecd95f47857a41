#include "plugin/window_geometry.h"

#include "plugin/picker_globals.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

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
    const QSettings settings(QStringLiteral("Zelvani"), QStringLiteral("picker"));
    QSize size = settings.value(QStringLiteral("pickerSize"), QSize(400, 400)).toSize();
    const QPoint pos = settings.value(QStringLiteral("pickerPosition"), QPoint(120, 100)).toPoint();
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
    QSettings settings(QStringLiteral("Zelvani"), QStringLiteral("picker"));
    settings.setValue(QStringLiteral("pickerSize"), picker_dock->size());
    settings.setValue(QStringLiteral("pickerPosition"), picker_dock->pos());
}

// The clipboard's picker payload, as Edit > Paste and Paste in Place read it; then undo and
// redo of the paste, a paint, a selection made with the mouse, and a copy and paste of that
// selection back through the clipboard. The first byte chooses the entries; the rest is the
// payload.
#include "picker_host.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

void set_clipboard(const QByteArray& payload) {
    auto* mime = new QMimeData;
    mime->setData(QStringLiteral("application/x-qt-picker-mime;value=\"buttons\""), payload);
    QGuiApplication::clipboard()->setMimeData(mime, QClipboard::Clipboard);
}

} // namespace

FUZZ_START_WITH_PICKER_WINDOW()

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1)
        return 0;
    const unsigned char how = data[0];
    set_clipboard(QByteArray(reinterpret_cast<const char*>(data) + 1, int(size) - 1));
    fuzz::trigger(how & 1 ? QStringLiteral("Paste in Place") : QStringLiteral("Paste"));
    fuzz::paint_current_view();
    if (how & 2) {
        fuzz::trigger(QStringLiteral("Undo"));
        fuzz::trigger(QStringLiteral("Redo"));
        fuzz::paint_current_view();
    }
    fuzz::select_with_mouse();
    if (how & 4) {
        fuzz::trigger(QStringLiteral("Copy"));
        fuzz::trigger(QStringLiteral("Paste"));
        fuzz::paint_current_view();
    }
    fuzz::run_idle_and_check();
    fuzz::reset(fuzz::what_changed::anything);
    return 0;
}

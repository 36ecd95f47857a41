// What the window keeps in the scene: all tabs under one fileInfo key, and each
// background picture under a key of its own. Every write goes through MEL on idle.
#include "canvas/picker_view.h"
#include "document/scene_text.h"
#include "window/picker_window.h"

#include <QBuffer>
#include <QByteArray>
#include <QTabWidget>
#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

namespace {

void run_on_idle(const QString& mel) {
    MGlobal::executeCommandOnIdle(MQtUtil::toMString(mel));
}

// Ids come from streams too; only a decimal cache key may go into MEL text.
bool usable_key(const picker_view* view) {
    return is_background_key(view->background_id);
}

} // namespace

void picker_window::updateSceneData() {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    write_all_tabs(out);
    run_on_idle(QStringLiteral("fileInfo \"ZelvaniPickerData\" \"") + encode_picker_data(bytes) +
                QStringLiteral("\"; file -modified 1;"));
}

void picker_window::store_background_image(picker_view* view) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << view->background;
    if (!usable_key(view))
        return;
    run_on_idle(QStringLiteral("fileInfo \"ZelvaniPickerImage_") + view->background_id +
                QStringLiteral("\" \"") + QString::fromLatin1(bytes.toBase64()) +
                QStringLiteral("\"; file -modified 1;"));
}

void picker_window::remove_background_image(picker_view* view) {
    if (!usable_key(view))
        return;
    run_on_idle(QStringLiteral("fileInfo -remove \"ZelvaniPickerImage_") + view->background_id +
                QStringLiteral("\"; file -modified 1;"));
}

void picker_window::request_background_image(picker_view* view) {
    if (!view || !usable_key(view))
        return;
    run_on_idle(QStringLiteral("ZelvaniPicker fetch_image `fileInfo -q \"ZelvaniPickerImage_") +
                view->background_id + QStringLiteral("\"`;"));
}

void picker_window::set_background_for_key(const QString& id, const QPixmap& pixmap) {
    for (int i = 0; i < tabs->count(); ++i) {
        picker_view* view = view_at(i);
        if (view && view->background_id == id)
            view->set_background_image(id, pixmap);
    }
}

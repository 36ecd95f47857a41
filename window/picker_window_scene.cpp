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

// A MEL line of megabytes of Base64 needs no trip through UTF-16.
void run_on_idle(const QByteArray& mel) {
    MGlobal::executeCommandOnIdle(MString(mel.constData()));
}

// Ids come from streams too; only a decimal cache key may go into MEL text.
bool usable_key(const picker_view* view) {
    return is_background_key(view->background_id);
}

} // namespace

QVector<const deflated_part*> picker_window::scene_data_parts() {
    scene_pieces pieces;
    QDataStream out(&pieces.text, QIODevice::WriteOnly);
    write_all_tabs(out, &pieces);
    return scene_parts.parts(pieces);
}

void picker_window::updateSceneData() {
    run_on_idle(join_deflated_parts_base64(scene_data_parts(), "fileInfo \"ZelvaniPickerData\" \"",
                                           "\"; file -modified 1;"));
}

void picker_window::store_background_image(picker_view* view) {
    if (!usable_key(view))
        return;
    run_on_idle("fileInfo \"ZelvaniPickerImage_" + view->background_id.toLatin1() + "\" \"" +
                view->background_bytes.bytes(view->background).toBase64() +
                "\"; file -modified 1;");
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

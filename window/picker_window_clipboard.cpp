// Copy, cut and paste of buttons through the system clipboard.
#include "canvas/picker_view.h"
#include "document/picker_clipboard.h"
#include "editing/list_cmds.h"
#include "window/picker_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTabWidget>

// Partly selected buttons open the gate but are not taken: with only those selected, the
// clipboard gets an empty list, which still replaces what it held.
void picker_window::copy_buttons() {
    picker_view* view = current_view();
    if (tabs->count() == 0 || !view || !view->any_selected())
        return;
    write_clipboard(view->selected_data());
}

// The clipboard is written once here; neither undo nor redo touches it.
void picker_window::cut_buttons() {
    picker_view* view = current_view();
    if (tabs->count() == 0 || !view || !view->any_selected())
        return;
    auto* command = new cut_buttons_cmd(view);
    write_clipboard(command->saved);
    view->undo_stack.push(command);
}

void picker_window::paste_buttons() {
    paste(current_view(), false);
}

void picker_window::paste_inplace_buttons() {
    paste(current_view(), true);
}

// An empty or unreadable payload still makes an (empty) undo step.
void picker_window::paste(picker_view* view, bool in_place) {
    if (!view)
        return;
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData(QClipboard::Clipboard);
    const QString type = QString::fromLatin1(picker_clipboard_mime_type);
    if (!mime || !mime->hasFormat(type))
        return;
    const QByteArray payload = mime->data(type);
    QDataStream in(payload);
    view->undo_stack.push(new paste_buttons_cmd(view, read_clipboard_stream(in), in_place));
}

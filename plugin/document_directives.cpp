// Directives that read and write whole pickers as data.
#include "canvas/picker_view.h"
#include "document/scene_text.h"
#include "plugin/directive_args.h"
#include "plugin/lifecycle.h"
#include "plugin/picker_main.h"
#include "window/picker_window.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QTabWidget>
#include <maya/MGlobal.h>

MStatus picker_main::restore(const MStringArray& args) {
    if (!one_text_argument(args)) {
        if (picker_window* window = picker_window_instance())
            window->reset_tabs();
        return MS::kSuccess;
    }
    return read_picker_data(args, true);
}

MStatus picker_main::open_picker_data(const MStringArray& args) {
    if (!one_text_argument(args))
        return MS::kSuccess;
    return read_picker_data(args, false);
}

// Decodes the one argument and reads its tabs; data that does not decode costs the
// window all its tabs.
MStatus picker_main::read_picker_data(const MStringArray& args, bool replace) {
    // A newer format's warning waits for the user, and scripts may close the window meanwhile.
    const QPointer<picker_window> window = picker_window_instance();
    if (!window)
        return MS::kSuccess;
    const QByteArray bytes = decode_picker_data(QByteArray(args[0].asChar()));
    if (bytes.isEmpty()) {
        window->reset_tabs();
        return MS::kFailure;
    }
    QDataStream in(bytes);
    window->read_tabs(in, replace);
    if (!window)
        return MS::kSuccess;
    on_selection_changed();
    window->request_background_image(window->current_view());
    return MS::kSuccess;
}

MStatus picker_main::get_picker_data(const MStringArray& args) {
    picker_window* window = picker_window_instance();
    if (!window)
        return MS::kSuccess;
    if (!one_text_argument(args)) {
        // All tabs are what the scene entry holds: the same kept parts serve.
        const QByteArray text = join_deflated_parts_base64(window->scene_data_parts(), {}, {});
        appendToResult(MString(text.constData()));
        return MS::kSuccess;
    }
    const int index = args[0].asInt();
    if (index >= window->tabs->count() || index < 0) {
        MGlobal::displayError("Provided tab index is out of range!");
        return MS::kFailure;
    }
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    window->write_tab(out, index);
    appendToResult(MQtUtil::toMString(encode_picker_data(bytes)));
    return MS::kSuccess;
}

MStatus picker_main::get_saved_picker_data(const MStringArray&) {
    MStringArray stored;
    MGlobal::executeCommand("fileInfo -q \"ZelvaniPickerData\";", stored, false, false);
    appendToResult(stored);
    return MS::kSuccess;
}

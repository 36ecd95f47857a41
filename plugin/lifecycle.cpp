#include "plugin/lifecycle.h"

#include "plugin/picker_globals.h"
#include "plugin/picker_main.h"
#include "plugin/window_geometry.h"
#include "window/picker_window.h"

#include <QLocale>
#include <QResource>
#include <maya/MGlobal.h>
#include <maya/MItSelectionList.h>
#include <maya/MQtUtil.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

void close_picker() {
    if (!picker_dock)
        return;
    write_window_geometry();
    delete picker_dock.data();
}

void reset_pickers() {
    if (picker_window* window = picker_window_instance())
        window->reset_tabs();
}

void restore_scene_pickers() {
    if (!picker_dock)
        return;
    MGlobal::executeCommandOnIdle("ZelvaniPicker restore `fileInfo -q \"ZelvaniPickerData\"`;");
}

namespace {

QStringList active_selection_names(MSelectionList& list) {
    QStringList names;
    if (list.isEmpty())
        return names;
    for (MItSelectionList it(list); !it.isDone(); it.next()) {
        MStringArray strings;
        it.getStrings(strings);
        for (unsigned int i = 0; i < strings.length(); ++i)
            names.append(MQtUtil::toQString(strings[i]));
    }
    return names;
}

} // namespace

void on_selection_changed() {
    if (!picker_dock)
        return;
    // Whoever holds the lock changes the selection now and calls this again itself.
    if (!picker_lock.tryLock())
        return;
    MSelectionList list;
    const MStatus status = MGlobal::getActiveSelectionList(list);
    if (!status) {
        MGlobal::displayError(MQtUtil::toMString(
            QStringLiteral("ZelvaniPicker- could not get the current selection: %1")
                .arg(MQtUtil::toQString(status.errorString()))));
        picker_lock.unlock();
        return;
    }
    const QStringList names = active_selection_names(list);
    if (picker_window* window = picker_window_instance())
        window->apply_selection(names);
    picker_lock.unlock();
}

void close_picker_callback(void*) {
    close_picker();
}
void reset_pickers_callback(void*) {
    reset_pickers();
}
void restore_scene_pickers_callback(void*) {
    restore_scene_pickers();
}
void on_selection_changed_callback(void*) {
    on_selection_changed();
}

void load_script_resource(const char* name) {
    const QResource resource(QStringLiteral(":/scripts/%1").arg(QLatin1String(name)), QLocale());
    if (!resource.isValid())
        return;
    // The resource compiler may have compressed the text.
    const QByteArray text = resource.uncompressedData();
    MGlobal::executeCommandOnIdle(MString(text.constData()));
}

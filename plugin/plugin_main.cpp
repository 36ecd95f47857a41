// The plug-in's entry points. Including MFnPlugin.h here, and only here, defines the
// exported MApiVersion text.
#include "plugin/lifecycle.h"
#include "plugin/picker_main.h"
#include "plugin/report_status.h"
#include "window/event_loops.h"

#include <QLibrary>
#include <maya/MEventMessage.h>
#include <maya/MFnPlugin.h>
#include <maya/MMessage.h>
#include <maya/MQtUtil.h>
#include <maya/MString.h>

namespace {

const char* const command_name = "ZelvaniPicker";
const char* const vendor = "Zelvani, Inc.";

MCallbackId selection_changed_id = 0;
MCallbackId quit_application_id = 0;
MCallbackId delete_all_id = 0;
MCallbackId new_scene_opened_id = 0;
MCallbackId scene_opened_id = 0;

// Kept for the life of the plug-in.
MString plugin_load_path;

struct event_callback {
    const char* event;
    MMessage::MBasicFunction function;
    MCallbackId* id;
    const char* failure;
};

const event_callback event_callbacks[] = {
    {"SelectionChanged", on_selection_changed_callback, &selection_changed_id,
     "could not install SelectionChanged callback"},
    {"quitApplication", close_picker_callback, &quit_application_id,
     "could not install quitApplication callback"},
    {"deleteAll", reset_pickers_callback, &delete_all_id,
     "could not install the deleteAll callback"},
    {"NewSceneOpened", reset_pickers_callback, &new_scene_opened_id,
     "could not install the NewSceneOpened callback"},
    {"SceneOpened", restore_scene_pickers_callback, &scene_opened_id,
     "could not install the SceneOpened callback"},
};

// Unloaded by a script that runs inside one of the picker's dialogs or menus: the handlers
// below that loop return through this library's code, and the views they used are deleted
// after them. The library, named after its command, stays mapped for the rest of the process.
void keep_library_mapped() {
#if defined(Q_OS_WIN)
    const char* const suffix = ".mll";
#elif defined(Q_OS_MACOS)
    const char* const suffix = ".bundle";
#else
    const char* const suffix = ".so";
#endif
    QLibrary self(MQtUtil::toQString(plugin_load_path) + QLatin1Char('/') +
                  QLatin1String(command_name) + QLatin1String(suffix));
    self.setLoadHints(QLibrary::PreventUnloadHint);
    self.load();
}

} // namespace

MStatus initializePlugin(MObject obj) {
    MStatus status;
    MFnPlugin plugin(obj, vendor, "2.1.0", "Any", &status);
    if (!status)
        return report_status(status, QStringLiteral("could not initialize the plugin"));

    status = plugin.registerCommand(command_name, picker_main::creator);
    if (!status)
        return report_status(status, QStringLiteral("could not initialize the plugin"));

    for (const event_callback& callback : event_callbacks) {
        *callback.id =
            MEventMessage::addEventCallback(callback.event, callback.function, NULL, &status);
        if (!status)
            return report_status(status, QString::fromLatin1(callback.failure));
    }

    plugin_load_path = plugin.loadPath();
    load_script_resource("picker_ListNamespaces.mel");
    return status;
}

MStatus uninitializePlugin(MObject obj) {
    MStatus status;
    QString failure = QStringLiteral("could not deregister the plugin");
    MFnPlugin plugin(obj, vendor, "1.0", "Any", &status);
    if (status) {
        if (in_picker_loop())
            keep_library_mapped();
        close_picker();
        if (!in_picker_loop())
            delete_disposed_widgets();
        status = plugin.deregisterCommand(command_name);
        if (status) {
            // A failed removal is reported, then overwritten by the next one's status.
            report_status(status = MMessage::removeCallback(selection_changed_id),
                          QStringLiteral("could not remove selectionChanged callback"));
            report_status(status = MMessage::removeCallback(quit_application_id),
                          QStringLiteral("could not remove the quitApplicaiton callback"));
            report_status(status = MMessage::removeCallback(delete_all_id),
                          QStringLiteral("could not remove the deleteAll callback"));
            report_status(status = MMessage::removeCallback(new_scene_opened_id),
                          QStringLiteral("could not remove the newSceneOpened callback"));
            status = MMessage::removeCallback(scene_opened_id);
            failure = QStringLiteral("could not remove the sceneOpened callback");
        }
    }
    return report_status(status, failure);
}

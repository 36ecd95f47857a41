#include "plugins.h"
#include "openmaya/access.h"
#include "session.h"

#include <maya/MStatus.h>

#include <QFileInfo>
#include <algorithm>

namespace host {

namespace {

// The entry points have C++ linkage, so they are found by their mangled names.
using entry_point = MStatus (*)(MObject);
const char* const initialize_symbol = "_Z16initializePlugin7MObject";
const char* const uninitialize_symbol = "_Z18uninitializePlugin7MObject";

QString plugin_name(const QString& path) {
    QString base = QFileInfo(path).completeBaseName();
    if (base.startsWith(QLatin1String("lib")))
        base = base.mid(3);
    return base;
}

} // namespace

bool session::load_plugin(const QString& path, QString* error) {
    if (fails(QStringLiteral("loadPlugin"))) {
        if (error)
            *error = QStringLiteral("Loading plug-ins is turned off in this session.");
        return false;
    }
    const QString name = plugin_name(path);
    for (const auto& p : plugins_) {
        if (p->name == name)
            return true; // Maya answers a second load of a loaded plug-in quietly
    }
    auto record = std::make_unique<plugin_record>();
    record->name = name;
    record->path = QFileInfo(path).absoluteFilePath();
    record->library = std::make_unique<QLibrary>(path);
    record->library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
    if (!record->library->load()) {
        if (error)
            *error = QStringLiteral("Unable to dynamically load : %1\n%2")
                         .arg(path, record->library->errorString());
        return false;
    }
    auto init = reinterpret_cast<entry_point>(record->library->resolve(initialize_symbol));
    auto* api = reinterpret_cast<const char*>(record->library->resolve("MApiVersion"));
    if (!init) {
        if (error)
            *error = QStringLiteral("%1: no initializePlugin entry point").arg(path);
        record->library->unload();
        return false;
    }
    record->api_version = QString::fromUtf8(api ? api : "");
    plugin_record* raw = record.get();
    plugins_.push_back(std::move(record));
    loading_ = raw;
    const MStatus status = init(MObjectAccess::make(raw));
    loading_ = nullptr;
    if (!status) {
        if (error)
            *error = QStringLiteral("initializePlugin function failed (%1)").arg(name);
        // Maya keeps nothing of a plug-in whose initialisation failed but its commands.
        return false;
    }
    return true;
}

bool session::unload_plugin(const QString& name_or_path, QString* error) {
    const QString name = plugin_name(name_or_path);
    auto it = std::find_if(plugins_.begin(), plugins_.end(), [&](const auto& p) {
        return p->name == name || p->path == name_or_path;
    });
    if (it == plugins_.end()) {
        if (error)
            *error = QStringLiteral("Plug-in, \"%1\", was not found on MAYA_PLUG_IN_PATH.")
                         .arg(name_or_path);
        return false;
    }
    plugin_record* record = it->get();
    auto uninit = reinterpret_cast<entry_point>(record->library->resolve(uninitialize_symbol));
    MStatus status;
    if (uninit)
        status = uninit(MObjectAccess::make(record));
    // Whatever the plug-in forgot to deregister goes with it: a callback left behind would
    // call into unmapped code.
    for (const QString& command : record->commands)
        deregister_command(command);
    if (const int left = events.remove_from_library(record->library->fileName()))
        out.warning(QStringLiteral("%1 left %2 event callbacks installed; they go with it.")
                        .arg(name)
                        .arg(left));
    std::unique_ptr<plugin_record> owned = std::move(*it);
    plugins_.erase(it);
    owned->library->unload();
    if (!status && error)
        *error = QStringLiteral("uninitializePlugin function failed (%1)").arg(name);
    return bool(status);
}

QStringList session::loaded_plugins() const {
    QStringList out;
    for (const auto& p : plugins_)
        out.append(p->name);
    return out;
}

} // namespace host

#define MNoVersionString
#include <maya/MFnPlugin.h>

#include "core/plugins.h"
#include "core/session.h"
#include "openmaya/access.h"

#include <QFileInfo>

namespace {

host::session& host_session() {
    return host::session::get();
}

void set_status(MStatus* status, MStatus::MStatusCode code) {
    if (status)
        *status = code;
}

} // namespace

MFnPlugin::MFnPlugin() : plugin_(nullptr) {}

MFnPlugin::MFnPlugin(MObject& object, const char* vendor, const char* version,
                     const char* requiredApiVersion, MStatus* ReturnStatus)
    : plugin_(MObjectAccess::handle(object)) {
    auto* record = static_cast<host::plugin_record*>(plugin_);
    if (!record || host_session().fails(QStringLiteral("MFnPlugin"))) {
        set_status(ReturnStatus, MStatus::kFailure);
        return;
    }
    record->vendor = QString::fromUtf8(vendor ? vendor : "");
    record->version = QString::fromUtf8(version ? version : "");
    record->required_api = QString::fromUtf8(requiredApiVersion ? requiredApiVersion : "");
    set_status(ReturnStatus, MStatus::kSuccess);
}

MFnPlugin::~MFnPlugin() = default;

MStatus MFnPlugin::registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                                   MCreateSyntaxFunction) {
    auto* record = static_cast<host::plugin_record*>(plugin_);
    if (!record || !creatorFunction || host_session().fails(QStringLiteral("registerCommand")))
        return MStatus::kFailure;
    const QString name = QString::fromUtf8(commandName.asChar());
    return host_session().register_command(name, creatorFunction, record) ? MStatus::kSuccess
                                                                          : MStatus::kFailure;
}

MStatus MFnPlugin::deregisterCommand(const MString& commandName) {
    if (!plugin_ || host_session().fails(QStringLiteral("deregisterCommand")))
        return MStatus::kFailure;
    return host_session().deregister_command(QString::fromUtf8(commandName.asChar()))
               ? MStatus::kSuccess
               : MStatus::kFailure;
}

MString MFnPlugin::loadPath(MStatus* ReturnStatus) const {
    auto* record = static_cast<host::plugin_record*>(plugin_);
    if (!record) {
        set_status(ReturnStatus, MStatus::kFailure);
        return MString();
    }
    set_status(ReturnStatus, MStatus::kSuccess);
    return MString(QFileInfo(record->path).absolutePath().toUtf8().constData());
}

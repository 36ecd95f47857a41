#include <maya/MEventMessage.h>
#include <maya/MMessage.h>

#include "core/session.h"

MStatus MMessage::removeCallback(MCallbackId id) {
    host::session& s = host::session::get();
    if (s.fails(QStringLiteral("removeCallback")))
        return MStatus::kFailure;
    return s.events.remove(id) ? MStatus::kSuccess : MStatus::kFailure;
}

MCallbackId MEventMessage::addEventCallback(const MString& event, MMessage::MBasicFunction func,
                                            void* clientData, MStatus* ReturnStatus) {
    host::session& s = host::session::get();
    const QString name = QString::fromUtf8(event.asChar());
    MCallbackId id = 0;
    if (!s.fails(QStringLiteral("addEventCallback:") + name))
        id = s.events.add(name, func, clientData);
    if (ReturnStatus)
        *ReturnStatus = id ? MStatus::kSuccess : MStatus::kFailure;
    return id;
}

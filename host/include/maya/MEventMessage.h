#ifndef MAYA_MEVENTMESSAGE_H
#define MAYA_MEVENTMESSAGE_H
#include <maya/MMessage.h>
#include <maya/MString.h>

class OPENMAYA_EXPORT MEventMessage : public MMessage {
public:
    static MCallbackId addEventCallback(const MString& event, MMessage::MBasicFunction func,
                                        void* clientData = NULL, MStatus* ReturnStatus = NULL);
};

#endif

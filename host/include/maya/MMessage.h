#ifndef MAYA_MMESSAGE_H
#define MAYA_MMESSAGE_H
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class OPENMAYA_EXPORT MMessage {
public:
    typedef void (*MBasicFunction)(void* clientData);
    static MStatus removeCallback(MCallbackId id);
};

#endif

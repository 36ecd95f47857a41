#ifndef MAYA_MOBJECT_H
#define MAYA_MOBJECT_H
#include <maya/MTypes.h>

// A handle to a host object; the host hands one to a plug-in's entry points.
class OPENMAYA_EXPORT MObject {
public:
    MObject();
    MObject(const MObject& other);
    MObject& operator=(const MObject& other);
    ~MObject();
    bool isNull() const;

private:
    friend class MFnPlugin;
    friend struct MObjectAccess;
    void* handle_;
};

#endif

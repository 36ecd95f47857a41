#ifndef MAYA_MFNPLUGIN_H
#define MAYA_MFNPLUGIN_H
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

// Including this header defines the plug-in's API version text, as Maya's does.
#ifndef MNoVersionString
extern "C" {
PLUGIN_EXPORT char MApiVersion[] = "20190000";
}
#endif

PLUGIN_EXPORT MStatus initializePlugin(MObject obj);
PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj);

class OPENMAYA_EXPORT MFnPlugin {
public:
    MFnPlugin();
    MFnPlugin(MObject& object, const char* vendor = "Unknown", const char* version = "Unknown",
              const char* requiredApiVersion = "Any", MStatus* ReturnStatus = 0);
    virtual ~MFnPlugin();

    MStatus registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                            MCreateSyntaxFunction createSyntaxFunction = NULL);
    MStatus deregisterCommand(const MString& commandName);
    MString loadPath(MStatus* ReturnStatus = NULL) const;

private:
    MFnPlugin(const MObject& object, const char* vendor = "Unknown",
              const char* version = "Unknown", const char* requiredApiVersion = "Any",
              MStatus* ReturnStatus = 0);
    void* plugin_;
};

#endif

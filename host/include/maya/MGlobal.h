#ifndef MAYA_MGLOBAL_H
#define MAYA_MGLOBAL_H
#include <maya/MSelectionList.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

class OPENMAYA_EXPORT MGlobal {
public:
    enum ListAdjustment {
        kReplaceList,
        kXORWithList,
        kAddToList,
        kRemoveFromList,
        kAddToHeadOfList
    };

    static MStatus executeCommand(const MString& command, MStringArray& result,
                                  bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executeCommandOnIdle(const MString& command, bool displayEnabled = false);
    static MStatus executePythonCommand(const MString& command, bool displayEnabled = false,
                                        bool undoEnabled = false);
    static MStatus executePythonCommand(const MString& command, MString& result,
                                        bool displayEnabled = false, bool undoEnabled = false);
    static MStatus executePythonCommandOnIdle(const MString& command, bool displayEnabled = false);
    static void displayError(const MString& theError);
    static MStatus getActiveSelectionList(MSelectionList& dest,
                                          bool orderedSelectionIfAvailable = false);
    static MStatus selectByName(const MString& name, ListAdjustment listAdjustment = kAddToList);
    static MStatus clearSelectionList();
};

#endif

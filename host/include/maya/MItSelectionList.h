#ifndef MAYA_MITSELECTIONLIST_H
#define MAYA_MITSELECTIONLIST_H
#include <maya/MSelectionList.h>
#include <maya/MStatus.h>
#include <maya/MStringArray.h>
#include <maya/MTypes.h>

class OPENMAYA_EXPORT MItSelectionList {
public:
    MItSelectionList(const MSelectionList& list, MFn::Type filter = MFn::kInvalid,
                     MStatus* ReturnStatus = NULL);
    virtual ~MItSelectionList();

    bool isDone(MStatus* ReturnStatus = NULL);
    MStatus next();
    MStatus getStrings(MStringArray& array);

private:
    MSelectionList list_;
    unsigned int index_ = 0;
};

#endif

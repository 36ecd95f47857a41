#ifndef MAYA_MSELECTIONLIST_H
#define MAYA_MSELECTIONLIST_H
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <vector>

class OPENMAYA_EXPORT MSelectionList {
public:
    MSelectionList();
    MSelectionList(const MSelectionList& other);
    virtual ~MSelectionList();
    MSelectionList& operator=(const MSelectionList& other);

    bool isEmpty(MStatus* ReturnStatus = NULL) const;
    unsigned int length(MStatus* ReturnStatus = NULL) const;

private:
    friend class MItSelectionList;
    friend struct MSelectionListAccess;
    std::vector<MString> items_;
};

#endif

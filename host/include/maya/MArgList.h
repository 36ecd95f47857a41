#ifndef MAYA_MARGLIST_H
#define MAYA_MARGLIST_H
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

#include <vector>

// The arguments of a command call. An array value given in MEL is one argument.
class OPENMAYA_EXPORT MArgList {
public:
    MArgList();
    MArgList(const MArgList& other);
    ~MArgList();
    MArgList& operator=(const MArgList& other);

    unsigned int length(MStatus* ReturnStatus = NULL) const;
    MString asString(unsigned int index, MStatus* ReturnStatus = NULL) const;
    MStatus get(unsigned int index, MString& ret) const;
    MStatus get(unsigned int& index, MStringArray& ret) const;

private:
    friend struct MArgListAccess;
    struct item {
        bool is_array = false;
        MString text;
        MStringArray array;
    };
    std::vector<item> items_;
};

#endif

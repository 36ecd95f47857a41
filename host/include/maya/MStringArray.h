#ifndef MAYA_MSTRINGARRAY_H
#define MAYA_MSTRINGARRAY_H
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <vector>

class FND_EXPORT MStringArray {
public:
    MStringArray();
    MStringArray(const MStringArray& other);
    ~MStringArray();
    MStringArray& operator=(const MStringArray& other);

    unsigned int length() const;
    MStatus append(const MString& element);
    MString operator[](unsigned int index) const;
    MString& operator[](unsigned int index);

private:
    std::vector<MString> items_;
};

#endif

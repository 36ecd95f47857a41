#include <maya/MStringArray.h>

MStringArray::MStringArray() = default;
MStringArray::MStringArray(const MStringArray& other) = default;
MStringArray::~MStringArray() = default;
MStringArray& MStringArray::operator=(const MStringArray& other) = default;

unsigned int MStringArray::length() const {
    return static_cast<unsigned int>(items_.size());
}

MStatus MStringArray::append(const MString& element) {
    items_.push_back(element);
    return MStatus::kSuccess;
}

MString MStringArray::operator[](unsigned int index) const {
    return index < items_.size() ? items_[index] : MString();
}

MString& MStringArray::operator[](unsigned int index) {
    // Maya does not check; growing keeps a stray index from touching foreign memory.
    if (index >= items_.size())
        items_.resize(size_t(index) + 1);
    return items_[index];
}

#include <maya/MItSelectionList.h>
#include <maya/MSelectionList.h>

namespace {
void set_status(MStatus* status, MStatus::MStatusCode code) {
    if (status)
        *status = code;
}
} // namespace

MSelectionList::MSelectionList() = default;
MSelectionList::MSelectionList(const MSelectionList& other) = default;
MSelectionList::~MSelectionList() = default;
MSelectionList& MSelectionList::operator=(const MSelectionList& other) = default;

bool MSelectionList::isEmpty(MStatus* ReturnStatus) const {
    set_status(ReturnStatus, MStatus::kSuccess);
    return items_.empty();
}

unsigned int MSelectionList::length(MStatus* ReturnStatus) const {
    set_status(ReturnStatus, MStatus::kSuccess);
    return static_cast<unsigned int>(items_.size());
}

MItSelectionList::MItSelectionList(const MSelectionList& list, MFn::Type, MStatus* ReturnStatus)
    : list_(list) {
    set_status(ReturnStatus, MStatus::kSuccess);
}

MItSelectionList::~MItSelectionList() = default;

bool MItSelectionList::isDone(MStatus* ReturnStatus) {
    set_status(ReturnStatus, MStatus::kSuccess);
    return index_ >= list_.items_.size();
}

MStatus MItSelectionList::next() {
    if (index_ >= list_.items_.size())
        return MStatus::kFailure;
    ++index_;
    return MStatus::kSuccess;
}

MStatus MItSelectionList::getStrings(MStringArray& array) {
    if (index_ >= list_.items_.size())
        return MStatus::kFailure;
    array.append(list_.items_[index_]);
    return MStatus::kSuccess;
}

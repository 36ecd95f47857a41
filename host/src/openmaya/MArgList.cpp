#include <maya/MArgList.h>

#include "core/session.h"

MArgList::MArgList() = default;
MArgList::MArgList(const MArgList& other) = default;
MArgList::~MArgList() = default;
MArgList& MArgList::operator=(const MArgList& other) = default;

namespace {
void set_status(MStatus* status, MStatus::MStatusCode code) {
    if (status)
        *status = code;
}
} // namespace

unsigned int MArgList::length(MStatus* ReturnStatus) const {
    if (host::session::get().fails(QStringLiteral("argLength"))) {
        set_status(ReturnStatus, MStatus::kFailure);
        return 0;
    }
    set_status(ReturnStatus, MStatus::kSuccess);
    return static_cast<unsigned int>(items_.size());
}

MString MArgList::asString(unsigned int index, MStatus* ReturnStatus) const {
    MString out;
    const MStatus status = get(index, out);
    if (ReturnStatus)
        *ReturnStatus = status;
    return out;
}

MStatus MArgList::get(unsigned int index, MString& ret) const {
    if (index >= items_.size() || items_[index].is_array)
        return MStatus::kInvalidParameter;
    ret = items_[index].text;
    return MStatus::kSuccess;
}

MStatus MArgList::get(unsigned int& index, MStringArray& ret) const {
    if (index >= items_.size() || !items_[index].is_array)
        return MStatus::kInvalidParameter;
    ret = items_[index].array;
    ++index;
    return MStatus::kSuccess;
}

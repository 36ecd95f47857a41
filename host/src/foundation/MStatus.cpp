#include <maya/MStatus.h>

MStatus::MStatus() : code_(kSuccess) {}
MStatus::MStatus(MStatusCode code) : code_(code) {}
MStatus::MStatus(const MStatus& other) = default;
MStatus& MStatus::operator=(const MStatus& other) = default;

bool MStatus::error() const {
    return code_ != kSuccess;
}
MStatus::MStatusCode MStatus::statusCode() const {
    return code_;
}
MStatus::operator bool() const {
    return code_ == kSuccess;
}
bool MStatus::operator==(const MStatus& other) const {
    return code_ == other.code_;
}
bool MStatus::operator==(const MStatusCode other) const {
    return code_ == other;
}
bool MStatus::operator!=(const MStatus& other) const {
    return code_ != other.code_;
}
bool MStatus::operator!=(const MStatusCode other) const {
    return code_ != other;
}

MString MStatus::errorString() const {
    switch (code_) {
    case kSuccess:
        return "(kSuccess): No error";
    case kFailure:
        return "(kFailure): Unexpected Internal Failure";
    case kInsufficientMemory:
        return "(kInsufficientMemory): Insufficient memory";
    case kInvalidParameter:
        return "(kInvalidParameter): Object is incompatible with this method";
    case kLicenseFailure:
        return "(kLicenseFailure): License failure";
    case kUnknownParameter:
        return "(kUnknownParameter): Unknown parameter";
    case kNotImplemented:
        return "(kNotImplemented): Not implemented";
    case kNotFound:
        return "(kNotFound): Object not found";
    case kEndOfFile:
        return "(kEndOfFile): End of file";
    }
    return "(kFailure): Unexpected Internal Failure";
}

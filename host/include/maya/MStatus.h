#ifndef MAYA_MSTATUS_H
#define MAYA_MSTATUS_H
#include <maya/MString.h>

class FND_EXPORT MStatus {
public:
    enum MStatusCode {
        kSuccess = 0,
        kFailure,
        kInsufficientMemory,
        kInvalidParameter,
        kLicenseFailure,
        kUnknownParameter,
        kNotImplemented,
        kNotFound,
        kEndOfFile
    };

    MStatus();
    MStatus(MStatusCode code);
    MStatus(const MStatus& other);
    MStatus& operator=(const MStatus& other);

    bool error() const;
    MStatusCode statusCode() const;
    MString errorString() const;
    operator bool() const;
    bool operator==(const MStatus& other) const;
    bool operator==(const MStatusCode other) const;
    bool operator!=(const MStatus& other) const;
    bool operator!=(const MStatusCode other) const;

private:
    MStatusCode code_;
};

typedef MStatus MS;

#endif

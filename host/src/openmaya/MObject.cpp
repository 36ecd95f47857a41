#include <maya/MObject.h>

MObject::MObject() : handle_(nullptr) {}
MObject::MObject(const MObject& other) = default;
MObject& MObject::operator=(const MObject& other) = default;
MObject::~MObject() = default;
bool MObject::isNull() const {
    return handle_ == nullptr;
}

#include <maya/MString.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>

MString::MString() = default;
MString::MString(const char* text) : text_(text ? text : "") {}
MString::MString(const MString& other) = default;
MString::~MString() = default;
MString& MString::operator=(const MString& other) = default;
MString& MString::operator=(const char* text) {
    text_ = text ? text : "";
    return *this;
}

const char* MString::asChar() const {
    return text_.c_str();
}
unsigned int MString::length() const {
    return static_cast<unsigned int>(text_.size());
}
float MString::asFloat() const {
    return std::strtof(text_.c_str(), nullptr);
}
int MString::asInt() const {
    return static_cast<int>(std::strtol(text_.c_str(), nullptr, 10));
}

MString& MString::toLowerCase() {
    std::transform(text_.begin(), text_.end(), text_.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return *this;
}

bool MString::operator==(const MString& other) const {
    return text_ == other.text_;
}
bool MString::operator==(const char* other) const {
    return text_ == (other ? other : "");
}
bool MString::operator!=(const MString& other) const {
    return !(*this == other);
}
bool MString::operator!=(const char* other) const {
    return !(*this == other);
}

MString& MString::operator+=(const MString& other) {
    text_ += other.text_;
    return *this;
}
MString& MString::operator+=(const char* other) {
    if (other)
        text_ += other;
    return *this;
}
MString MString::operator+(const MString& other) const {
    MString out(*this);
    out += other;
    return out;
}
MString MString::operator+(const char* other) const {
    MString out(*this);
    out += other;
    return out;
}
MString operator+(const char* left, const MString& right) {
    MString out(left);
    out += right;
    return out;
}

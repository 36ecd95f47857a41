#ifndef MAYA_MSTRING_H
#define MAYA_MSTRING_H
#include <maya/MTypes.h>

#include <string>

// A host string: eight-bit text, UTF-8 in this host.
class FND_EXPORT MString {
public:
    MString();
    MString(const char* text);
    MString(const MString& other);
    ~MString();
    MString& operator=(const MString& other);
    MString& operator=(const char* text);

    const char* asChar() const;
    unsigned int length() const;
    float asFloat() const;
    int asInt() const;
    MString& toLowerCase();

    bool operator==(const MString& other) const;
    bool operator==(const char* other) const;
    bool operator!=(const MString& other) const;
    bool operator!=(const char* other) const;

    MString& operator+=(const MString& other);
    MString& operator+=(const char* other);
    MString operator+(const MString& other) const;
    MString operator+(const char* other) const;
    friend FND_EXPORT MString operator+(const char* left, const MString& right);

private:
    std::string text_;
};

FND_EXPORT MString operator+(const char* left, const MString& right);

#endif

#ifndef MAYA_MTYPES_H
#define MAYA_MTYPES_H
// Basic types and export macros shared by the OpenMaya headers.
#include <cstddef>
#include <cstdint>

#define MAYA_API_VERSION 20190200

#define PLUGIN_EXPORT __attribute__((visibility("default")))
#define OPENMAYA_EXPORT __attribute__((visibility("default")))
#define OPENMAYAUI_EXPORT __attribute__((visibility("default")))
#define FND_EXPORT __attribute__((visibility("default")))

#ifndef NULL
#define NULL 0
#endif

typedef uintptr_t MCallbackId;
typedef void* (*MCreatorFunction)();
class MSyntax;
typedef MSyntax (*MCreateSyntaxFunction)();

namespace MFn {
enum Type { kInvalid = 0 };
}

#endif

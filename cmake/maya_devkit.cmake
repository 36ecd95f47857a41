# Builds the plug-in against a real Maya: imported targets named as the simulated host
# names its libraries, so that plugin/CMakeLists.txt is the same in both builds.
#
#   cmake -S . -B build-maya -DMAYA_LOCATION=/usr/autodesk/maya2022
#
# The devkit's headers are looked for in MAYA_LOCATION/include (or MAYA_DEVKIT/include
# when the devkit is unpacked elsewhere), its libraries in MAYA_LOCATION/lib. MAYA_VERSION
# becomes the Maya release the devkit is for (2022, 2025, ...), which picks the Qt. Maya's
# own Qt is preferred: set Qt5_DIR or Qt6_DIR to the Qt CMake files that come with the
# devkit when they are not under MAYA_LOCATION/lib/cmake.

set(MAYA_DEVKIT "${MAYA_LOCATION}" CACHE PATH "The unpacked Maya devkit (defaults to MAYA_LOCATION)")

find_path(MAYA_INCLUDE_DIR maya/MFnPlugin.h
    PATHS "${MAYA_DEVKIT}/include" "${MAYA_LOCATION}/include"
    NO_DEFAULT_PATH REQUIRED)

# MAYA_API_VERSION is the release times 10000 plus the update (20250300 for 2025.3).
file(STRINGS "${MAYA_INCLUDE_DIR}/maya/MTypes.h" maya_api_line
    REGEX "^#define[ \t]+MAYA_API_VERSION[ \t]+[0-9]+")
string(REGEX MATCH "[0-9]+$" maya_api_version "${maya_api_line}")
if(NOT maya_api_version)
    message(FATAL_ERROR "No MAYA_API_VERSION in ${MAYA_INCLUDE_DIR}/maya/MTypes.h")
endif()
math(EXPR MAYA_VERSION "${maya_api_version} / 10000")

foreach(maya_lib Foundation OpenMaya OpenMayaUI)
    find_library(MAYA_${maya_lib}_LIBRARY ${maya_lib}
        PATHS "${MAYA_LOCATION}/lib" "${MAYA_DEVKIT}/lib"
        NO_DEFAULT_PATH REQUIRED)
    add_library(Maya::${maya_lib} SHARED IMPORTED)
    set_target_properties(Maya::${maya_lib} PROPERTIES
        IMPORTED_LOCATION "${MAYA_${maya_lib}_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${MAYA_INCLUDE_DIR}")
endforeach()

# What Maya's own build of plug-ins defines on Linux.
set_property(TARGET Maya::OpenMaya APPEND PROPERTY
    INTERFACE_COMPILE_DEFINITIONS _BOOL REQUIRE_IOSTREAM)
set_property(TARGET Maya::OpenMayaUI APPEND PROPERTY
    INTERFACE_LINK_LIBRARIES Maya::OpenMaya Maya::Foundation)

message(STATUS "Building the plug-in against Maya ${MAYA_VERSION} at ${MAYA_LOCATION}")

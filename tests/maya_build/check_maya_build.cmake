# Builds the plug-in the way a Maya user does: against a devkit at MAYA_LOCATION, then
# `cmake --install` into a module folder. The devkit here is made of the simulated host's
# headers and libraries, laid out as Maya lays out its own, and claims the Maya release
# that runs this build's Qt, so that the build must pick that Qt by itself.
#
# Inputs: SOURCE_DIR, WORK_DIR, HOST_INCLUDE, HOST_LIBS (a list of library files),
# QT_VERSION (the Qt the host libraries were built with).
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}/maya/lib")
file(COPY "${HOST_INCLUDE}/" DESTINATION "${WORK_DIR}/maya/include")
file(COPY ${HOST_LIBS} DESTINATION "${WORK_DIR}/maya/lib")

if(QT_VERSION EQUAL 6)
    set(maya_release 2025)
else()
    set(maya_release 2022)
endif()
set(types_header "${WORK_DIR}/maya/include/maya/MTypes.h")
file(READ "${types_header}" types)
string(REGEX REPLACE "#define MAYA_API_VERSION [0-9]+" "#define MAYA_API_VERSION ${maya_release}0000"
    types "${types}")
file(WRITE "${types_header}" "${types}")

function(run_step)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "failed: ${ARGN}\n${out}")
    endif()
endfunction()

run_step(${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${WORK_DIR}/build"
    -DMAYA_LOCATION=${WORK_DIR}/maya -DCMAKE_BUILD_TYPE=Release)
run_step(${CMAKE_COMMAND} --build "${WORK_DIR}/build" --target ZelvaniPicker -j2)
run_step(${CMAKE_COMMAND} --install "${WORK_DIR}/build" --prefix "${WORK_DIR}/modules")

set(plugin ZelvaniPicker/plug-ins/qt${QT_VERSION}/ZelvaniPicker.so)
foreach(expected
        ZelvaniPicker.mod
        ${plugin}
        ZelvaniPicker/scripts/picker_ListNamespaces.mel
        ZelvaniPicker/icons/ZelvaniLogo.png)
    if(NOT EXISTS "${WORK_DIR}/modules/${expected}")
        message(FATAL_ERROR "the module lacks ${expected}")
    endif()
endforeach()
execute_process(COMMAND ${CMAKE_COMMAND} -DQT_VERSION=${QT_VERSION}
    -DFILES=${WORK_DIR}/modules/${plugin}
    -P ${CMAKE_CURRENT_LIST_DIR}/check_qt_links.cmake RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "the plug-in for Maya ${maya_release} is not built on Qt ${QT_VERSION}")
endif()

file(READ "${WORK_DIR}/modules/ZelvaniPicker.mod" mod)
string(REGEX MATCHALL "\\+ MAYAVERSION:[0-9]+ PLATFORM:linux ZelvaniPicker [0-9.]+ \\./ZelvaniPicker\nplug-ins: plug-ins/qt${QT_VERSION}\n"
    entries "${mod}")
list(LENGTH entries count)
if(count EQUAL 0 OR NOT mod MATCHES "MAYAVERSION:${maya_release} ")
    message(FATAL_ERROR "unexpected module description: ${mod}")
endif()
# Nothing of the simulated host may travel with the plug-in.
file(GLOB_RECURSE installed RELATIVE "${WORK_DIR}/modules" "${WORK_DIR}/modules/*")
list(LENGTH installed count)
if(NOT count EQUAL 4)
    message(FATAL_ERROR "unexpected files in the module: ${installed}")
endif()

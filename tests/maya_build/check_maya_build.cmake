# Builds the plug-in the way a Maya user does: against a devkit at MAYA_LOCATION, then
# `cmake --install` into a module folder. The devkit here is made of the simulated host's
# headers and libraries, laid out as Maya lays out its own.
#
# Inputs: SOURCE_DIR, WORK_DIR, HOST_INCLUDE, HOST_LIBS (a list of library files).
file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}/maya/lib")
file(COPY "${HOST_INCLUDE}/" DESTINATION "${WORK_DIR}/maya/include")
file(COPY ${HOST_LIBS} DESTINATION "${WORK_DIR}/maya/lib")

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

foreach(expected
        ZelvaniPicker.mod
        ZelvaniPicker/plug-ins/ZelvaniPicker.so
        ZelvaniPicker/scripts/picker_ListNamespaces.mel
        ZelvaniPicker/icons/ZelvaniLogo.png)
    if(NOT EXISTS "${WORK_DIR}/modules/${expected}")
        message(FATAL_ERROR "the module lacks ${expected}")
    endif()
endforeach()
file(READ "${WORK_DIR}/modules/ZelvaniPicker.mod" mod)
if(NOT mod MATCHES "^\\+ PLATFORM:linux ZelvaniPicker [0-9.]+ \\./ZelvaniPicker")
    message(FATAL_ERROR "unexpected module description: ${mod}")
endif()
# Nothing of the simulated host may travel with the plug-in.
file(GLOB_RECURSE installed RELATIVE "${WORK_DIR}/modules" "${WORK_DIR}/modules/*")
list(LENGTH installed count)
if(NOT count EQUAL 4)
    message(FATAL_ERROR "unexpected files in the module: ${installed}")
endif()

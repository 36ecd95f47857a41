# Installs a Qt 5 and a Qt 6 build of the plug-in into one prefix, in either order, and
# checks that the one module description sends each Maya release to the plug-in built on
# its Qt: 2022-2024 to Qt 5, 2025 and later to Qt 6.
#
# Inputs: QT5_BUILD, QT6_BUILD (build trees), WORK_DIR.
function(install_build build prefix)
    execute_process(COMMAND ${CMAKE_COMMAND} --install "${build}" --prefix "${prefix}"
        RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "cannot install ${build}:\n${out}")
    endif()
endfunction()

set(expected "# Each Maya release loads the plug-in built on its own Qt.\n")
foreach(release 2022 2023 2024 2025 2026 2027)
    if(release LESS 2025)
        set(folder qt5)
    else()
        set(folder qt6)
    endif()
    string(APPEND expected "\\+ MAYAVERSION:${release} PLATFORM:linux ZelvaniPicker [0-9.]+ \\./ZelvaniPicker\nplug-ins: plug-ins/${folder}\n")
endforeach()

foreach(order "${QT5_BUILD};${QT6_BUILD}" "${QT6_BUILD};${QT5_BUILD}")
    set(prefix "${WORK_DIR}/modules")
    file(REMOVE_RECURSE "${prefix}")
    foreach(build IN LISTS order)
        install_build("${build}" "${prefix}")
    endforeach()
    file(READ "${prefix}/ZelvaniPicker.mod" mod)
    if(NOT mod MATCHES "^${expected}$")
        message(FATAL_ERROR "unexpected module description after installing ${order}:\n${mod}")
    endif()
    # Installing again changes nothing.
    install_build("${QT5_BUILD}" "${prefix}")
    file(READ "${prefix}/ZelvaniPicker.mod" again)
    if(NOT again STREQUAL mod)
        message(FATAL_ERROR "a second install changed the module description:\n${again}")
    endif()
endforeach()

foreach(qt 5 6)
    execute_process(COMMAND ${CMAKE_COMMAND} -DQT_VERSION=${qt}
        -DFILES=${prefix}/ZelvaniPicker/plug-ins/qt${qt}/ZelvaniPicker.so
        -P ${CMAKE_CURRENT_LIST_DIR}/check_qt_links.cmake RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "plug-ins/qt${qt} holds a plug-in of another Qt")
    endif()
endforeach()

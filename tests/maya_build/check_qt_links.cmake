# Fails when a binary loads the libraries of a Qt other than the one it was built with:
# Maya loads a plug-in into its own Qt, and two Qts in one process do not mix.
#
# Inputs: QT_VERSION (5 or 6), FILES (a list of binaries).
foreach(binary IN LISTS FILES)
    execute_process(COMMAND ldd "${binary}" RESULT_VARIABLE rc OUTPUT_VARIABLE libs ERROR_VARIABLE libs)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "ldd ${binary} failed:\n${libs}")
    endif()
    if(NOT libs MATCHES "libQt${QT_VERSION}Core")
        message(FATAL_ERROR "${binary} does not load Qt ${QT_VERSION}:\n${libs}")
    endif()
    string(REGEX MATCHALL "libQt[0-9]+[A-Za-z0-9]*\\.so[.0-9]*" qt_libs "${libs}")
    foreach(lib IN LISTS qt_libs)
        if(NOT lib MATCHES "^libQt${QT_VERSION}[A-Z]")
            message(FATAL_ERROR "${binary}, built on Qt ${QT_VERSION}, loads ${lib}:\n${libs}")
        endif()
    endforeach()
endforeach()

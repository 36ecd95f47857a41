# Runs at install time: writes the Maya module description beside the module folder, one
# entry per Maya release, each naming the plug-in folder built for that release's Qt.
# Entries that another build installed into the same prefix stay, so that a Qt 5 and a
# Qt 6 install end up as one module serving every Maya.
#
# Set by the install rule: zelvani_module_name, zelvani_module_version,
# zelvani_module_platform, zelvani_plugin_folder, zelvani_plugin_file, zelvani_maya_versions.
cmake_policy(VERSION 3.24)
set(root "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
set(mod "${root}/${zelvani_module_name}.mod")

# Entries kept as "<Maya release>|<entry line>|<plug-in folder>", sortable by release.
set(entries "")
if(EXISTS "${mod}")
    file(STRINGS "${mod}" lines)
    set(header "")
    foreach(line IN LISTS lines)
        if(line MATCHES "^\\+ MAYAVERSION:([0-9]+) ")
            set(header "${line}")
            set(release "${CMAKE_MATCH_1}")
        elseif(header AND line MATCHES "^plug-ins: (.+)$")
            set(folder "${CMAKE_MATCH_1}")
            # This build replaces its own entries and takes over its releases; a plug-in
            # that is gone takes its entries along.
            if(NOT folder STREQUAL zelvani_plugin_folder AND NOT release IN_LIST zelvani_maya_versions
                    AND EXISTS "${root}/${zelvani_module_name}/${folder}/${zelvani_plugin_file}")
                list(APPEND entries "${release}|${header}|${folder}")
            endif()
            set(header "")
        endif()
    endforeach()
endif()
foreach(release IN LISTS zelvani_maya_versions)
    list(APPEND entries "${release}|+ MAYAVERSION:${release} PLATFORM:${zelvani_module_platform} ${zelvani_module_name} ${zelvani_module_version} ./${zelvani_module_name}|${zelvani_plugin_folder}")
endforeach()
list(SORT entries COMPARE NATURAL)

# Maya stops reading an entry at a blank line: none inside the file.
set(text "# Each Maya release loads the plug-in built on its own Qt.\n")
foreach(entry IN LISTS entries)
    string(REPLACE "|" ";" parts "${entry}")
    list(GET parts 1 header)
    list(GET parts 2 folder)
    string(APPEND text "${header}\nplug-ins: ${folder}\n")
endforeach()
message(STATUS "Writing: ${mod}")
file(WRITE "${mod}" "${text}")

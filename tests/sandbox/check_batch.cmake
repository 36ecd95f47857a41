# Runs the sandbox headless, with fresh settings of its own, and checks its exit code and
# what it printed.
# Inputs: PROGRAM, ARGS (a list), EXPECT_CODE, EXPECT (a regular expression), SETTINGS_DIR,
# EXPECT_SETTINGS (a regular expression for the picker's settings file, or empty).
file(REMOVE_RECURSE "${SETTINGS_DIR}")
execute_process(COMMAND ${PROGRAM} --batch --settings-dir "${SETTINGS_DIR}" ${ARGS}
    RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err TIMEOUT 120)
if(NOT code STREQUAL EXPECT_CODE)
    message(FATAL_ERROR "exit code ${code}, expected ${EXPECT_CODE}\n${out}${err}")
endif()
if(NOT out MATCHES "${EXPECT}")
    message(FATAL_ERROR "output does not match '${EXPECT}':\n${out}${err}")
endif()
if(EXPECT_SETTINGS)
    file(READ "${SETTINGS_DIR}/Zelvani/picker.conf" settings)
    if(NOT settings MATCHES "${EXPECT_SETTINGS}")
        message(FATAL_ERROR "settings do not match '${EXPECT_SETTINGS}':\n${settings}")
    endif()
endif()

# Runs the sandbox headless and checks its exit code and what it printed.
# Inputs: PROGRAM, ARGS (a list), EXPECT_CODE, EXPECT (a regular expression).
execute_process(COMMAND ${PROGRAM} --batch ${ARGS}
    RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err TIMEOUT 120)
if(NOT code STREQUAL EXPECT_CODE)
    message(FATAL_ERROR "exit code ${code}, expected ${EXPECT_CODE}\n${out}${err}")
endif()
if(NOT out MATCHES "${EXPECT}")
    message(FATAL_ERROR "output does not match '${EXPECT}':\n${out}${err}")
endif()

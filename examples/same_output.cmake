# Runs PROGRAM: it must succeed and print exactly what the file EXPECTED holds.
execute_process(COMMAND ${PROGRAM} OUTPUT_FILE ${PROGRAM}.out RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} ended with ${status}")
endif()
execute_process(COMMAND diff -u ${EXPECTED} ${PROGRAM}.out RESULT_VARIABLE difference)
if(NOT difference EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} prints something else")
endif()

# Runs a program and fails unless it ends with the expected status and (optionally) prints a text.
#   cmake -DSTATUS=2 -DEXPECT_TEXT=... -DPROGRAM=... -DARGS=a;b -P ExpectStatus.cmake
execute_process(COMMAND ${PROGRAM} ${ARGS} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT result STREQUAL STATUS)
  message(FATAL_ERROR "${PROGRAM} ${ARGS}: status ${result}, expected ${STATUS}\n${out}${err}")
endif()
if(EXPECT_TEXT)
  string(FIND "${out}${err}" "${EXPECT_TEXT}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${PROGRAM} ${ARGS}: the output lacks '${EXPECT_TEXT}'\n${out}${err}")
  endif()
endif()

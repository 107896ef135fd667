# The two documentation tools on fixed input:
#   scripts/bench-table.py turns fixed benchmark results into exactly the expected table, and fails
#   (saying where) when a row's benchmark did not run or failed;
#   scripts/complexity_exponent.py fits each sweep's exponent to its sizes' fastest runs and fails
#   above its limit;
#   scripts/doc-snippets.py wraps a fragment in a function, skips a marked block, leaves other
#   languages alone and makes one project per CMake block.
#   cmake -DPYTHON=... -DSOURCE_DIR=... -DWORK_DIR=... -P this
foreach(required PYTHON SOURCE_DIR WORK_DIR)
  if(NOT ${required})
    message(FATAL_ERROR "${required} is not set")
  endif()
endforeach()
set(fixtures ${SOURCE_DIR}/tests/docs)

function(expect_contains text expected what)
  string(FIND "${text}" "${expected}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "${what} lacks '${expected}':\n${text}")
  endif()
endfunction()

execute_process(COMMAND ${PYTHON} ${SOURCE_DIR}/scripts/bench-table.py ${fixtures}/bench-table/rows.json
                        ${fixtures}/bench-table/results
                RESULT_VARIABLE result OUTPUT_VARIABLE table ERROR_VARIABLE errors)
file(READ ${fixtures}/bench-table/expected.md expected)
if(NOT result EQUAL 0 OR NOT table STREQUAL expected)
  message(FATAL_ERROR "bench-table.py (status ${result}) printed\n${table}${errors}\ninstead of\n${expected}")
endif()

execute_process(COMMAND ${PYTHON} ${SOURCE_DIR}/scripts/bench-table.py
                        ${fixtures}/bench-table/rows-incomplete.json ${fixtures}/bench-table/results
                RESULT_VARIABLE result OUTPUT_VARIABLE table ERROR_VARIABLE errors)
if(result EQUAL 0)
  message(FATAL_ERROR "bench-table.py succeeded although figures are missing:\n${table}")
endif()
expect_contains("${table}" "| never run | not measured |" "The incomplete table")
expect_contains("${table}" "| failed | failed |" "The incomplete table")
expect_contains("${table}" "| no such measure | not measured |" "The incomplete table")

file(GLOB reports ${fixtures}/bench-table/results/*.json)
execute_process(COMMAND ${PYTHON} ${SOURCE_DIR}/scripts/complexity_exponent.py ${reports}
                RESULT_VARIABLE result OUTPUT_VARIABLE exponents ERROR_VARIABLE errors)
if(NOT result EQUAL 1)
  message(FATAL_ERROR "complexity_exponent.py (status ${result}) passed a quadratic sweep:\n${exponents}${errors}")
endif()
expect_contains("${exponents}" "BM_Sweep                                     1,000 to 4,000  exponent 1.000\n"
                "The exponents")
expect_contains("${exponents}" "BM_Square                                    1,000 to 2,000  exponent 2.000  ABOVE 1.05\n"
                "The exponents")
execute_process(COMMAND ${PYTHON} ${SOURCE_DIR}/scripts/complexity_exponent.py --only "BM_Sw" ${reports}
                RESULT_VARIABLE result OUTPUT_VARIABLE exponents ERROR_VARIABLE errors)
if(NOT result EQUAL 0 OR NOT exponents STREQUAL
   "BM_Sweep                                     1,000 to 4,000  exponent 1.000\n")
  message(FATAL_ERROR "complexity_exponent.py --only BM_Sw (status ${result}) printed:\n${exponents}${errors}")
endif()
execute_process(COMMAND ${PYTHON} ${SOURCE_DIR}/scripts/complexity_exponent.py --limit 2.5 ${reports}
                RESULT_VARIABLE result OUTPUT_VARIABLE exponents ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "complexity_exponent.py --limit 2.5 (status ${result}) failed:\n${exponents}${errors}")
endif()

file(REMOVE_RECURSE ${WORK_DIR})
execute_process(COMMAND ${PYTHON} ${SOURCE_DIR}/scripts/doc-snippets.py ${WORK_DIR} tests/docs/snippets/example.md
                WORKING_DIRECTORY ${SOURCE_DIR}
                RESULT_VARIABLE result OUTPUT_VARIABLE projects ERROR_VARIABLE notes)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "doc-snippets.py failed (${result}):\n${notes}")
endif()
expect_contains("${notes}" "example.md:10: skipped (shows a mistake on purpose)" "The extractor's notes")
string(STRIP "${projects}" projects)
set(project ${WORK_DIR}/tests-docs-snippets-example/cmake-19)
if(NOT projects STREQUAL project)
  message(FATAL_ERROR "Expected the one project ${project}, got:\n${projects}")
endif()
file(GLOB sources ${WORK_DIR}/tests-docs-snippets-example/sources/*.cpp)
list(LENGTH sources count)
if(NOT count EQUAL 2)
  message(FATAL_ERROR "Expected the fragment and a generated main, got: ${sources}")
endif()
file(READ ${WORK_DIR}/tests-docs-snippets-example/sources/block-5.cpp fragment)
expect_contains("${fragment}" "#include <string>\n[[maybe_unused]] static void DocumentedFragment0() {\n"
                "The wrapped fragment")
expect_contains("${fragment}" "#line 6 \"${SOURCE_DIR}/tests/docs/snippets/example.md\"\nstd::string text"
                "The wrapped fragment")
file(READ ${project}/linking.cmake linking)
expect_contains("${linking}" "target_link_libraries(my_host PRIVATE ZrSIMPrp::Core)" "The CMake block")
file(REMOVE_RECURSE ${WORK_DIR})

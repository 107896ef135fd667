# Installs a build into a scratch prefix, then builds every C++ and CMake code block of the
# documentation (README.md, docs/*.md) against the installed package only, as scripts/doc-snippets.py
# extracts them at this moment: an example that no longer compiles or links fails here.
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DSOURCE_DIR=... -DGENERATOR=... -DCXX_COMPILER=...
#         -DPYTHON=... [-DWERROR=ON] [-DSANITIZE=...] -P this
include(${CMAKE_CURRENT_LIST_DIR}/../support/ScriptSteps.cmake)
require_definitions(BUILD_DIR WORK_DIR SOURCE_DIR GENERATOR PYTHON)

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

file(GLOB documents RELATIVE ${SOURCE_DIR} ${SOURCE_DIR}/README.md ${SOURCE_DIR}/docs/*.md)
execute_process(COMMAND ${PYTHON} ${SOURCE_DIR}/scripts/doc-snippets.py ${WORK_DIR}/examples ${documents}
                        --require README.md --require docs/embedding.md
                WORKING_DIRECTORY ${SOURCE_DIR} RESULT_VARIABLE result OUTPUT_VARIABLE projects
                ERROR_VARIABLE notes)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "scripts/doc-snippets.py failed (${result}):\n${notes}")
endif()
message(STATUS "${notes}")
string(STRIP "${projects}" projects)
string(REPLACE "\n" ";" projects "${projects}")

set(flags "-Wall -Wextra")
if(WERROR)
  string(APPEND flags " -Werror")
endif()
set(linker_flags "")
if(SANITIZE)
  string(APPEND flags " -fsanitize=${SANITIZE}")
  set(linker_flags "-fsanitize=${SANITIZE}")
endif()
foreach(project IN LISTS projects)
  set(build ${project}/build)
  set(configure_args -S ${project} -B ${build} -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${prefix}
                     -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS=${flags}"
                     "-DCMAKE_EXE_LINKER_FLAGS=${linker_flags}")
  if(CXX_COMPILER)
    list(APPEND configure_args -DCMAKE_CXX_COMPILER=${CXX_COMPILER})
  endif()
  run(${CMAKE_COMMAND} ${configure_args})
  run(${CMAKE_COMMAND} --build ${build} -j 2)
  if(NOT EXISTS ${build}/my_host)
    message(FATAL_ERROR "${project}: the example built no my_host program")
  endif()
  message(STATUS "built: ${project}")
endforeach()
file(REMOVE_RECURSE ${WORK_DIR})

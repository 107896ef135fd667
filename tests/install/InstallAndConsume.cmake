# Installs a build into a scratch prefix, then configures, builds and runs a small host program
# against the installed package only (the source tree is not on its include path).
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DCONSUMER_DIR=... -DGENERATOR=... -DCXX_COMPILER=... -P this
foreach(required BUILD_DIR WORK_DIR CONSUMER_DIR GENERATOR)
  if(NOT ${required})
    message(FATAL_ERROR "${required} is not set")
  endif()
endforeach()

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "Failed (${result}): ${command}\n${output}")
  endif()
  set(last_output "${output}" PARENT_SCOPE)
endfunction()

set(prefix ${WORK_DIR}/prefix)
set(consumer_build ${WORK_DIR}/consumer-build)
file(REMOVE_RECURSE ${WORK_DIR})

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(expected include/zrsimprp/control/SIMProperties.h include/zrsimprp/host/HeadlessPlatform.h
                 include/projectdb/GeoPackageProject.h share/zrsimprp/sample.gpkg bin/zrsim)
  if(NOT EXISTS ${prefix}/${expected})
    message(FATAL_ERROR "The installation lacks ${expected}")
  endif()
endforeach()

set(configure_args -S ${CONSUMER_DIR} -B ${consumer_build} -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${prefix}
                   -DCMAKE_BUILD_TYPE=Debug)
if(CXX_COMPILER)
  list(APPEND configure_args -DCMAKE_CXX_COMPILER=${CXX_COMPILER})
endif()
if(SANITIZE)
  list(APPEND configure_args "-DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZE}" "-DCMAKE_EXE_LINKER_FLAGS=-fsanitize=${SANITIZE}")
endif()
run(${CMAKE_COMMAND} ${configure_args})
run(${CMAKE_COMMAND} --build ${consumer_build} -j 2)

run(${consumer_build}/headless_host ${prefix}/share/zrsimprp/sample.gpkg)
message(STATUS "${last_output}")
if(EXISTS ${consumer_build}/widgets_host)
  run(${consumer_build}/widgets_host)
  message(STATUS "${last_output}")
elseif(EXISTS ${prefix}/bin/zrsim-editor)
  message(FATAL_ERROR "The editor is installed but the consumer did not build against ZrSIMPrp::Widgets")
endif()
file(REMOVE_RECURSE ${WORK_DIR})

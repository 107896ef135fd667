# Installs a build into a scratch prefix, then configures, builds and runs a small host program
# against the installed package only (the source tree is not on its include path).
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DCONSUMER_DIR=... -DGENERATOR=... -DCXX_COMPILER=... -P this
include(${CMAKE_CURRENT_LIST_DIR}/../support/ScriptSteps.cmake)
require_definitions(BUILD_DIR WORK_DIR CONSUMER_DIR GENERATOR)

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

configure_consumer(${consumer_build} ${prefix})
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

# Steps shared by the test scripts run with `cmake -P` (install, package, documented code).

# Stops with a message naming the first of the given variables that was not passed with -D.
function(require_definitions)
  foreach(required ${ARGN})
    if(NOT ${required})
      message(FATAL_ERROR "${required} is not set")
    endif()
  endforeach()
endfunction()

# Runs a command; a failure stops the script with the command line and all it printed. What it
# printed on standard output is left in `last_output` for the caller to check.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "Failed (${result}): ${command}\n${output}${errors}")
  endif()
  set(last_output "${output}" PARENT_SCOPE)
endfunction()

# Configures the consumer project in CONSUMER_DIR into `build_dir` against the ZrSIMPrp package found
# under `prefix_path`, with the compiler (CXX_COMPILER) and sanitizers (SANITIZE) of the build under
# test when they were passed.
function(configure_consumer build_dir prefix_path)
  set(configure_args -S ${CONSUMER_DIR} -B ${build_dir} -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${prefix_path}
                     -DCMAKE_BUILD_TYPE=Debug)
  if(CXX_COMPILER)
    list(APPEND configure_args -DCMAKE_CXX_COMPILER=${CXX_COMPILER})
  endif()
  if(SANITIZE)
    list(APPEND configure_args "-DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZE}"
         "-DCMAKE_EXE_LINKER_FLAGS=-fsanitize=${SANITIZE}")
  endif()
  run(${CMAKE_COMMAND} ${configure_args})
endfunction()

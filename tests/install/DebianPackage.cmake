# Makes the Debian package of a build with CPack and checks it as a packager would: where its files
# go, what it depends on (every dependency a Debian package of this system), and that the programs
# run and a host builds against it once it is unpacked into a throw-away root (dpkg-deb -x).
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DCONSUMER_DIR=... -DGENERATOR=... -DCXX_COMPILER=...
#         -DVERSION=... -DLIBDIR=lib/<multiarch> -DHAS_WIDGETS=ON|OFF -DHAS_DESIGNER=1|0 -P this
include(${CMAKE_CURRENT_LIST_DIR}/../support/ScriptSteps.cmake)
require_definitions(BUILD_DIR WORK_DIR CONSUMER_DIR GENERATOR VERSION LIBDIR)

file(REMOVE_RECURSE ${WORK_DIR})
run(cpack -G DEB -B ${WORK_DIR}/out --config ${BUILD_DIR}/CPackConfig.cmake)
file(GLOB packages ${WORK_DIR}/out/zrsimprp_*.deb)
list(LENGTH packages count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "Expected one zrsimprp_*.deb, CPack made: ${packages}")
endif()

# The control fields: name, version and the dependencies dpkg-shlibdeps found.
run(dpkg-deb -f ${packages} Package Version Depends Recommends)
set(control "${last_output}")
message(STATUS "${control}")
foreach(expected "Package: zrsimprp" "Version: ${VERSION}" "libc6" "libstdc++6" "libsqlite3-0")
  string(FIND "${control}" "${expected}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "The package's control fields lack '${expected}':\n${control}")
  endif()
endforeach()
if(HAS_WIDGETS)
  foreach(expected libqt6widgets6 libqt6charts6 "Recommends: cmake")
    string(FIND "${control}" "${expected}" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "The package's control fields lack '${expected}':\n${control}")
    endif()
  endforeach()
endif()
# apt can pull each dependency only if it is a Debian package: every one is installed here, as the
# build needed it.
string(REGEX MATCH "Depends: [^\n]*" depends "${control}")
string(REGEX REPLACE "^Depends: " "" depends "${depends}")
string(REPLACE "," ";" depends "${depends}")
foreach(dependency IN LISTS depends)
  string(REGEX REPLACE "^ *([^ (|]+).*" "\\1" name "${dependency}")
  execute_process(COMMAND dpkg-query -W -f=\${Status} ${name} RESULT_VARIABLE result OUTPUT_VARIABLE status
                  ERROR_QUIET)
  if(NOT result EQUAL 0 OR NOT status MATCHES "install ok installed")
    message(FATAL_ERROR "The dependency '${name}' is not a Debian package installed on this system")
  endif()
endforeach()

# Where the files go.
run(dpkg-deb -c ${packages})
set(listing "${last_output}")
set(expected_files
  ./usr/bin/zrsim
  ./usr/include/zrsimprp/control/SIMProperties.h
  ./usr/include/zrsimprp/Version.h
  ./usr/include/projectdb/GeoPackageProject.h
  ./usr/${LIBDIR}/libzrsimprp.a
  ./usr/${LIBDIR}/cmake/ZrSIMPrp/ZrSIMPrpConfig.cmake
  ./usr/${LIBDIR}/cmake/ZrSIMPrp/ZrSIMPrpConfigVersion.cmake
  ./usr/share/zrsimprp/sample.gpkg
  ./usr/share/doc/zrsimprp/README.md)
if(HAS_WIDGETS)
  list(APPEND expected_files
    ./usr/bin/zrsim-editor
    ./usr/include/zrsimprp/qt/SIMPropertiesWidget.h
    ./usr/share/applications/zrsim-editor.desktop
    ./usr/share/icons/hicolor/scalable/apps/zrsim-editor.svg)
endif()
if(HAS_DESIGNER)
  list(APPEND expected_files ./usr/${LIBDIR}/qt6/plugins/designer/libzrsimprp_designer.so)
endif()
foreach(expected IN LISTS expected_files)
  string(FIND "${listing}" " ${expected}\n" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "The package lacks ${expected}:\n${listing}")
  endif()
endforeach()
string(REGEX MATCHALL " \\./[^\n]*" paths "${listing}")
foreach(path IN LISTS paths)
  if(NOT path MATCHES "^ \\./(usr/.*)?$")
    message(FATAL_ERROR "The package puts a file outside /usr:${path}")
  endif()
endforeach()

# Unpacked into a throw-away root: the programs run and a host builds against the package.
set(root ${WORK_DIR}/root)
run(dpkg-deb -x ${packages} ${root})
run(${root}/usr/bin/zrsim --version)
if(NOT last_output MATCHES "zrsim ${VERSION}")
  message(FATAL_ERROR "zrsim --version printed '${last_output}'")
endif()
if(HAS_WIDGETS)
  run(${root}/usr/bin/zrsim-editor --version)
  if(NOT last_output MATCHES "zrsim-editor ${VERSION}")
    message(FATAL_ERROR "zrsim-editor --version printed '${last_output}'")
  endif()
  file(READ ${root}/usr/share/applications/zrsim-editor.desktop desktop)
  foreach(expected "Exec=zrsim-editor" "Icon=zrsim-editor" "Type=Application")
    string(FIND "${desktop}" "${expected}" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "The desktop entry lacks '${expected}'")
    endif()
  endforeach()
endif()
set(consumer_build ${WORK_DIR}/consumer-build)
configure_consumer(${consumer_build} ${root}/usr)
file(STRINGS ${consumer_build}/CMakeCache.txt package_dir REGEX "^ZrSIMPrp_DIR:")
if(NOT package_dir MATCHES "=${root}/usr/${LIBDIR}/cmake/ZrSIMPrp$")
  message(FATAL_ERROR "The host found another ZrSIMPrp package: ${package_dir}")
endif()
run(${CMAKE_COMMAND} --build ${consumer_build} -j 2)
run(${consumer_build}/headless_host ${root}/usr/share/zrsimprp/sample.gpkg)
message(STATUS "${last_output}")
if(HAS_WIDGETS)
  if(NOT EXISTS ${consumer_build}/widgets_host)
    message(FATAL_ERROR "The package has the editor but the host did not build against ZrSIMPrp::Widgets")
  endif()
  run(${consumer_build}/widgets_host)
  message(STATUS "${last_output}")
endif()
file(REMOVE_RECURSE ${WORK_DIR})

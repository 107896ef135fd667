# Installation, the exported CMake package and the Debian package.
#
# A host finds the installed libraries with find_package(ZrSIMPrp CONFIG) and links ZrSIMPrp::Core,
# ZrSIMPrp::ProjectDb or ZrSIMPrp::Widgets. Core is a static library made of the objects of every
# part, so the part object libraries themselves are never installed.
include(CMakePackageConfigHelpers)

set(ZRSIMPRP_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZrSIMPrp)

set(zrsimprp_exported zrsimprp_core)
set(ZRSIMPRP_HAS_PROJECTDB OFF)
set(ZRSIMPRP_HAS_WIDGETS OFF)
if(TARGET zrsimprp_projectdb)
  list(APPEND zrsimprp_exported zrsimprp_projectdb)
  set(ZRSIMPRP_HAS_PROJECTDB ON)
endif()
if(TARGET zrsimprp_widgets)
  list(APPEND zrsimprp_exported zrsimprp_widgets)
  set(ZRSIMPRP_HAS_WIDGETS ON)
endif()

install(TARGETS ${zrsimprp_exported} EXPORT ZrSIMPrpTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# Public headers keep their paths, sub-folders included: #include "zrsimprp/control/SIMProperties.h",
# "zrsimprp/qt/binders/GridBinder.h".
set(header_folders zrsimprp/host zrsimprp/modules zrsimprp/pages zrsimprp/control zrsimprp/entries zrsimprp/lint
                   zrsimprp/map zrsimprp/surface)
if(ZRSIMPRP_HAS_WIDGETS)
  list(APPEND header_folders zrsimprp/qt)
endif()
foreach(folder IN LISTS header_folders)
  if(EXISTS ${PROJECT_SOURCE_DIR}/${folder})
    get_filename_component(parent ${folder} DIRECTORY)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${parent}
            COMPONENT development FILES_MATCHING PATTERN "*.h")
  endif()
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/generated/zrsimprp/Version.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zrsimprp
        COMPONENT development)
if(ZRSIMPRP_HAS_PROJECTDB)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/projectdb DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
          COMPONENT development FILES_MATCHING PATTERN "*.h" PATTERN "tools" EXCLUDE PATTERN "gdal" EXCLUDE)
endif()

# The GDAL module the project library loads on the first import, where it looks for it beside the
# programs (lib/zrsimprp/ under the prefix).
if(TARGET zrsimprp_gdal)
  install(TARGETS zrsimprp_gdal LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/zrsimprp COMPONENT applications)
endif()
foreach(program zrsim zrsim-map zrsim-editor)
  if(TARGET ${program})
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT applications)
  endif()
endforeach()
# The editor in a desktop's application menu.
if(TARGET zrsim-editor)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/zrsim-editor.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT applications)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/zrsim-editor.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT applications)
endif()
if(DEFINED ZRSIMPRP_SAMPLE_PROJECT AND TARGET zrsimprp_sample_project)
  install(FILES ${ZRSIMPRP_SAMPLE_PROJECT} DESTINATION ${CMAKE_INSTALL_DATADIR}/zrsimprp
          RENAME sample.gpkg COMPONENT applications)
endif()
foreach(document README.md)
  if(EXISTS ${PROJECT_SOURCE_DIR}/${document})
    install(FILES ${PROJECT_SOURCE_DIR}/${document} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT applications)
  endif()
endforeach()
if(EXISTS ${PROJECT_SOURCE_DIR}/docs)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT applications
          FILES_MATCHING PATTERN "*.md")
endif()

install(EXPORT ZrSIMPrpTargets NAMESPACE ZrSIMPrp:: DESTINATION ${ZRSIMPRP_INSTALL_CMAKEDIR}
        COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/ZrSIMPrpConfig.cmake.in
  ${PROJECT_BINARY_DIR}/ZrSIMPrpConfig.cmake INSTALL_DESTINATION ${ZRSIMPRP_INSTALL_CMAKEDIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZrSIMPrpConfigVersion.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZrSIMPrpConfig.cmake ${PROJECT_BINARY_DIR}/ZrSIMPrpConfigVersion.cmake
        DESTINATION ${ZRSIMPRP_INSTALL_CMAKEDIR} COMPONENT development)

# Installs this build into a scratch prefix and builds a small host against the installed package.
if(ZRSIMPRP_BUILD_TESTS AND PROJECT_IS_TOP_LEVEL)
  add_test(NAME Install.ConsumerBuildsAgainstTheInstalledPackage
    COMMAND ${CMAKE_COMMAND}
      -DBUILD_DIR=${PROJECT_BINARY_DIR}
      -DWORK_DIR=${PROJECT_BINARY_DIR}/install-test
      -DCONSUMER_DIR=${PROJECT_SOURCE_DIR}/tests/install/consumer
      -DGENERATOR=${CMAKE_GENERATOR}
      -DCXX_COMPILER=${CMAKE_CXX_COMPILER}
      -DSANITIZE=${ZRSIMPRP_SANITIZE}
      -P ${PROJECT_SOURCE_DIR}/tests/install/InstallAndConsume.cmake)
  set_tests_properties(Install.ConsumerBuildsAgainstTheInstalledPackage PROPERTIES
    TIMEOUT 900 ENVIRONMENT "QT_QPA_PLATFORM=offscreen" RUN_SERIAL ON)

  # Every C++ and CMake block of the documentation, built against the installed package.
  find_package(Python3 COMPONENTS Interpreter)
  if(Python3_Interpreter_FOUND)
    add_test(NAME Docs.EveryCodeBlockBuildsAgainstTheInstalledPackage
      COMMAND ${CMAKE_COMMAND}
        -DBUILD_DIR=${PROJECT_BINARY_DIR}
        -DWORK_DIR=${PROJECT_BINARY_DIR}/docs-test
        -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
        -DGENERATOR=${CMAKE_GENERATOR}
        -DCXX_COMPILER=${CMAKE_CXX_COMPILER}
        -DPYTHON=${Python3_EXECUTABLE}
        -DWERROR=${ZRSIMPRP_WARNINGS_AS_ERRORS}
        -DSANITIZE=${ZRSIMPRP_SANITIZE}
        -P ${PROJECT_SOURCE_DIR}/tests/docs/DocumentedCode.cmake)
    set_tests_properties(Docs.EveryCodeBlockBuildsAgainstTheInstalledPackage PROPERTIES
      TIMEOUT 900 LABELS docs RUN_SERIAL ON)
    # The extractor and the speed table's script themselves, on fixed input (quick).
    add_test(NAME Docs.ToolsTurnFixedInputIntoExpectedOutput
      COMMAND ${CMAKE_COMMAND} -DPYTHON=${Python3_EXECUTABLE} -DSOURCE_DIR=${PROJECT_SOURCE_DIR}
        -DWORK_DIR=${PROJECT_BINARY_DIR}/docs-tools-test -P ${PROJECT_SOURCE_DIR}/tests/docs/Tools.cmake)
  else()
    message(WARNING "python3 was not found: the documentation's code blocks are not tested")
  endif()

  # The Debian package: its contents and dependencies, and a host built against it unpacked.
  find_program(ZRSIMPRP_DPKG_DEB dpkg-deb)
  find_program(ZRSIMPRP_DPKG_SHLIBDEPS dpkg-shlibdeps)
  if(ZRSIMPRP_DPKG_DEB AND ZRSIMPRP_DPKG_SHLIBDEPS)
    add_test(NAME Package.DebianPackageInstallsWhereDebianExpects
      COMMAND ${CMAKE_COMMAND}
        -DBUILD_DIR=${PROJECT_BINARY_DIR}
        -DWORK_DIR=${PROJECT_BINARY_DIR}/package-test
        -DCONSUMER_DIR=${PROJECT_SOURCE_DIR}/tests/install/consumer
        -DGENERATOR=${CMAKE_GENERATOR}
        -DCXX_COMPILER=${CMAKE_CXX_COMPILER}
        -DSANITIZE=${ZRSIMPRP_SANITIZE}
        -DVERSION=${PROJECT_VERSION}
        -DLIBDIR=${CMAKE_INSTALL_LIBDIR}
        -DHAS_WIDGETS=${ZRSIMPRP_HAS_WIDGETS}
        -DHAS_DESIGNER=$<TARGET_EXISTS:zrsimprp_designer>
        -P ${PROJECT_SOURCE_DIR}/tests/install/DebianPackage.cmake)
    set_tests_properties(Package.DebianPackageInstallsWhereDebianExpects PROPERTIES
      TIMEOUT 1200 LABELS package ENVIRONMENT "QT_QPA_PLATFORM=offscreen" RUN_SERIAL ON)
  else()
    message(WARNING "dpkg-deb or dpkg-shlibdeps (dpkg-dev) was not found: the Debian package is not tested")
  endif()
endif()

# `make package`: a Debian package of the programs, the libraries, headers and CMake package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zrsimprp)
set(CPACK_PACKAGE_VENDOR "ZrSIMPrp developers")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
    "The simulation properties control of a wildlife-survey analysis application, as a headless C++ \
library with a Qt 6 Widgets view, a project-file library (GeoPackage), the zrsim command line and the \
zrsim-editor properties form with a sample project.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "ZrSIMPrp developers <zrsimprp@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
# The programs' and the plugin's shared libraries give the dependencies (dpkg-shlibdeps, in dpkg-dev).
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
# A host building against the headers and static libraries needs what the CMake package finds.
set(zrsimprp_package_recommends "cmake, g++, libsqlite3-dev, libgdal-dev, gdal-bin")
if(ZRSIMPRP_HAS_WIDGETS)
  string(APPEND zrsimprp_package_recommends ", qt6-base-dev, qt6-charts-dev")
endif()
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "${zrsimprp_package_recommends}")
include(CPack)

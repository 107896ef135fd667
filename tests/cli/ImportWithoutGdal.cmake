# An import when the GDAL module cannot be loaded: refused in one sentence, exit status 2, and the
# project file's bytes as they were.
#   cmake -DPROGRAM=zrsim -DWORK_DIR=... -P ImportWithoutGdal.cmake
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
set(project ${WORK_DIR}/mine.gpkg)
file(WRITE ${WORK_DIR}/fields.geojson
     "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\",\"properties\":{\"FID\":1},"
     "\"geometry\":{\"type\":\"Polygon\",\"coordinates\":[[[0,0],[1,0],[1,1],[0,1],[0,0]]]}}]}")
execute_process(COMMAND ${PROGRAM} project new ${project} RESULT_VARIABLE result ERROR_VARIABLE err)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "zrsim project new: status ${result}\n${err}")
endif()
file(READ ${project} before HEX)
set(ENV{ZRSIMPRP_GDAL_MODULE} ${WORK_DIR}/no-such-module.so)
execute_process(COMMAND ${PROGRAM} project import-layer ${project} --from ${WORK_DIR}/fields.geojson
                        --id-field FID --name Fields --kind 1
                RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
set(expected "Reading GIS files needs the GDAL module libzrsimprp_gdal.so, which could not be loaded: it is not installed.")
if(NOT result EQUAL 2)
  message(FATAL_ERROR "zrsim project import-layer without the module: status ${result}, expected 2\n${out}${err}")
endif()
string(FIND "${out}${err}" "${expected}" at)
if(at EQUAL -1)
  message(FATAL_ERROR "The refusal lacks '${expected}':\n${out}${err}")
endif()
file(READ ${project} after HEX)
if(NOT before STREQUAL after)
  message(FATAL_ERROR "The refused import changed the project file")
endif()

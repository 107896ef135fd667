# The preview: detection curves, expected detections and drawn surveys, headless; the sample project
# is loaded the way the command line loads it (zrsim_cli's control session).
find_package(SQLite3 REQUIRED)
set(AREA_LIBS zrsim_cli ZrSIMPrp::ProjectDb SQLite::SQLite3)
set(AREA_NEEDS zrsim_cli zrsimprp_projectdb)

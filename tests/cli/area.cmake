# The command line, driven in-process through its library (zrsim_cli) on sample projects written by
# the tests themselves; the GeoPackage written "by another tool" is made with SQLite directly.
find_package(SQLite3 REQUIRED)
set(AREA_LIBS zrsim_cli ZrSIMPrp::ProjectDb SQLite::SQLite3)
set(AREA_NEEDS zrsim_cli zrsimprp_projectdb)

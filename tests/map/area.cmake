# The density map: the headless model, the GeoPackage geometry reader (against files GDAL writes) and
# the zrsim map command (run as the real programs).
find_package(SQLite3 REQUIRED)
set(AREA_LIBS ZrSIMPrp::ProjectDb SQLite::SQLite3)
set(AREA_NEEDS zrsimprp_projectdb)

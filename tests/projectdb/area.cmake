find_package(SQLite3 REQUIRED)
set(AREA_LIBS ZrSIMPrp::ProjectDb SQLite::SQLite3)
set(AREA_NEEDS zrsimprp_projectdb)

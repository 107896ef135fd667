set(AREA_PARTS host modules page_CPagAnalyses)
# The tests on the sample project file need the project library.
set(AREA_LIBS ZrSIMPrp::ProjectDb)
set(AREA_NEEDS zrsimprp_projectdb)

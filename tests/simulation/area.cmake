set(AREA_PARTS host modules page_CPagSimulation)
# The tests on real project files need the project library.
set(AREA_LIBS ZrSIMPrp::ProjectDb)
set(AREA_NEEDS zrsimprp_projectdb)

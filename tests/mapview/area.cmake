# The density map's Qt side: the live panels in the properties widget, the zrsim map command run
# in-process, and the screenshots of both pages, light and dark. Runs offscreen with its own main.
find_package(Qt6 REQUIRED COMPONENTS Test)
set(AREA_LIBS zrsim_map ZrSIMPrp::Widgets ZrSIMPrp::ProjectDb Qt6::Test)
set(AREA_NEEDS zrsim_map zrsimprp_widgets zrsimprp_projectdb)
set(AREA_OWN_MAIN ON)

# The Qt view: runs offscreen with its own main, which creates the QApplication.
find_package(Qt6 REQUIRED COMPONENTS Test)
set(AREA_LIBS ZrSIMPrp::Widgets Qt6::Test)
set(AREA_NEEDS zrsimprp_widgets)
set(AREA_OWN_MAIN ON)

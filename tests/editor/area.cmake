# The reference host's properties form, offscreen: its own main() creates the QApplication.
find_package(Qt6 QUIET COMPONENTS Test UiPlugin)
set(AREA_LIBS zrsim_editor_lib ZrSIMPrp::Widgets ZrSIMPrp::ProjectDb Qt6::Test Qt6::UiPlugin)
set(AREA_NEEDS zrsim_editor_lib zrsimprp_widgets zrsimprp_projectdb Qt6::Test Qt6::UiPlugin)
set(AREA_OWN_MAIN ON)

# The Qt view: runs offscreen with its own main, which creates the QApplication.
find_package(Qt6 REQUIRED COMPONENTS Test)
set(AREA_LIBS ZrSIMPrp::Widgets Qt6::Test)
set(AREA_NEEDS zrsimprp_widgets)
set(AREA_OWN_MAIN ON)

# A screen reader's view of the running editor (tests/accessibility): an AT-SPI client walks its
# accessible tree on every outer tab, under a virtual X display and a private D-Bus session, and fails
# on a control a person can focus that has no name or no role. Skipped (77) where Xvfb, D-Bus or the
# Python AT-SPI bindings are missing.
if(TARGET zrsim-editor)
  add_test(NAME Accessibility.EveryFocusableControlHasANameAndARole
           COMMAND bash ${PROJECT_SOURCE_DIR}/tests/accessibility/walk-editor.sh $<TARGET_FILE:zrsim-editor>
                   ${PROJECT_BINARY_DIR}/samples/sample.gpkg ${PROJECT_SOURCE_DIR}/tests/accessibility/walk_tree.py)
  set_tests_properties(Accessibility.EveryFocusableControlHasANameAndARole
                       PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 300)
endif()

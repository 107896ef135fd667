# A screen reader's view of the running editor: an AT-SPI client walks its accessible tree under a
# virtual X display and a private D-Bus session, and fails on a control a person can focus that has
# no name or no role. Skipped (77) where Xvfb, D-Bus or the Python AT-SPI bindings are missing.
set(AREA_SKIP ON)
if(TARGET zrsim-editor)
  add_test(NAME Accessibility.EveryFocusableControlHasANameAndARole
           COMMAND bash ${CMAKE_CURRENT_LIST_DIR}/walk-editor.sh $<TARGET_FILE:zrsim-editor>
                   ${PROJECT_BINARY_DIR}/samples/sample.gpkg ${CMAKE_CURRENT_LIST_DIR}/walk_tree.py)
  set_tests_properties(Accessibility.EveryFocusableControlHasANameAndARole
                       PROPERTIES SKIP_RETURN_CODE 77 TIMEOUT 120)
endif()

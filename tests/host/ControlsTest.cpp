#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/Chart.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/ComboTools.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/KeyedList.h"
#include "zrsimprp/host/OptionGroup.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/host/TabControl.h"
#include "zrsimprp/host/TabStrip.h"
#include "zrsimprp/host/TextBox.h"

namespace zrsimprp {
namespace {

TEST(CheckBox, SettingTheValueRunsTheClickHandlerOnlyOnChange) {
  CheckBox box("Add Hotspots");
  int clicks = 0;
  box.SetClickHandler([&] { ++clicks; });
  box.SetValue(CheckBox::kUnchecked);
  EXPECT_EQ(clicks, 0);
  box.SetValue(CheckBox::kChecked);
  EXPECT_EQ(clicks, 1);
  box.SetValue(CheckBox::kChecked);
  EXPECT_EQ(clicks, 1);
  box.SetValue(CheckBox::kGrayed);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(ErrorNumberOf([&] { box.SetValue(3); }), 380);
}

TEST(CheckBox, PersonsClickTogglesOnlyWhenEnabled) {
  CheckBox box;
  int clicks = 0;
  box.SetClickHandler([&] { ++clicks; });
  EXPECT_TRUE(box.UserClick());
  EXPECT_EQ(box.Value(), 1);
  EXPECT_TRUE(box.UserClick());
  EXPECT_EQ(box.Value(), 0);
  box.SetEnabled(false);
  EXPECT_FALSE(box.UserClick());
  EXPECT_EQ(box.Value(), 0);
  EXPECT_EQ(clicks, 2);
}

TEST(OptionGroup, SelectingFromCodeRunsTheClickHandlerEveryTime) {
  OptionGroup group({"a", "b", "c"});
  std::vector<int> clicks;
  group.SetClickHandler([&](int index) { clicks.push_back(index); });
  EXPECT_EQ(group.Selected(), -1);
  group.Select(1);
  group.Select(1);
  group.Select(2);
  EXPECT_EQ(clicks, std::vector<int>({1, 1, 2}));
  EXPECT_TRUE(group.Value(2));
  EXPECT_FALSE(group.Value(1));
  EXPECT_EQ(group.Button(0).Caption(), "a");
  EXPECT_EQ(ErrorNumberOf([&] { group.Select(3); }), 340);
}

TEST(OptionGroup, PersonCannotSelectADisabledButton) {
  OptionGroup group({"a", "b"});
  int clicks = 0;
  group.SetClickHandler([&](int) { ++clicks; });
  group.Button(1).SetEnabled(false);
  EXPECT_FALSE(group.UserSelect(1));
  EXPECT_TRUE(group.UserSelect(0));
  EXPECT_FALSE(group.UserSelect(7));
  EXPECT_EQ(clicks, 1);
  group.Select(1);  // code may still select it
  EXPECT_EQ(group.Selected(), 1);
}

TEST(ComboBox, SettingTheListIndexRunsTheClickHandlerEveryTime) {
  ComboBox list(ComboBox::Style::kListOnly);
  int clicks = 0;
  list.SetClickHandler([&] { ++clicks; });
  list.AddItem("Half-Normal");
  list.AddItem("Hazard Rate");
  list.SetListIndex(1);
  list.SetListIndex(1);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(list.Text(), "Hazard Rate");
  list.SetListIndex(-1);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(ErrorNumberOf([&] { list.SetListIndex(2); }), 380);
  EXPECT_EQ(ErrorNumberOf([&] { list.List(2); }), 381);
}

TEST(ComboBox, ClearEmptiesEntriesIndexAndText) {
  ComboBox list;
  list.AddItem("1 Lines");
  list.SetListIndex(0);
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
}

TEST(ComboBox, EditableTextDeselectsTheEntry) {
  ComboBox list(ComboBox::Style::kEditable, "Design");
  EXPECT_EQ(list.Text(), "Design");
  list.AddItem("12 Lines A");
  list.SetListIndex(0);
  list.SetText(" ");
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), " ");
  EXPECT_TRUE(list.UserType("anything"));
  EXPECT_EQ(list.Text(), "anything");
}

TEST(ComboBox, ListOnlyTextMustBeAnEntry) {
  ComboBox list(ComboBox::Style::kListOnly);
  list.AddItem("AIC");
  list.AddItem("BIC");
  list.SetText("bic");
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(ErrorNumberOf([&] { list.SetText("XYZ"); }), 383);
  EXPECT_FALSE(list.UserType("AIC"));
}

TEST(ComboBox, PersonCannotSelectInADisabledList) {
  ComboBox list;
  list.AddItem("a");
  list.SetEnabled(false);
  EXPECT_FALSE(list.UserSelect(0));
  EXPECT_FALSE(list.UserType("b"));
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST(ComboTools, SelectComboItemMatchesTheWholeTextIgnoringCase) {
  ComboBox list(ComboBox::Style::kListOnly);
  int clicks = 0;
  list.SetClickHandler([&] { ++clicks; });
  list.AddItem("Please Select");
  list.AddItem("Poisson");
  list.AddItem("Negative-Binomial");
  EXPECT_TRUE(ComboTools::SelectComboItem(list, "poisson"));
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(ComboTools::SelectComboItem(list, "Poiss"));
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(clicks, 1);
}

TEST(ComboTools, SelectComboItemOrFirstFallsBackToTheFirstEntry) {
  ComboBox list(ComboBox::Style::kListOnly);
  int clicks = 0;
  list.SetClickHandler([&] { ++clicks; });
  list.AddItem("Line");
  list.AddItem("Point");
  ComboTools::SelectComboItemOrFirst(list, "POINT");
  EXPECT_EQ(list.ListIndex(), 1);
  ComboTools::SelectComboItemOrFirst(list, "Cue");
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(list.Text(), "Line");
  EXPECT_EQ(clicks, 2);
}

TEST(ComboTools, SelectComboItemOrFirstLeavesAnEmptyListAsItIs) {
  ComboBox list(ComboBox::Style::kListOnly);
  int clicks = 0;
  list.SetClickHandler([&] { ++clicks; });
  ComboTools::SelectComboItemOrFirst(list, "Line");
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(clicks, 0);
}

TEST(ComboTools, ShowItemsReplacesTheEntriesAndSelectsTheFirst) {
  ComboBox list(ComboBox::Style::kListOnly);
  list.AddItem("stale");
  int clicks = 0;
  list.SetClickHandler([&] { ++clicks; });
  KeyedList entries;
  entries.AddNumbered(7, "North", 7);
  entries.AddNumbered(9, "South", 9);
  ComboTools::ShowItems(list, entries);
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"7 North", "9 South"}));
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(list.Text(), "7 North");
  EXPECT_EQ(clicks, 1);
}

TEST(ComboTools, ShowItemsOfAnEmptyListSelectsNothing) {
  ComboBox list(ComboBox::Style::kListOnly);
  list.AddItem("stale");
  list.SetListIndex(0);
  int clicks = 0;
  list.SetClickHandler([&] { ++clicks; });
  ComboTools::ShowItems(list, KeyedList());
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
  EXPECT_EQ(clicks, 0);
}

TEST(Grid, ResizingKeepsTheSurvivingCells) {
  Grid grid(2, 3, 1, 1);
  grid.SetTextMatrix(1, 1, "10");
  grid.SetTextMatrix(1, 2, "20");
  grid.SetCols(2);
  EXPECT_EQ(grid.TextMatrix(1, 1), "10");
  grid.SetCols(4);
  EXPECT_EQ(grid.TextMatrix(1, 1), "10");
  EXPECT_EQ(grid.TextMatrix(1, 2), "");
  EXPECT_EQ(grid.TextMatrix(1, 3), "");
  grid.SetRows(1);
  grid.SetRows(3);
  EXPECT_EQ(grid.TextMatrix(1, 1), "");
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.Cols(), 4);
}

TEST(Grid, CellsOutsideTheGridRaise381) {
  Grid grid(2, 2, 1, 1);
  EXPECT_EQ(ErrorNumberOf([&] { grid.TextMatrix(2, 0); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { grid.SetTextMatrix(0, 2, "x"); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { grid.TextMatrix(-1, 0); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { grid.CellBackColor(5, 5); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { grid.SetCellBackColor(0, 0, 2, 1, grid.BackColor()); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { grid.RemoveItem(2); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { grid.SetRow(2); }), 381);
}

TEST(Grid, CellColoursCoverTheWholeRangeInEitherOrder) {
  Grid grid(3, 4, 1, 1);
  const Color grey = grid.BackColorFixed();
  grid.SetCellBackColor(2, 3, 1, 1, grey);
  for (int r = 1; r <= 2; ++r) {
    for (int c = 1; c <= 3; ++c) EXPECT_EQ(grid.CellBackColor(r, c), grey) << r << "," << c;
  }
  grid.SetCellBackColor(1, 2, 1, 2, grid.BackColor());
  EXPECT_EQ(grid.CellBackColor(1, 2), grid.BackColor());
  EXPECT_EQ(grid.CellBackColor(1, 1), grey);
}

TEST(Grid, UnpaintedCellsShowTheNormalOrFixedColour) {
  Grid grid(2, 2, 1, 1);
  EXPECT_EQ(grid.CellBackColor(1, 1), grid.BackColor());
  EXPECT_EQ(grid.CellBackColor(0, 1), grid.BackColorFixed());
  EXPECT_EQ(grid.CellBackColor(1, 0), grid.BackColorFixed());
  EXPECT_NE(grid.BackColor(), grid.BackColorFixed());
}

TEST(Grid, RowsAreAddedRemovedAndInserted) {
  Grid grid(1, 2, 1, 0);
  grid.AddItem("a\tb");
  grid.AddItem("c");
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.TextMatrix(1, 1), "b");
  EXPECT_EQ(grid.TextMatrix(2, 0), "c");
  grid.InsertRow(1);
  EXPECT_EQ(grid.TextMatrix(1, 0), "");
  EXPECT_EQ(grid.TextMatrix(2, 0), "a");
  grid.RemoveItem(2);
  EXPECT_EQ(grid.TextMatrix(2, 0), "c");
  grid.InsertRow(grid.Rows());
  EXPECT_EQ(grid.Rows(), 4);
}

TEST(Grid, PersonsCellEditIsRefusedWhereItMayNotHappen) {
  Grid grid(3, 3, 1, 1);
  grid.SetEditable(true);
  EXPECT_TRUE(grid.UserEditCell(1, 1, "5"));
  EXPECT_EQ(grid.TextMatrix(1, 1), "5");
  EXPECT_FALSE(grid.UserEditCell(0, 1, "x"));  // fixed row
  EXPECT_FALSE(grid.UserEditCell(1, 0, "x"));  // fixed column
  EXPECT_FALSE(grid.UserEditCell(3, 1, "x"));  // outside
  grid.SetBeforeEditHandler([&grid](int row, int col, bool& cancel) {
    EXPECT_EQ(grid.Row(), row);  // the cursor is on the cell being edited
    EXPECT_EQ(grid.Col(), col);
    cancel = grid.CellBackColor(row, col) != grid.BackColor();
  });
  grid.SetCellBackColor(2, 2, 2, 2, grid.BackColorFixed());
  EXPECT_FALSE(grid.UserEditCell(2, 2, "x"));
  EXPECT_EQ(grid.TextMatrix(2, 2), "");
  EXPECT_TRUE(grid.UserEditCell(2, 1, "y"));
  grid.SetEditable(false);
  EXPECT_FALSE(grid.UserEditCell(1, 1, "6"));
  grid.SetEditable(true);
  grid.SetEnabled(false);
  EXPECT_FALSE(grid.UserEditCell(1, 1, "6"));
  EXPECT_EQ(grid.TextMatrix(1, 1), "5");
}

TEST(Grid, CursorStaysInsideWhenTheGridShrinks) {
  Grid grid(5, 3, 1, 0);
  grid.SetRow(4);
  grid.SetCol(2);
  grid.SetRows(2);
  grid.SetCols(1);
  EXPECT_EQ(grid.Row(), 1);
  EXPECT_EQ(grid.Col(), 0);
  grid.SetRows(0);
  EXPECT_EQ(grid.Row(), -1);
}

TEST(Grid, ChangesAreNotifiedToTheView) {
  Grid grid(2, 2, 1, 1);
  int notifications = 0;
  const int id = grid.Subscribe([&] { ++notifications; });
  grid.SetTextMatrix(1, 1, "x");
  grid.SetTextMatrix(1, 1, "x");  // no change, no notification
  EXPECT_EQ(notifications, 1);
  grid.Unsubscribe(id);
  grid.SetTextMatrix(1, 1, "y");
  EXPECT_EQ(notifications, 1);
}

TEST(TabControl, ChangeFromCodeRunsBeforeAndAfterHandlersLikeAClick) {
  TabControl tabs({"&Simulation", "&Density", "&Population"});
  std::vector<std::string> events;
  tabs.SetBeforeChangeHandler(
      [&](int& new_index) { events.push_back("before " + std::to_string(new_index)); });
  tabs.SetAfterChangeHandler([&](int new_index) { events.push_back("after " + std::to_string(new_index)); });
  EXPECT_TRUE(tabs.SetCurrentTab(2));
  EXPECT_FALSE(tabs.SetCurrentTab(2));  // already current: no event
  EXPECT_TRUE(tabs.UserSelectTab(0));
  EXPECT_EQ(events, std::vector<std::string>({"before 2", "after 2", "before 0", "after 0"}));
  EXPECT_EQ(ErrorNumberOf([&] { tabs.SetCurrentTab(3); }), 380);
}

TEST(TabControl, BeforeChangeHandlerRefusesWithMinusOne) {
  TabControl tabs({"a", "b"});
  bool after = false;
  tabs.SetBeforeChangeHandler([](int& new_index) { new_index = -1; });
  tabs.SetAfterChangeHandler([&](int) { after = true; });
  EXPECT_FALSE(tabs.UserSelectTab(1));
  EXPECT_EQ(tabs.CurrentTab(), 0);
  EXPECT_FALSE(after);
}

TEST(TabStrip, SelectFromCodeRunsNoEventButAClickDoes) {
  TabStrip strip({{"General", "General"}, {"Covariates", "Covariates"}});
  std::vector<std::string> keys;
  strip.SetClickHandler([&](const std::string& key) { keys.push_back(key); });
  EXPECT_EQ(strip.SelectedIndex(), 1);
  strip.Select(2);
  EXPECT_TRUE(keys.empty());
  EXPECT_EQ(strip.SelectedKey(), "Covariates");
  EXPECT_TRUE(strip.UserClickTab(1));
  EXPECT_EQ(keys, std::vector<std::string>({"General"}));
  EXPECT_EQ(ErrorNumberOf([&] { strip.Select(3); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { strip.Key(0); }), 381);
}

TEST(Button, ClickRunsOnlyWhenEnabled) {
  Button button("+");
  int clicks = 0;
  button.SetClickHandler([&] { ++clicks; });
  EXPECT_TRUE(button.UserClick());
  button.SetEnabled(false);
  EXPECT_FALSE(button.UserClick());
  EXPECT_EQ(clicks, 1);
}

TEST(TextBox, TypingIsRefusedWhileDisabled) {
  TextBox box("1");
  EXPECT_TRUE(box.UserType("250"));
  box.SetEnabled(false);
  EXPECT_FALSE(box.UserType("3"));
  EXPECT_EQ(box.Text(), "250");
}

TEST(Chart, DataRowsAndColumnsCountFromOne) {
  Chart chart;
  chart.SetDataGridSize(1, 2, 50, 2);
  EXPECT_EQ(chart.RowCount(), 50);
  EXPECT_EQ(chart.ColumnCount(), 2);
  chart.SetData(50, 2, 1.5);
  EXPECT_DOUBLE_EQ(chart.Data(50, 2), 1.5);
  EXPECT_EQ(ErrorNumberOf([&] { chart.Data(0, 1); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { chart.SetData(51, 1, 0); }), 381);
}

}  // namespace
}  // namespace zrsimprp

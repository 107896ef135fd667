#include <gtest/gtest.h>

#include <QApplication>
#include <QRadioButton>
#include <QTest>

#include "EditorFixture.h"
#include "zrsim-editor/FindingNavigator.h"
#include "zrsim-editor/LiveLint.h"
#include "zrsim-editor/WarningsBar.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/lint/Finding.h"
#include "zrsimprp/qt/grid/GridView.h"

namespace {

using zrsim_editor::FindingNavigator;

class FindingNavigatorTest : public EditorFixture {
 protected:
  void ShowActive() {
    OpenWindow();
    window_->resize(window_->DefaultSize());
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    window_->Properties().ShowOuterTab(0);
    ASSERT_EQ(window_->Properties().CurrentOuterTab(), 0);
  }
  zrsimprp::SIMProperties& Control() { return window_->Properties().Control(); }
};

// As the lint gives it: a density of 0 in the sample's second stratum.
zrsimprp::Finding ZeroDensityInTheSecondStratum() {
  zrsimprp::Finding finding;
  finding.code = "ZR601";
  finding.entry = "Density";
  finding.field = "Densities";
  finding.place_kind = "stratum";
  finding.place = "Central";
  finding.strata = {{1, "2", "Central"}};
  finding.page = "Density";
  finding.control = "flxConstantDensity";
  return finding;
}

TEST_F(FindingNavigatorTest, AStratumFindingSelectsTheFirstStratumsCellAsAClickWould) {
  ShowActive();
  const zrsimprp::Grid& grid = Control().pagDensity.flxConstantDensity;
  ASSERT_GE(grid.Cols(), 3);
  ASSERT_TRUE(FindingNavigator::GoTo(window_->Properties(), ZeroDensityInTheSecondStratum()));
  EXPECT_EQ(window_->Properties().CurrentOuterTab(), 1);
  EXPECT_EQ(grid.Row(), 1);
  EXPECT_EQ(grid.Col(), grid.FixedCols() + 1);
  // The view shows the same cell and has the focus; the cell's text is untouched.
  ASSERT_TRUE(QTest::qWaitFor(
      [] { return qobject_cast<zrsimprp::GridView*>(QApplication::focusWidget()) != nullptr; }, 2000));
  auto* view = qobject_cast<zrsimprp::GridView*>(QApplication::focusWidget());
  EXPECT_EQ(view->currentIndex().row(), 1);
  EXPECT_EQ(view->currentIndex().column(), grid.FixedCols() + 1);
  EXPECT_EQ(grid.TextMatrix(1, grid.FixedCols() + 1), "1.5");
}

TEST_F(FindingNavigatorTest, ClickingTheLintsZeroDensityWarningSelectsTheStratumsCell) {
  ShowActive();
  zrsimprp::Grid& grid = Control().pagDensity.flxConstantDensity;
  window_->Properties().ShowOuterTab(1);
  ASSERT_TRUE(grid.UserEditCell(1, grid.FixedCols() + 1, "0"));
  ASSERT_TRUE(grid.UserSelectCell(1, grid.FixedCols()));
  window_->Properties().RefreshNow();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window_->Warnings().FindingCount() == 1; }, 5000))
      << window_->Warnings().Text().toStdString();
  ASSERT_NE(window_->Warnings().Text().indexOf("ZR601"), -1) << window_->Warnings().Text().toStdString();
  window_->Properties().ShowOuterTab(0);
  window_->Warnings().Activate(0);
  EXPECT_EQ(window_->Properties().CurrentOuterTab(), 1);
  EXPECT_EQ(grid.Row(), 1);
  EXPECT_EQ(grid.Col(), grid.FixedCols() + 1);
}

TEST_F(FindingNavigatorTest, AHotspotFindingSelectsTheHotspotsRow) {
  ShowActive();
  const zrsimprp::Grid& grid = Control().pagDensity.flxHotspots;
  ASSERT_GE(grid.Rows(), grid.FixedRows() + 2) << "the sample has two hotspots";
  zrsimprp::Finding finding;
  finding.code = "ZR603";
  finding.entry = "Hotspot";
  finding.place_kind = "hotspot";
  finding.place = "2";
  finding.page = "Density";
  finding.control = "flxHotspots";
  ASSERT_TRUE(FindingNavigator::GoTo(window_->Properties(), finding));
  EXPECT_EQ(grid.Row(), grid.FixedRows() + 1);
  EXPECT_EQ(grid.Col(), grid.FixedCols());
}

TEST_F(FindingNavigatorTest, AParameterFindingSelectsItsRow) {
  ShowActive();
  const zrsimprp::Grid& grid = Control().pagDetectability.flxDetect;
  zrsimprp::Finding finding;
  finding.code = "ZR609";
  finding.entry = "DetFuncParam";
  finding.field = "Scale";
  finding.place_kind = "parameter";
  finding.place = "Shape";
  finding.page = "Detectability";
  finding.control = "flxDetect";
  ASSERT_TRUE(FindingNavigator::GoTo(window_->Properties(), finding));
  ASSERT_GE(grid.Row(), 0);
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 0), "Shape");
  EXPECT_EQ(grid.Col(), grid.FixedCols());
}

TEST_F(FindingNavigatorTest, AFindingWithoutStrataLeavesTheGridsCursorAlone) {
  ShowActive();
  const zrsimprp::Grid& grid = Control().pagDensity.flxConstantDensity;
  const int row = grid.Row();
  const int col = grid.Col();
  zrsimprp::Finding finding = ZeroDensityInTheSecondStratum();
  finding.place_kind.clear();
  finding.place.clear();
  finding.strata.clear();
  ASSERT_TRUE(FindingNavigator::GoTo(window_->Properties(), finding));
  EXPECT_EQ(grid.Row(), row);
  EXPECT_EQ(grid.Col(), col);
}

TEST_F(FindingNavigatorTest, AnOptionGroupFindingFocusesTheSelectedOptionButton) {
  ShowActive();
  zrsimprp::Finding finding;
  finding.code = "ZR107";
  finding.entry = "PopSize";
  finding.page = "General";
  finding.control = "optNcalculation";
  ASSERT_TRUE(FindingNavigator::GoTo(window_->Properties(), finding));
  ASSERT_TRUE(QTest::qWaitFor(
      [] { return qobject_cast<QRadioButton*>(QApplication::focusWidget()) != nullptr; }, 2000));
  auto* radio = qobject_cast<QRadioButton*>(QApplication::focusWidget());
  // The one that is on: the model's selected option button.
  EXPECT_TRUE(radio->isChecked());
}

}  // namespace

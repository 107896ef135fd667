#include <gtest/gtest.h>

#include <QHeaderView>
#include <QSplitter>
#include <QTest>
#include <memory>
#include <string>

#include "QtTestSupport.h"
#include "StrataInRegionProject.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/map/StrataMapPanel.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

// A survey over a layer of 281 strata inside a one-stratum region.
std::shared_ptr<MemoryProjectDatabase> ManyStrata() { return testing::StrataInRegionProject(281, "Tract "); }

class MapRoomTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CModGlobal::Clear();
    widget_ = std::make_unique<SIMPropertiesWidget>();
    widget_->Platform().SetMessageSink([](const std::string&, const std::string&, MessageIcon) {});
    widget_->resize(1200, 700);
    widget_->SetProjectDatabase(ManyStrata());
    widget_->SetDefinition("Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n");
    widget_->Initialize();
    widget_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(widget_.get()));
    RunEventLoopTurn();
  }
  void TearDown() override {
    widget_.reset();
    CModGlobal::Clear();
  }
  // How many strata columns of the density table show whole.
  int ShownStrataColumns(GridView* grid) {
    int shown = 0;
    const int width = grid->viewport()->width();
    for (int c = 1; c < grid->model()->columnCount(); ++c) {
      const int left = grid->columnViewportPosition(c);
      if (left >= 0 && left + grid->columnWidth(c) <= width) ++shown;
    }
    return shown;
  }

  std::unique_ptr<SIMPropertiesWidget> widget_;
};

TEST_F(MapRoomTest, TheDensityTableTakesMoreThanHalfTheWidthAndASplitterWidensIt) {
  widget_->ShowOuterTab(1);
  RunEventLoopTurn();
  auto* grid = widget_->findChild<GridView*>(QStringLiteral("flxConstantDensity"));
  ASSERT_NE(grid, nullptr);
  QSplitter* splitter = nullptr;
  for (QWidget* w = grid->parentWidget(); w != nullptr && splitter == nullptr; w = w->parentWidget()) {
    splitter = qobject_cast<QSplitter*>(w);
  }
  ASSERT_NE(splitter, nullptr) << "the table and the map share the page through a splitter";
  ASSERT_EQ(splitter->count(), 2);
  EXPECT_GT(grid->width(), widget_->width() / 2);
  const int shown = ShownStrataColumns(grid);
  EXPECT_GE(shown, 8);

  const int whole = splitter->sizes()[0] + splitter->sizes()[1];
  splitter->setSizes({whole - splitter->widget(1)->minimumSizeHint().width(),
                      splitter->widget(1)->minimumSizeHint().width()});
  RunEventLoopTurn();
  EXPECT_GT(ShownStrataColumns(grid), shown);
}

TEST_F(MapRoomTest, TheSimulationPagesStrataMapUsesTheRoomItHas) {
  widget_->ShowOuterTab(0);
  RunEventLoopTurn();
  auto* map = widget_->findChild<StrataMapPanel*>();
  ASSERT_NE(map, nullptr);
  EXPECT_GT(map->height(), 400);
  EXPECT_GT(map->width(), 400);
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <memory>

#include "projectdb/GeoPackageProject.h"
#include "tests/mapview/MapViewFixture.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/map/DensityMapPanel.h"
#include "zrsimprp/qt/map/MapCanvas.h"

namespace zrsimprp {
namespace {

class MapNavigationTest : public map_view_test::TempProject {
 protected:
  void SetUp() override {
    map_view_test::TempProject::SetUp();
    project_ = GeoPackageProject::Open(Sample());
    widget_ = std::make_unique<SIMPropertiesWidget>();
    widget_->resize(1000, 700);
    widget_->SetProjectDatabase(project_);
    widget_->SetDefinition(project_->SimulationDefinition("Sample simulation"));
    widget_->Initialize();
    widget_->show();
    widget_->ShowOuterTab(1);
    auto* panel = widget_->findChild<DensityMapPanel*>();
    ASSERT_NE(panel, nullptr);
    panel->RedrawNow();
    canvas_ = panel->findChild<MapCanvas*>();
    table_ = widget_->findChild<GridView*>(QStringLiteral("flxConstantDensity"));
    ASSERT_TRUE(canvas_ && table_);
    canvas_->repaint();
  }
  void TearDown() override {
    widget_.reset();
    project_.reset();
    map_view_test::TempProject::TearDown();
  }
  void Wheel(QPoint at, int delta) {
    QWheelEvent wheel(at, canvas_->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(canvas_, &wheel);
    canvas_->repaint();
  }
  // Clicks the first point, scanning the canvas with the pointer, that lies on a stratum; the stratum
  // the map reports, or -1.
  int ClickFirstStratum() {
    QString said;
    auto hover = QObject::connect(canvas_, &MapCanvas::PointerDescribed,
                                  [&said](const QString& text) { said = text; });
    QPoint where(-1, -1);
    for (int y = 10; y < canvas_->height() && where.x() < 0; y += 10) {
      for (int x = 10; x < canvas_->width() && where.x() < 0; x += 10) {
        QTest::mouseMove(canvas_, QPoint(x, y));
        if (said.startsWith(QStringLiteral("stratum "))) where = QPoint(x, y);
      }
    }
    QObject::disconnect(hover);
    if (where.x() < 0) return -1;
    int clicked = -1;
    auto click = QObject::connect(canvas_, &MapCanvas::StratumClicked, [&clicked](int s) { clicked = s; });
    QTest::mouseClick(canvas_, Qt::LeftButton, Qt::NoModifier, where);
    QObject::disconnect(click);
    return clicked;
  }

  std::shared_ptr<GeoPackageProject> project_;
  std::unique_ptr<SIMPropertiesWidget> widget_;
  MapCanvas* canvas_ = nullptr;
  GridView* table_ = nullptr;
};

TEST_F(MapNavigationTest, TheWheelZoomsAndHomeOrADoubleClickShowsTheWholeRegionAgain) {
  const QPoint middle(canvas_->width() / 2, canvas_->height() / 3);
  Wheel(middle, 240);
  EXPECT_DOUBLE_EQ(canvas_->Zoom(), 1.5625);
  Wheel(middle, -120);
  EXPECT_DOUBLE_EQ(canvas_->Zoom(), 1.25);
  canvas_->setFocus();
  QTest::keyClick(canvas_, Qt::Key_Home);
  EXPECT_DOUBLE_EQ(canvas_->Zoom(), 1);
  Wheel(middle, 120);
  // Sent straight to the map: the test's pointer is left with no button held for the next test.
  QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(middle), canvas_->mapToGlobal(QPointF(middle)),
                    Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(canvas_, &twice);
  EXPECT_DOUBLE_EQ(canvas_->Zoom(), 1);
  Wheel(middle, -480);
  EXPECT_DOUBLE_EQ(canvas_->Zoom(), 1) << "the whole region is as far out as the map goes";
}

TEST_F(MapNavigationTest, ClickingAStratumSelectsItsColumnAndSelectingAColumnOutlinesItsStratum) {
  const int stratum = ClickFirstStratum();
  ASSERT_GE(stratum, 0) << "no stratum under any point of the map";
  EXPECT_EQ(table_->currentIndex().column(), stratum + 1);
  EXPECT_EQ(table_->currentIndex().row(), 1);
  EXPECT_EQ(canvas_->HighlightedStratum(), stratum);
  table_->setCurrentIndex(table_->model()->index(1, 3));
  EXPECT_EQ(canvas_->HighlightedStratum(), 2);
  EXPECT_EQ(widget_->Control().pagDensity.flxConstantDensity.Col(), 3);
}

TEST_F(MapNavigationTest, HoveringNamesTheStratumsPlaceIdAndLabel) {
  QString said;
  QObject::connect(canvas_, &MapCanvas::PointerDescribed, [&said](const QString& text) { said = text; });
  for (int y = 10; y < canvas_->height() && !said.startsWith(QStringLiteral("stratum ")); y += 10) {
    for (int x = 10; x < canvas_->width() && !said.startsWith(QStringLiteral("stratum ")); x += 10) {
      QTest::mouseMove(canvas_, QPoint(x, y));
    }
  }
  EXPECT_TRUE(said.startsWith(QStringLiteral("stratum "))) << said.toStdString();
  EXPECT_TRUE(said.contains(QStringLiteral(" of 3, id "))) << said.toStdString();
}

}  // namespace
}  // namespace zrsimprp

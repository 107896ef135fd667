#include <gtest/gtest.h>

#include <QPushButton>

#include "EditorFixture.h"
#include "zrsim-editor/PreviewBeside.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/map/MapCanvas.h"
#include "zrsimprp/qt/map/PreviewPanel.h"

namespace {

using EditorPreviewTest = EditorFixture;

TEST_F(EditorPreviewTest, ThePreviewIsClosedUntilAskedFor) {
  OpenWindow();
  EXPECT_EQ(window_->Preview().Panel(), nullptr);
  EXPECT_EQ(window_->findChild<zrsimprp::PreviewPanel*>(), nullptr);
}

// The editor's routed project must still give the preview the designs, surveys and polygons.
TEST_F(EditorPreviewTest, OpeningThePreviewShowsTheSamplesExpectedDetections) {
  OpenWindow();
  window_->Preview().Toggle()->click();
  zrsimprp::PreviewPanel* panel = window_->Preview().Panel();
  ASSERT_NE(panel, nullptr);
  panel->RecomputeNow();
  ASSERT_TRUE(panel->Current());
  ASSERT_TRUE(panel->Current()->Usable()) << panel->Current()->refusal;
  EXPECT_EQ(panel->Current()->design_name, "Systematic parallel lines");
  EXPECT_EQ(panel->Current()->strata.size(), 3u);
  window_->Preview().Toggle()->click();
  EXPECT_FALSE(panel->isVisibleTo(window_.get()));
}

// Types into a cell of the grid's view, as a person's edit reaches the grid.
void TypeInCell(QWidget& root, const zrsimprp::Grid& grid, int row, int col, const QString& text) {
  for (zrsimprp::GridBinder* binder : root.findChildren<zrsimprp::GridBinder*>()) {
    if (&static_cast<zrsimprp::ControlBinder*>(binder)->Model() != &grid) continue;
    auto* view = qobject_cast<zrsimprp::GridView*>(binder->Widget());
    ASSERT_NE(view, nullptr);
    ASSERT_TRUE(view->model()->setData(view->model()->index(row, col), text, Qt::EditRole));
    return;
  }
  FAIL() << "no view shows the grid";
}

TEST_F(EditorPreviewTest, TheMeanClusterSizeReachesThePreviewWithoutLeavingThePopulationTab) {
  OpenWindow();
  zrsimprp::SIMPropertiesWidget& properties = window_->Properties();
  properties.ShowOuterTab(2);
  properties.ShowInnerTab(1);
  ASSERT_EQ(properties.CurrentOuterTab(), 2);
  window_->Preview().SetPreviewShown(true);
  zrsimprp::PreviewPanel* panel = window_->Preview().Panel();
  ASSERT_NE(panel, nullptr);
  panel->RecomputeNow();
  ASSERT_TRUE(panel->Current() && panel->Current()->Usable());
  // The sample's clusters: Poisson with lambda 3.
  const auto clusters_of = [panel] {
    return panel->Current()->expected_individuals / panel->Current()->expected_detections;
  };
  EXPECT_NEAR(clusters_of(), 3, 1e-9);
  const double individuals = panel->Current()->expected_individuals;
  TypeInCell(properties, properties.Control().pagPopulation.flxClusterParam, 1, 1, "6");
  ASSERT_EQ(properties.Control().pagPopulation.flxClusterParam.TextMatrix(1, 1), "6");
  // The window is not shown, so the panel recomputes when asked.
  panel->RecomputeNow();
  EXPECT_NE(panel->Current()->expected_individuals, individuals);
  EXPECT_NEAR(clusters_of(), 6, 1e-9);
  EXPECT_EQ(properties.CurrentOuterTab(), 2);
  EXPECT_EQ(properties.CurrentInnerTab(), 1);
}

TEST_F(EditorPreviewTest, LookingAtThePreviewLeavesTheDefinitionUnchanged) {
  OpenWindow();
  window_->Preview().SetPreviewShown(true);
  window_->Preview().Panel()->RecomputeNow();
  window_->Preview().Panel()->DrawAgain();
  EXPECT_FALSE(window_->IsModified());
}

TEST_F(EditorPreviewTest, TheDrawnSurveyIsShownOnTheDensityMapUntilThePreviewCloses) {
  OpenWindow();
  zrsim_editor::PreviewBeside& preview = window_->Preview();
  ASSERT_NE(preview.DensityMapCanvas(), nullptr);
  preview.SetPreviewShown(true);
  EXPECT_FALSE(preview.DensityMapCanvas()->HasOverlay());
  preview.Panel()->DrawButton()->click();
  EXPECT_TRUE(preview.DensityMapCanvas()->HasOverlay());
  preview.SetPreviewShown(false);
  EXPECT_FALSE(preview.DensityMapCanvas()->HasOverlay());
}

}  // namespace

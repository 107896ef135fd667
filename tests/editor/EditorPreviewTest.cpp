#include <gtest/gtest.h>

#include <QPushButton>

#include "EditorFixture.h"
#include "zrsim-editor/PreviewBeside.h"
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

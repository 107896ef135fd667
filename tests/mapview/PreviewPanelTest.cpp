#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <memory>

#include "projectdb/GeoPackageProject.h"
#include "tests/mapview/MapViewFixture.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/map/MapCanvas.h"
#include "zrsimprp/qt/map/PreviewPanel.h"

namespace zrsimprp {
namespace {

class PreviewPanelTest : public map_view_test::TempProject {
 protected:
  void SetUp() override {
    map_view_test::TempProject::SetUp();
    project_ = GeoPackageProject::Open(Sample());
    widget_ = std::make_unique<SIMPropertiesWidget>();
    widget_->SetProjectDatabase(project_);
    widget_->SetDefinition(project_->SimulationDefinition("Sample simulation"));
    widget_->Initialize();
    panel_ = std::make_unique<PreviewPanel>(widget_->Control());
    panel_->resize(360, 700);
    panel_->show();
    panel_->RecomputeNow();
  }
  void TearDown() override {
    panel_.reset();
    widget_.reset();
    project_.reset();
    map_view_test::TempProject::TearDown();
  }
  bool WaitForRecompute(int64_t after) {
    return QTest::qWaitFor([&]() { return panel_->Recomputations() > after; }, 1000);
  }

  std::shared_ptr<GeoPackageProject> project_;
  std::unique_ptr<SIMPropertiesWidget> widget_;
  std::unique_ptr<PreviewPanel> panel_;
};

TEST_F(PreviewPanelTest, ShowsTheExpectedDetectionsOfTheSample) {
  const auto& preview = panel_->Current();
  ASSERT_TRUE(preview);
  ASSERT_TRUE(preview->Usable()) << preview->refusal;
  ASSERT_EQ(preview->strata.size(), 3u);
  EXPECT_EQ(preview->strata[0].animals, 400);
  EXPECT_DOUBLE_EQ(preview->strata[0].coverage, 0.8);
  EXPECT_TRUE(panel_->SummaryText().contains("Expected detections per repetition"))
      << panel_->SummaryText().toStdString();
  EXPECT_TRUE(panel_->SummaryText().contains("CV guide"));
  EXPECT_FALSE(panel_->SurveyMap()->isVisible());
}

TEST_F(PreviewPanelTest, FollowsAnEditOfThePopulation) {
  const double before = panel_->Current()->strata[1].expected_detections;
  const int64_t recomputed = panel_->Recomputations();
  ASSERT_TRUE(widget_->Control().pagPopulation.flxN.UserEditCell(1, 2, "500"));
  ASSERT_TRUE(WaitForRecompute(recomputed));
  EXPECT_DOUBLE_EQ(panel_->Current()->strata[1].animals, 500);
  EXPECT_NEAR(panel_->Current()->strata[1].expected_detections, 2 * before, 1e-9);
}

TEST_F(PreviewPanelTest, ManyEditsInARowAreComputedOnce) {
  const int64_t recomputed = panel_->Recomputations();
  for (const char* value : {"1", "10", "100", "1000"}) {
    widget_->Control().pagPopulation.flxN.UserEditCell(1, 1, value);
  }
  ASSERT_TRUE(WaitForRecompute(recomputed));
  QTest::qWait(3 * PreviewPanel::kSettleMs);
  EXPECT_EQ(panel_->Recomputations(), recomputed + 1);
  EXPECT_DOUBLE_EQ(panel_->Current()->strata[0].animals, 1000);
}

TEST_F(PreviewPanelTest, DrawingShowsTheSurveyAndDrawAgainDrawsAnother) {
  panel_->DrawButton()->click();
  const auto first = panel_->Survey();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->seed, 1u);
  EXPECT_EQ(first->total_animals, 1000u);
  EXPECT_TRUE(panel_->SurveyMap()->isVisible());
  EXPECT_EQ(panel_->DrawButton()->text(), "Draw &again");
  EXPECT_TRUE(panel_->SummaryText().contains("drawn survey (seed 1)"));
  panel_->DrawButton()->click();
  EXPECT_EQ(panel_->Survey()->seed, 2u);
  EXPECT_NE(panel_->Survey()->animals.front().x, first->animals.front().x);
}

TEST_F(PreviewPanelTest, AnEditKeepsTheSeedOfTheDrawnSurvey) {
  panel_->DrawAgain();
  const auto drawn = panel_->Survey();
  EXPECT_TRUE(drawn->notes.empty());
  const int64_t recomputed = panel_->Recomputations();
  widget_->Control().pagPopulation.flxN.UserEditCell(1, 3, "351");
  ASSERT_TRUE(WaitForRecompute(recomputed));
  EXPECT_EQ(panel_->Survey()->seed, drawn->seed);
  EXPECT_EQ(panel_->Survey()->animals_by_stratum[2], 351u);
  // The strata before the edited one are drawn exactly as before.
  EXPECT_EQ(panel_->Survey()->animals.front().x, drawn->animals.front().x);
}

TEST_F(PreviewPanelTest, AValueItCannotUseIsASentence) {
  const int64_t recomputed = panel_->Recomputations();
  ASSERT_TRUE(widget_->Control().pagDetectability.flxDetect.UserEditCell(1, 1, "wide"));
  ASSERT_TRUE(WaitForRecompute(recomputed));
  EXPECT_EQ(panel_->SummaryText().toStdString(),
            "The Scale for 'Study Area' ('wide') is not a number, so the detections cannot be previewed.");
  EXPECT_FALSE(panel_->DrawButton()->isEnabled());
}

}  // namespace
}  // namespace zrsimprp

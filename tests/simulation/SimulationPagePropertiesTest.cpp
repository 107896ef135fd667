#include <functional>
#include <string>
#include <vector>

#include "SimulationTestProject.h"

namespace zrsimprp {
namespace {

using Strings = std::vector<std::string>;

TEST_F(SimulationPageTest, SurveyObjectIDOfZeroChangesNothing) {
  InitializeStandard();
  page_.SetSurveyObjectID("14");
  const int rows_before = db_->Calls("GetRows");
  page_.SetSurveyObjectID("0");
  EXPECT_EQ(page_.cboSurvey.Text(), "14 Zigzag");
  EXPECT_EQ(LayerList(), (Strings{"Blocks", "Region"}));
  EXPECT_EQ(db_->Calls("GetRows"), rows_before);
}

TEST_F(SimulationPageTest, SurveyObjectIDSelectsTheSurveyWithThatKey) {
  InitializeStandard();
  page_.SetSurveyObjectID("14");
  EXPECT_EQ(page_.cboSurvey.Text(), "14 Zigzag");
  EXPECT_EQ(page_.TransectObjectID(), "14");
  EXPECT_EQ(page_.StrataLayer(), "Blocks");
  EXPECT_EQ(page_.StrataNum(), 2);
}

TEST_F(SimulationPageTest, UnknownSurveyObjectIDSelectsTheFirstSurvey) {
  InitializeStandard();
  page_.SetSurveyObjectID("14");
  page_.SetSurveyObjectID("99");
  EXPECT_EQ(page_.cboSurvey.Text(), "12 Lines A");
  EXPECT_EQ(page_.StrataLayer(), "Strata");
}

TEST_F(SimulationPageTest, SurveyOfStatusZeroCannotBeSelectedByIdentifier) {
  InitializeStandard();
  page_.SetSurveyObjectID("13");
  EXPECT_EQ(page_.cboSurvey.Text(), "12 Lines A");
}

TEST_F(SimulationPageTest, SurveyObjectIDWithoutSurveysSelectsNothing) {
  UseProject();
  page_.Initialize();
  page_.SetSurveyObjectID("12");
  EXPECT_EQ(page_.cboSurvey.Text(), "");
  EXPECT_EQ(page_.TransectObjectID(), "0");
}

TEST_F(SimulationPageTest, DesignObjectIDOfZeroSelectsTheFirstDesign) {
  InitializeStandard();
  page_.SetDesignObjectID("0");
  EXPECT_EQ(page_.cboDesign.Text(), "5 Design A");
  EXPECT_EQ(page_.cboDesign.ListIndex(), 0);
}

TEST_F(SimulationPageTest, DesignObjectIDSelectsTheDesignWithThatKey) {
  InitializeStandard();
  page_.SetDesignObjectID("6");
  EXPECT_EQ(page_.cboDesign.Text(), "6 Design B");
  page_.SetDesignObjectID("77");
  EXPECT_EQ(page_.cboDesign.Text(), "5 Design A");
}

TEST_F(SimulationPageTest, DesignObjectIDWithoutDesignsLeavesTheBlank) {
  UseProject();
  page_.Initialize();
  page_.SetDesignObjectID("0");
  EXPECT_EQ(page_.cboDesign.Text(), " ");
}

TEST_F(SimulationPageTest, TransectObjectTypeDesignTurnsTheDesignOptionOnWhateverItsCase) {
  InitializeStandard();
  page_.SetTransectObjectType("dEsIgN");
  EXPECT_EQ(page_.TransectObjectType(), "Design");
  EXPECT_TRUE(page_.cboDesign.Enabled());
  EXPECT_EQ(page_.cboDesign.BackColor(), Color::System(SystemColorRole::kWindowBackground));
  EXPECT_FALSE(page_.cboSurvey.Enabled());
  EXPECT_EQ(page_.cboSurvey.BackColor(), Color::System(SystemColorRole::kButtonFace));
}

TEST_F(SimulationPageTest, AnyOtherTransectObjectTypeTurnsTheSurveyOptionOn) {
  InitializeStandard();
  page_.SetTransectObjectType("Design");
  page_.SetTransectObjectType("Anything");
  EXPECT_EQ(page_.TransectObjectType(), "Survey");
  EXPECT_TRUE(page_.cboSurvey.Enabled());
  EXPECT_FALSE(page_.cboDesign.Enabled());
}

TEST_F(SimulationPageTest, TransectObjectIDFollowsTheOptionThatIsOn) {
  InitializeStandard();
  EXPECT_EQ(page_.TransectObjectID(), "12");
  page_.SetTransectObjectType("Design");
  // The blank that Initialize leaves is not empty, and nothing stands before its blank.
  EXPECT_EQ(page_.TransectObjectID(), "");
  page_.SetDesignObjectID("6");
  EXPECT_EQ(page_.TransectObjectID(), "6");
  page_.cboDesign.SetText("");
  EXPECT_EQ(page_.TransectObjectID(), "0");
}

TEST_F(SimulationPageTest, TransectObjectIDOfAnEmptySurveyBoxIsZero) {
  InitializeStandard();
  page_.cboSurvey.SetText("");
  EXPECT_EQ(page_.TransectObjectID(), "0");
}

TEST_F(SimulationPageTest, StrataLayerNoneChangesNothingWhateverItsCase) {
  InitializeStandard();
  page_.SetStrataLayer("Region");
  for (const char* none : {"None", "none", "NONE"}) {
    page_.SetStrataLayer(none);
    EXPECT_EQ(page_.StrataLayer(), "Region") << none;
    EXPECT_EQ(page_.StrataNum(), 1) << none;
  }
}

TEST_F(SimulationPageTest, UnknownStrataLayerSelectsTheFirstEntry) {
  InitializeStandard();
  page_.SetStrataLayer("Region");
  page_.SetStrataLayer("Atlantis");
  EXPECT_EQ(page_.StrataLayer(), "Strata");
  EXPECT_EQ(page_.StrataNum(), 3);
}

TEST_F(SimulationPageTest, StrataLayerOnAnEmptyListSelectsNothing) {
  UseProject();
  page_.Initialize();
  page_.SetStrataLayer("Strata");
  EXPECT_EQ(page_.StrataLayer(), "None");
  EXPECT_EQ(page_.StrataNum(), 0);
}

TEST_F(SimulationPageTest, StrataNamesIsACopy) {
  InitializeStandard();
  std::vector<std::string> names = page_.StrataNames();
  names[0] = "Changed";
  EXPECT_EQ(page_.StrataNames()[0], "North");
}

TEST_F(SimulationPageTest, RepsGivesBackTheTextAsTypedAndTakesAnyText) {
  page_.SetReps(" 12 ");
  EXPECT_EQ(page_.Reps(), " 12 ");
  EXPECT_EQ(page_.txtReps.Text(), " 12 ");
  page_.SetReps("lots");
  EXPECT_EQ(page_.Reps(), "lots");
}

TEST_F(SimulationPageTest, SettersRaise382InDesignMode) {
  InitializeStandard();
  platform_.SetUserMode(false);
  const std::vector<std::function<void()>> setters = {
      [&] { page_.SetStrataLayer("Region"); },        [&] { page_.SetReps("5"); },
      [&] { page_.SetTransectObjectType("Design"); }, [&] { page_.SetDesignObjectID("6"); },
      [&] { page_.SetSurveyObjectID("14"); },
  };
  for (const auto& setter : setters) {
    try {
      setter();
      ADD_FAILURE() << "expected error 382";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number, 382);
    }
  }
  EXPECT_EQ(page_.StrataLayer(), "Strata");
  EXPECT_EQ(page_.Reps(), "1");
  EXPECT_EQ(page_.TransectObjectType(), "Survey");
  EXPECT_EQ(page_.cboSurvey.Text(), "12 Lines A");
}

TEST_F(SimulationPageTest, GettersWorkInDesignMode) {
  InitializeStandard();
  platform_.SetUserMode(false);
  EXPECT_EQ(page_.StrataLayer(), "Strata");
  EXPECT_EQ(page_.StrataNum(), 3);
  EXPECT_EQ(page_.Reps(), "1");
  EXPECT_EQ(page_.TransectObjectType(), "Survey");
  EXPECT_EQ(page_.TransectObjectID(), "12");
}

}  // namespace
}  // namespace zrsimprp

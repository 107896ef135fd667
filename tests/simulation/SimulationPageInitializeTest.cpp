#include <string>
#include <vector>

#include "SimulationTestProject.h"

namespace zrsimprp {
namespace {

using Strings = std::vector<std::string>;

TEST_F(SimulationPageTest, InitializeListsDesignsAsIdentifierBlankName) {
  InitializeStandard();
  EXPECT_EQ(page_.cboDesign.Items(), (Strings{"5 Design A", "6 Design B"}));
}

TEST_F(SimulationPageTest, InitializeLeavesASingleBlankInTheDesignBox) {
  InitializeStandard();
  EXPECT_EQ(page_.cboDesign.Text(), " ");
  EXPECT_EQ(page_.cboDesign.ListIndex(), -1);
}

TEST_F(SimulationPageTest, InitializeOffersOnlySurveysOfStatusOne) {
  InitializeStandard();
  EXPECT_EQ(page_.cboSurvey.Items(), (Strings{"12 Lines A", "14 Zigzag"}));
}

TEST_F(SimulationPageTest, InitializeSelectsTheFirstSurveyAndComputesItsStrata) {
  InitializeStandard();
  EXPECT_EQ(page_.cboSurvey.Text(), "12 Lines A");
  EXPECT_EQ(LayerList(), (Strings{"Strata", "Region"}));
  EXPECT_EQ(page_.StrataLayer(), "Strata");
  EXPECT_EQ(page_.StrataNum(), 3);
  EXPECT_EQ(page_.StrataNames(), (Strings{"North", "Centre", "South"}));
  EXPECT_EQ(CPagSimulationProbe::StrataIdentifiers(page_), "1,2,3");
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(SimulationPageTest, InitializeTurnsTheSurveyOptionOnAndDisablesTheDesignChoice) {
  InitializeStandard();
  EXPECT_EQ(page_.optDesign.Selected(), 1);
  EXPECT_EQ(page_.TransectObjectType(), "Survey");
  EXPECT_FALSE(page_.optDesign.Button(0).Enabled());
  EXPECT_TRUE(page_.optDesign.Button(1).Enabled());
  EXPECT_FALSE(page_.cboDesign.Enabled());
  EXPECT_EQ(page_.cboDesign.BackColor(), Color::System(SystemColorRole::kButtonFace));
  EXPECT_TRUE(page_.cboSurvey.Enabled());
  EXPECT_EQ(page_.cboSurvey.BackColor(), Color::System(SystemColorRole::kWindowBackground));
}

TEST_F(SimulationPageTest, InitializeWalksEveryRecordGroupInOrder) {
  db_->AddLayer(MakeLayer("Region", 1, "", {Variant(int32_t{1})}, {}, ""));
  db_->AddDesign(2, "Second", DesignText("Region"), 1);
  db_->AddDesign(1, "First", DesignText("Region"), 0);
  db_->AddSurvey(8, "Later", 1, 2, 1);
  db_->AddSurvey(7, "Earlier", 1, 1, 0);
  UseProject();
  page_.Initialize();
  EXPECT_EQ(page_.cboDesign.Items(), (Strings{"1 First", "2 Second"}));
  EXPECT_EQ(page_.cboSurvey.Items(), (Strings{"7 Earlier", "8 Later"}));
}

TEST_F(SimulationPageTest, InitializeRebuildsTheListsEachTime) {
  InitializeStandard();
  db_->AddDesign(9, "Design C", DesignText("Strata"));
  db_->AddSurvey(30, "New lines", 1, 9);
  page_.Initialize();
  EXPECT_EQ(page_.cboDesign.Items(), (Strings{"5 Design A", "6 Design B", "9 Design C"}));
  EXPECT_EQ(page_.cboSurvey.Items(), (Strings{"12 Lines A", "14 Zigzag", "30 New lines"}));
  page_.SetDesignObjectID("9");
  EXPECT_EQ(page_.cboDesign.Text(), "9 Design C");
}

TEST_F(SimulationPageTest, ProjectWithoutSurveysLeavesEverythingEmpty) {
  db_->AddLayer(MakeLayer("Region", 1, "", {Variant(int32_t{1})}, {}, ""));
  db_->AddDesign(5, "Design A", DesignText("Region"));
  db_->AddSurvey(12, "Not ready", 0, 5);
  UseProject();
  page_.Initialize();
  EXPECT_TRUE(page_.cboSurvey.Items().empty());
  EXPECT_EQ(page_.cboSurvey.Text(), "");
  EXPECT_TRUE(LayerList().empty());
  EXPECT_EQ(page_.StrataNum(), 0);
  EXPECT_EQ(page_.StrataLayer(), "None");
  EXPECT_EQ(page_.TransectObjectID(), "0");
  EXPECT_EQ(db_->Calls("GetRows"), 0);
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(SimulationPageTest, EmptyProjectLeavesBothListsEmpty) {
  UseProject();
  page_.Initialize();
  EXPECT_TRUE(page_.cboDesign.Items().empty());
  EXPECT_EQ(page_.cboDesign.Text(), " ");
  EXPECT_TRUE(page_.cboSurvey.Items().empty());
  EXPECT_EQ(page_.TransectObjectType(), "Survey");
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(SimulationPageTest, InitializeWithoutAProjectReportsInititalize) {
  page_.Initialize();
  const std::string report = OnlyReport();
  EXPECT_NE(report.find(RaisedFrom("Inititalize")), std::string::npos) << report;
  EXPECT_NE(report.find("(Error number: 91)"), std::string::npos) << report;
  EXPECT_EQ(platform_.Beeps(), 1);
  EXPECT_EQ(platform_.MousePointerResets(), 1);
}

TEST_F(SimulationPageTest, FailingSurveyCallIsReportedAndLeavesTheDesignsListed) {
  AddStandardProject();
  db_->FailOn("SurveyGroups");
  UseProject();
  page_.Initialize();
  const std::string report = OnlyReport();
  EXPECT_NE(report.find(RaisedFrom("Inititalize")), std::string::npos) << report;
  EXPECT_NE(report.find("(Error source: ProjectDatabase)"), std::string::npos) << report;
  EXPECT_EQ(page_.cboDesign.Items(), (Strings{"5 Design A", "6 Design B"}));
  EXPECT_TRUE(page_.cboSurvey.Items().empty());
  // The routine ended at the error: the option was never switched to the survey.
  EXPECT_EQ(page_.TransectObjectType(), "Design");
}

TEST_F(SimulationPageTest, UnknownStratumLayerOfTheFirstSurveyIsReportedByInitialize) {
  db_->AddDesign(5, "Design A", DesignText("Nowhere"));
  db_->AddSurvey(12, "Lines A", 1, 5);
  UseProject();
  page_.Initialize();
  const std::string report = OnlyReport();
  EXPECT_NE(report.find(RaisedFrom("Inititalize")), std::string::npos) << report;
  EXPECT_NE(report.find("Nowhere"), std::string::npos) << report;
  EXPECT_EQ(LayerList(), (Strings{"Nowhere"}));
}

TEST_F(SimulationPageTest, CompanionIsFetchedAfreshForEveryLookup) {
  InitializeStandard();
  const int before = db_->Calls("Companion");
  page_.SetSurveyObjectID("14");
  // Blocks, then its parent Region: one companion per layer looked up, plus one per computed layer.
  EXPECT_GT(db_->Calls("Companion"), before + 1);
}

}  // namespace
}  // namespace zrsimprp

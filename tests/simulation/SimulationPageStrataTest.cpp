#include <string>
#include <vector>

#include "SimulationTestProject.h"

namespace zrsimprp {
namespace {

using Strings = std::vector<std::string>;

TEST_F(SimulationPageTest, LayerListHoldsTheStratumLayerAndItsAncestorsUpToKindOne) {
  db_->AddLayer(MakeLayer("Region", 1, "", {Variant(int32_t{1})}, {}, ""));
  db_->AddLayer(MakeLayer("Strata", 0, "Region", {Variant(int32_t{1}), Variant(int32_t{2})}, {}, ""));
  db_->AddLayer(MakeLayer("Blocks", 0, "Strata",
                          {Variant(int32_t{1}), Variant(int32_t{2}), Variant(int32_t{3})}, {}, ""));
  db_->AddLayer(MakeLayer("Above region", 0, "", {Variant(int32_t{1})}, {}, ""));
  db_->AddDesign(5, "Design A", DesignText("Blocks"));
  db_->AddSurvey(12, "Lines A", 1, 5);
  UseProject();
  page_.Initialize();
  EXPECT_EQ(LayerList(), (Strings{"Blocks", "Strata", "Region"}));
  EXPECT_EQ(page_.StrataLayer(), "Blocks");
  EXPECT_EQ(page_.StrataNum(), 3);
}

TEST_F(SimulationPageTest, StratumLayerOfKindOneStandsAlone) {
  db_->AddLayer(MakeLayer("Region", 1, "", {Variant(int32_t{1})}, {Variant(std::string("Whole"))}, "Label"));
  db_->AddDesign(5, "Design A", DesignText("Region"));
  db_->AddSurvey(12, "Lines A", 1, 5);
  UseProject();
  page_.Initialize();
  EXPECT_EQ(LayerList(), (Strings{"Region"}));
  EXPECT_EQ(page_.StrataNum(), 1);
  EXPECT_EQ(page_.StrataNames(), (Strings{"Whole"}));
}

TEST_F(SimulationPageTest, FillingTheLayerListSelectsEveryEntryThenTheFirstAgain) {
  InitializeStandard();
  // Strata, Region, and Strata again: each a different layer from the one before.
  EXPECT_EQ(db_->Calls("GetRows"), 3);
  EXPECT_EQ(page_.cboRegionLayer.ListIndex(), 0);
}

TEST_F(SimulationPageTest, SelectingTheSameLayerAgainComputesNothing) {
  InitializeStandard();
  const int rows_before = db_->Calls("GetRows");
  const int lookups_before = db_->Calls("LayerByName");
  page_.SetStrataLayer("Strata");
  page_.SetStrataLayer("STRATA");
  page_.cboRegionLayer.UserSelect(0);
  EXPECT_EQ(db_->Calls("GetRows"), rows_before);
  EXPECT_EQ(db_->Calls("LayerByName"), lookups_before);
  EXPECT_EQ(page_.StrataNum(), 3);
  EXPECT_EQ(page_.StrataNames(), (Strings{"North", "Centre", "South"}));
}

TEST_F(SimulationPageTest, SelectingADifferentLayerRebuildsCountNamesAndIdentifiers) {
  InitializeStandard();
  const int rows_before = db_->Calls("GetRows");
  page_.SetStrataLayer("Region");
  EXPECT_EQ(db_->Calls("GetRows"), rows_before + 1);
  EXPECT_EQ(page_.StrataLayer(), "Region");
  EXPECT_EQ(page_.StrataNum(), 1);
  EXPECT_EQ(page_.StrataNames(), (Strings{"Study area"}));
  EXPECT_EQ(CPagSimulationProbe::StrataIdentifiers(page_), "1");
  page_.SetStrataLayer("strata");
  EXPECT_EQ(db_->Calls("GetRows"), rows_before + 2);
  EXPECT_EQ(page_.StrataNum(), 3);
  EXPECT_EQ(page_.StrataNames(), (Strings{"North", "Centre", "South"}));
  EXPECT_EQ(CPagSimulationProbe::StrataIdentifiers(page_), "1,2,3");
}

TEST_F(SimulationPageTest, EveryStratumIsFetchedByItsIdentifier) {
  InitializeStandard();
  const int before = db_->Calls("FeatureByID");
  page_.SetStrataLayer("Region");
  EXPECT_EQ(db_->Calls("FeatureByID"), before + 1);
  page_.SetStrataLayer("Strata");
  EXPECT_EQ(db_->Calls("FeatureByID"), before + 4);
}

TEST_F(SimulationPageTest, IdentifiersHeldAsTextOrDoublesAreFetchedAsWholeNumbers) {
  db_->AddLayer(MakeLayer("Region", 1, "", {Variant(std::string("7")), Variant(8.0), Variant(int16_t{9})},
                          {Variant(std::string("a")), Variant(std::string("b")), Variant(std::string("c"))},
                          "Name"));
  db_->AddDesign(5, "Design A", DesignText("Region"));
  db_->AddSurvey(12, "Lines A", 1, 5);
  UseProject();
  page_.Initialize();
  EXPECT_TRUE(platform_.Messages().empty()) << OnlyReport();
  EXPECT_EQ(page_.StrataNum(), 3);
  EXPECT_EQ(CPagSimulationProbe::StrataIdentifiers(page_), "7,8,9");
}

TEST_F(SimulationPageTest, NonNumericStratumIdentifierIsReportedByTheLayerClick) {
  db_->AddLayer(MakeLayer("Region", 1, "", {Variant(std::string("A1"))}, {}, ""));
  db_->AddDesign(5, "Design A", DesignText("Region"));
  db_->AddSurvey(12, "Lines A", 1, 5);
  UseProject();
  page_.Initialize();
  // Selected twice (every entry, then the first), computed once: one report.
  const std::string report = OnlyReport();
  EXPECT_NE(report.find(RaisedFrom("cboRegionLayer_Click")), std::string::npos) << report;
  EXPECT_NE(report.find("(Error number: 13)"), std::string::npos) << report;
  EXPECT_EQ(page_.StrataNum(), 1);
}

TEST_F(SimulationPageTest, LayerWithoutLabelFieldGivesEmptyNames) {
  InitializeStandard();
  page_.SetSurveyObjectID("14");
  EXPECT_EQ(LayerList(), (Strings{"Blocks", "Region"}));
  EXPECT_EQ(page_.StrataNum(), 2);
  EXPECT_EQ(page_.StrataNames(), (Strings{"", ""}));
  EXPECT_EQ(CPagSimulationProbe::StrataIdentifiers(page_), "10,20");
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(SimulationPageTest, LayerWithoutRecordsCountsZeroAndKeepsTheOldNames) {
  InitializeStandard();
  db_->AddLayer(MakeLayer("Empty", 0, "Region", {}, {}, "Label"));
  db_->AddDesign(7, "Empty design", DesignText("Empty"));
  db_->AddSurvey(40, "Nothing", 1, 7);
  page_.Initialize();
  platform_.ClearMessages();
  page_.SetSurveyObjectID("40");
  EXPECT_EQ(LayerList(), (Strings{"Empty", "Region"}));
  // Empty (fails), Region (one stratum), Empty again (fails).
  ASSERT_EQ(platform_.Messages().size(), 2u);
  for (const auto& message : platform_.Messages()) {
    EXPECT_NE(message.text.find(RaisedFrom("cboRegionLayer_Click")), std::string::npos) << message.text;
    EXPECT_NE(message.text.find("(Error number: 9)"), std::string::npos) << message.text;
  }
  EXPECT_EQ(page_.StrataLayer(), "Empty");
  EXPECT_EQ(page_.StrataNum(), 0);
  EXPECT_EQ(page_.StrataNames(), (Strings{"Study area"}));
}

TEST_F(SimulationPageTest, EmptyLayerListBeforeNamesWereDimensionedReportsTheError) {
  ASSERT_FALSE(CPagSimulationProbe::NamesDimensioned(page_));
  CPagSimulationProbe::ClickRegionLayer(page_);
  const std::string report = OnlyReport();
  EXPECT_NE(report.find(RaisedFrom("cboRegionLayer_Click")), std::string::npos) << report;
  EXPECT_NE(report.find("(Error number: 9)"), std::string::npos) << report;
  EXPECT_EQ(page_.StrataNum(), 0);
  EXPECT_TRUE(page_.StrataNames().empty());
}

TEST_F(SimulationPageTest, EmptyLayerListClearsTheStrataButKeepsTheNamesBounds) {
  InitializeStandard();
  page_.cboRegionLayer.Clear();
  CPagSimulationProbe::ClickRegionLayer(page_);
  EXPECT_TRUE(platform_.Messages().empty());
  EXPECT_EQ(page_.StrataNum(), 0);
  EXPECT_EQ(page_.StrataNames(), (Strings{"", "Centre", "South"}));
  EXPECT_EQ(CPagSimulationProbe::StrataIdentifiers(page_), "");
  EXPECT_EQ(page_.StrataLayer(), "None");
}

TEST_F(SimulationPageTest, AfterAnEmptyListTheSameLayerNameCountsItsOldStrataAgain) {
  InitializeStandard();
  page_.cboRegionLayer.Clear();
  CPagSimulationProbe::ClickRegionLayer(page_);
  page_.cboRegionLayer.AddItem("Strata");
  const int rows_before = db_->Calls("GetRows");
  page_.cboRegionLayer.SetListIndex(0);
  EXPECT_EQ(db_->Calls("GetRows"), rows_before);
  EXPECT_EQ(page_.StrataNum(), 0);
}

TEST_F(SimulationPageTest, UnknownStratumLayerRaisesToTheCaller) {
  InitializeStandard();
  db_->AddDesign(7, "Lost design", DesignText("Nowhere"));
  db_->AddSurvey(40, "Lost lines", 1, 7);
  page_.Initialize();
  platform_.ClearMessages();
  try {
    page_.SetSurveyObjectID("40");
    FAIL() << "expected the lookup to fail";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.source, "LayerCatalogue");
    EXPECT_NE(error.description.find("Nowhere"), std::string::npos);
  }
  EXPECT_EQ(LayerList(), (Strings{"Nowhere"}));
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(SimulationPageTest, DesignWithoutStratumLayerLooksUpAnEmptyNameAndRaises) {
  InitializeStandard();
  db_->AddDesign(7, "Bare design", "Sampler=Line;");
  db_->AddSurvey(40, "Bare lines", 1, 7);
  page_.Initialize();
  EXPECT_THROW(page_.SetSurveyObjectID("40"), RuntimeError);
  EXPECT_EQ(LayerList(), (Strings{""}));
  EXPECT_EQ(page_.StrataLayer(), "None");
}

TEST_F(SimulationPageTest, DesignWithEmptyDefinitionTextLooksUpAnEmptyName) {
  InitializeStandard();
  db_->AddDesign(7, "Blank design", "");
  db_->AddSurvey(40, "Blank lines", 1, 7);
  page_.Initialize();
  EXPECT_THROW(page_.SetSurveyObjectID("40"), RuntimeError);
  EXPECT_EQ(LayerList(), (Strings{""}));
}

TEST_F(SimulationPageTest, StratumLayerKeyIsFoundWhateverItsCase) {
  db_->AddLayer(MakeLayer("Region", 1, "", {Variant(int32_t{1})}, {}, ""));
  db_->AddDesign(5, "Design A", "Sampler=Line;\r\n\"stratum layer\"=Region /Extra=1;\r\nSTRATUM=Other;");
  db_->AddSurvey(12, "Lines A", 1, 5);
  UseProject();
  page_.Initialize();
  EXPECT_EQ(LayerList(), (Strings{"Region"}));
}

TEST_F(SimulationPageTest, MalformedDesignTextRaisesToTheCaller) {
  InitializeStandard();
  db_->AddDesign(7, "Broken design", "Sampler \"unterminated");
  db_->AddSurvey(40, "Broken lines", 1, 7);
  page_.Initialize();
  EXPECT_THROW(page_.SetSurveyObjectID("40"), RuntimeError);
}

TEST_F(SimulationPageTest, SurveyOfAMissingDesignRaisesToTheCaller) {
  InitializeStandard();
  db_->AddSurvey(40, "Orphan", 1, 99);
  page_.Initialize();
  try {
    page_.SetSurveyObjectID("40");
    FAIL() << "expected a missing design to fail";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 91);
  }
  EXPECT_TRUE(LayerList().empty());
}

TEST_F(SimulationPageTest, LayerLoopGuardEndsParentLinksThatLeadBackWithAnErrorInsteadOfHanging) {
  db_->AddLayer(MakeLayer("A", 0, "B", {Variant(int32_t{1})}, {}, ""));
  db_->AddLayer(MakeLayer("B", 0, "A", {Variant(int32_t{1})}, {}, ""));
  db_->AddDesign(5, "Design A", DesignText("A"));
  db_->AddSurvey(12, "Lines A", 1, 5);
  UseProject();
  page_.Initialize();
  const std::string report = OnlyReport();
  EXPECT_NE(report.find("The parent layers of 'A' lead back to 'A'"), std::string::npos) << report;
  EXPECT_NE(report.find("(Error number: 5)"), std::string::npos) << report;
  EXPECT_EQ(LayerList(), (Strings{"A", "B"}));
}

TEST_F(SimulationPageTest, LayerWithoutParentBelowKindOneRaises) {
  db_->AddLayer(MakeLayer("Orphan layer", 0, "", {Variant(int32_t{1})}, {}, ""));
  db_->AddDesign(5, "Design A", DesignText("Orphan layer"));
  db_->AddSurvey(12, "Lines A", 1, 5);
  UseProject();
  page_.Initialize();
  EXPECT_NE(OnlyReport().find("has no parent layer"), std::string::npos);
}

TEST_F(SimulationPageTest, FailingGetRowsIsReportedByTheLayerClick) {
  AddStandardProject();
  db_->FailOn("GetRows");
  UseProject();
  page_.Initialize();
  ASSERT_EQ(platform_.Messages().size(), 3u);
  EXPECT_NE(platform_.Messages()[0].text.find(RaisedFrom("cboRegionLayer_Click")), std::string::npos);
  EXPECT_EQ(page_.StrataNum(), 0);
}

TEST_F(SimulationPageTest, SurveyClickWalksEverySurveyWithoutStatusFilterAndTheLastMatchWins) {
  InitializeStandard();
  // A second record with identifier 12, of status 0, points at the other design.
  db_->AddSurvey(12, "Lines A again", 0, 6, 1);
  page_.cboSurvey.SetListIndex(0);
  EXPECT_EQ(LayerList(), (Strings{"Blocks", "Region"}));
}

TEST_F(SimulationPageTest, DesignLookupTakesTheLastDesignWithTheIdentifier) {
  InitializeStandard();
  db_->AddDesign(5, "Design A replaced", DesignText("Blocks"), 1);
  page_.cboSurvey.SetListIndex(0);
  EXPECT_EQ(LayerList(), (Strings{"Blocks", "Region"}));
}

TEST_F(SimulationPageTest, EmptySurveyTextClearsTheLayerListButKeepsTheStrata) {
  InitializeStandard();
  page_.cboSurvey.AddItem("");
  page_.cboSurvey.SetListIndex(2);
  EXPECT_TRUE(LayerList().empty());
  EXPECT_EQ(page_.StrataNum(), 3);
  EXPECT_EQ(page_.StrataLayer(), "None");
}

TEST_F(SimulationPageTest, SurveyEntryWithoutANumberRaisesTypeMismatch) {
  InitializeStandard();
  page_.cboSurvey.AddItem("abc Lines");
  try {
    page_.cboSurvey.SetListIndex(2);
    FAIL() << "expected a type mismatch";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 13);
  }
}

TEST_F(SimulationPageTest, ChoosingADesignDoesNotFillTheLayerList) {
  InitializeStandard();
  page_.optDesign.Select(0);
  page_.SetDesignObjectID("6");
  EXPECT_EQ(page_.cboDesign.Text(), "6 Design B");
  EXPECT_EQ(LayerList(), (Strings{"Strata", "Region"}));
}

TEST_F(SimulationPageTest, EmptyDesignEntryClearsTheLayerList) {
  InitializeStandard();
  page_.cboDesign.AddItem("");
  page_.cboDesign.SetListIndex(2);
  EXPECT_TRUE(LayerList().empty());
  EXPECT_EQ(page_.StrataNum(), 3);
}

}  // namespace
}  // namespace zrsimprp

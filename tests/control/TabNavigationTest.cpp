#include <string>

#include "ControlTestFixture.h"

namespace zrsimprp {
namespace {

using TabNavigation = ControlTest;

const std::string kRepsMessage = "The number of repetitions must be greater than 0.";
const std::string kCategoricalNameMessage =
    "You have not entered a name for the categorical covariate.  Please provide the covariate name.";
const std::string kBlankPopulationCell =
    "There is a blank cell in the column of the population size table for strata 'A'.  Please enter a value "
    "in that cell.";

// A definition whose Simulation and Density pages are valid.
const std::string kValidBase =
    "Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n"
    "Density=Uniform /Densities=1,2,3 /GridSpace=10;\r\n";

// Spoils the Density and Population strata grids so that a fresh hand-over shows.
void SpoilStrataGrids(SIMProperties& control) {
  control.pagDensity.flxConstantDensity.SetCols(2);
  control.pagPopulation.flxN.SetCols(2);
}

bool StrataGridsHaveThreeStrata(SIMProperties& control) {
  return control.pagDensity.flxConstantDensity.Cols() == 4 && control.pagPopulation.flxN.Cols() == 4;
}

TEST_F(TabNavigation, LeavingAValidSimulationPagePushesTheStrataEveryTime) {
  auto control = Open(kValidBase);
  SpoilStrataGrids(*control);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(1));
  EXPECT_TRUE(StrataGridsHaveThreeStrata(*control));
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(0));
  SpoilStrataGrids(*control);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(4));
  EXPECT_TRUE(StrataGridsHaveThreeStrata(*control));
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
}

TEST_F(TabNavigation, LeavingOtherTabsDoesNotPushTheStrata) {
  auto control = Open(kValidBase);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(4));
  SpoilStrataGrids(*control);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(5));
  EXPECT_EQ(control->pagDensity.flxConstantDensity.Cols(), 2);
}

TEST_F(TabNavigation, InvalidSimulationPageRefusesTheChangeWithItsMessage) {
  auto control = Open(kValidBase + "Reps=0;");
  platform_.ClearMessages();  // Initialize has already checked the shown page
  SpoilStrataGrids(*control);
  EXPECT_FALSE(control->tapSimulationDefinition.UserSelectTab(1));
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 0);
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text, kRepsMessage);
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on Simulation Page");
  EXPECT_EQ(platform_.Messages()[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(control->pagDensity.flxConstantDensity.Cols(), 2);  // no hand-over
  EXPECT_TRUE(database_->SettingWrites().empty());
}

TEST_F(TabNavigation, InvalidDensityPageTitleNamesDensity) {
  auto control = Open(kValidBase + "Density=Uniform /Densities=1,2,3 /GridSpace=abc;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(1));
  EXPECT_FALSE(control->tapSimulationDefinition.UserSelectTab(4));
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text, "The grid spacing must only contain numeric values.");
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on Density Page");
}

TEST_F(TabNavigation, InvalidMiscPageTitleNamesMisc) {
  auto control = Open(kValidBase + "ParallelProcessing=True /cores=abc;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(5));
  EXPECT_FALSE(control->tapSimulationDefinition.UserSelectTab(0));
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 5);
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text,
            "The maximum number of cores must either be an integer or left blank.");
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on Misc Page");
}

TEST_F(TabNavigation, InvalidDetectabilityPageRefusesTheChange) {
  auto control = Open(kValidBase);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(3));
  control->pagDetectability.flxDetect.SetTextMatrix(1, 1, "");
  EXPECT_FALSE(control->tapSimulationDefinition.UserSelectTab(4));
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(
      platform_.Messages()[0].text,
      "There is no value supplied for parameter Scale for strata 'Study Area'.  Please enter a value in "
      "this cell.");
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on Detectability Page");
}

TEST_F(TabNavigation, RefusedPopulationChangeTitleNamesTheInnerTab) {
  auto control = Open(kValidBase + "PopSize=\"Fixed N\" /Values=1,2,3;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  control->pagPopulation.flxN.SetTextMatrix(1, 1, "");
  EXPECT_FALSE(control->tapSimulationDefinition.UserSelectTab(3));
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 2);
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text, kBlankPopulationCell);
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on General Page");
}

TEST_F(TabNavigation, RefusedCovariatesChangeTitleNamesCovariates) {
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{2}));
  database_->SetSetting("SIMProperties", "CurrentDFTab", Variant(std::string("Covariates")));
  auto control = Open(kValidBase + "CategoricalCov=\"\" /categories=m,f /prob=0.5,0.5;");
  ASSERT_EQ(control->tabsPopulationDescription.SelectedKey(), "Covariates");
  platform_.ClearMessages();
  EXPECT_FALSE(control->tapSimulationDefinition.UserSelectTab(0));
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text, kCategoricalNameMessage);
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on Covariates Page");
}

TEST_F(TabNavigation, LeavingGeneralUpdatesTheClusterInfo) {
  auto control = Open(kValidBase + "Clusters=True /Distribution=Poisson /param=3;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  EXPECT_EQ(control->pagPopulation.MeanClusterSize(), 0.0);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(4));
  EXPECT_EQ(control->pagPopulation.MeanClusterSize(), 3.0);
}

TEST_F(TabNavigation, LeavingCovariatesUpdatesTheCovariateInfo) {
  auto control = Open(kValidBase + "ContinuousCov=size /distribution=Normal /param=3,1;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  ASSERT_TRUE(control->tabsPopulationDescription.UserClickTab(2));
  EXPECT_EQ(control->pagCovariates.ContinuousCov(), "");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(4));
  EXPECT_EQ(control->pagCovariates.ContinuousCov(), "size");
  EXPECT_EQ(control->pagCovariates.MeanConinuousCov(), 3.0);
}

TEST_F(TabNavigation, EnteringDetectabilityRefreshesFromAnyTab) {
  auto control = Open(kValidBase + "Clusters=True /Distribution=Poisson /param=3;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(1));
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(3));
  ASSERT_EQ(control->pagDetectability.NumParams(), 3);
  EXPECT_EQ(control->pagDetectability.ParamName(3), "cluster size");

  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(5));
  control->pagPopulation.SetClusteredPop("False");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(3));
  EXPECT_EQ(control->pagDetectability.NumParams(), 2);
}

TEST_F(TabNavigation, EnteringDetectabilityPassesTheCovariateRows) {
  auto control = Open(kValidBase +
                      "ContinuousCov=size /distribution=Normal /param=3,1;\r\n"
                      "CategoricalCov=sex /categories=m,f /prob=0.5,0.5;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  ASSERT_TRUE(control->tabsPopulationDescription.UserClickTab(2));
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(3));
  ASSERT_EQ(control->pagDetectability.NumParams(), 5);
  EXPECT_EQ(control->pagDetectability.ParamName(3), "size");
  EXPECT_EQ(control->pagDetectability.ParamName(4), "sex.m");
  EXPECT_EQ(control->pagDetectability.ParamName(5), "sex.f");
}

TEST_F(TabNavigation, OuterChangeWritesCurrentTabOnceInitialized) {
  auto control = Open(kValidBase);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(4));
  ASSERT_EQ(database_->SettingWrites().size(), 1u);
  const auto& write = database_->SettingWrites()[0];
  EXPECT_EQ(write.a, 0);
  EXPECT_EQ(write.b, 2);
  EXPECT_EQ(write.section, "SIMProperties");
  EXPECT_EQ(write.key, "CurrentTab");
  EXPECT_EQ(write.value, Variant(int16_t{4}));
}

TEST_F(TabNavigation, NoTabIsRememberedBeforeInitialize) {
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  control.pagSimulation.SetReps("3");
  ASSERT_TRUE(control.tapSimulationDefinition.SetCurrentTab(4));
  EXPECT_TRUE(database_->SettingWrites().empty());
}

TEST_F(TabNavigation, NoTabIsRememberedWithoutAProjectDatabase) {
  auto control = Open(kValidBase);
  CModGlobal::Clear();
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(4));
  EXPECT_TRUE(database_->SettingWrites().empty());
}

TEST_F(TabNavigation, InnerSelectionWritesCurrentAOTabNotCurrentDFTab) {
  auto control = Open(kValidBase);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  database_->SettingWrites();
  const size_t before = database_->SettingWrites().size();
  ASSERT_TRUE(control->tabsPopulationDescription.UserClickTab(2));
  ASSERT_EQ(database_->SettingWrites().size(), before + 1);
  const auto& write = database_->SettingWrites().back();
  EXPECT_EQ(write.a, 0);
  EXPECT_EQ(write.b, 0);
  EXPECT_EQ(write.section, "SIMProperties");
  EXPECT_EQ(write.key, "CurrentAOTab");
  EXPECT_EQ(write.value, Variant(std::string("Covariates")));
  EXPECT_TRUE(IsNull(database_->StoredSetting("SIMProperties", "CurrentDFTab")));
  EXPECT_FALSE(control->pagPopulation.Visible());
  EXPECT_TRUE(control->pagCovariates.Visible());
}

TEST_F(TabNavigation, EnteringPopulationReselectsTheInnerTab) {
  auto control = Open(kValidBase);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  // Entering selected the inner tab again and, being initialised, remembered it.
  ASSERT_FALSE(database_->SettingWrites().empty());
  EXPECT_EQ(database_->SettingWrites()[0].key, "CurrentAOTab");
  EXPECT_EQ(database_->SettingWrites()[0].value, Variant(std::string("General")));
  EXPECT_EQ(database_->SettingWrites()[1].key, "CurrentTab");
}

TEST_F(TabNavigation, InvalidRememberedPageKeepsTheStripWhereItWas) {
  auto control = Open(kValidBase + "PopSize=\"Fixed N\" /Values=1,2,3;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  control->pagPopulation.flxN.SetTextMatrix(1, 1, "");
  const size_t writes = database_->SettingWrites().size();
  control->tabsPopulationDescription.UserClickTab(2);
  EXPECT_EQ(control->tabsPopulationDescription.SelectedKey(), "General");
  EXPECT_TRUE(control->pagPopulation.Visible());
  EXPECT_FALSE(control->pagCovariates.Visible());
  EXPECT_EQ(database_->SettingWrites().size(), writes);
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text, kBlankPopulationCell);
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on General Page");
}

TEST_F(TabNavigation, RememberedInnerKeyIsTheFirstAndNeverChanges) {
  auto control = Open(kValidBase);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  ASSERT_TRUE(control->tabsPopulationDescription.UserClickTab(2));
  ASSERT_EQ(control->tabsPopulationDescription.SelectedKey(), "Covariates");
  // The Covariates page is now wrong, but the switch back checks the first page, "General".
  control->pagCovariates.SetCategoricalCov(true);
  ASSERT_TRUE(control->tabsPopulationDescription.UserClickTab(1));
  EXPECT_EQ(control->tabsPopulationDescription.SelectedKey(), "General");
  EXPECT_TRUE(control->pagPopulation.Visible());
  EXPECT_FALSE(control->pagCovariates.Visible());
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
}

TEST_F(TabNavigation, IsValidChecksTheShownPage) {
  auto control = Open(kValidBase + "Reps=0;");
  platform_.ClearMessages();  // Initialize has already checked the shown page
  EXPECT_FALSE(control->IsValid());
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text, kRepsMessage);
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on Simulation Page");
  control->pagSimulation.SetReps("5");
  platform_.ClearMessages();
  EXPECT_TRUE(control->IsValid());
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
}

TEST_F(TabNavigation, IsValidOnThePopulationTabChecksTheSelectedInnerPage) {
  auto control = Open(kValidBase);
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  ASSERT_TRUE(control->tabsPopulationDescription.UserClickTab(2));
  control->pagCovariates.SetCategoricalCov(true);
  EXPECT_FALSE(control->IsValid());
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text, kCategoricalNameMessage);
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on Covariates Page");
}

// A platform whose first message box fails, as a broken host might.
class FailingBoxPlatform : public HeadlessPlatform {
 public:
  void MessageBox(const std::string& text, const std::string& title, MessageIcon icon) override {
    if (fail_next_) {
      fail_next_ = false;
      throw RuntimeError(5, "Platform", "The message box could not be shown");
    }
    HeadlessPlatform::MessageBox(text, title, icon);
  }
  bool fail_next_ = false;
};

TEST(TabNavigationErrors, IsValidReportsAnErrorAndReturnsFalse) {
  CModGlobal::Clear();
  FailingBoxPlatform platform;
  auto database = MakeSampleProject();
  SIMProperties control(platform);
  control.SetProjectDatabase(database);
  control.SetDefinition("Reps=0;");
  control.Initialize();
  platform.ClearMessages();
  platform.fail_next_ = true;
  EXPECT_FALSE(control.IsValid());
  ASSERT_EQ(platform.Messages().size(), 1u);
  EXPECT_EQ(platform.Messages()[0].title, "Pellunar Internal Error");
  EXPECT_NE(platform.Messages()[0].text.find("(Error raised from: ZrSIMPrp.SIM.IsValid)\r\n"
                                             "(Error source: Platform)\r\n(Error number: 5)"),
            std::string::npos);
  CModGlobal::Clear();
}

}  // namespace
}  // namespace zrsimprp

namespace zrsimprp {
namespace {

using TabEventErrors = ControlTest;

// The raised error, or a test failure when `call` raises none.
template <class Call>
RuntimeError ErrorOf(Call&& call) {
  try {
    call();
  } catch (const RuntimeError& error) {
    return error;
  }
  ADD_FAILURE() << "no error raised";
  return RuntimeError(0, "", "");
}

TEST_F(TabEventErrors, AnErrorWhileLeavingATabReachesWhoeverChangedTheTab) {
  // p = 1 passes the page's check, but the mean cluster size then divides by zero.
  auto control = Open(
      "Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n"
      "Density=Uniform /Densities=1,2,3 /GridSpace=10;\r\n"
      "Clusters=True /Distribution=Negative-Binomial /param=2,1;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  const RuntimeError error = ErrorOf([&] { control->tapSimulationDefinition.UserSelectTab(3); });
  EXPECT_EQ(error.number, 11);
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 2);
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
}

TEST_F(TabEventErrors, AFailingSettingsWriteAfterAChangeReachesWhoeverChangedTheTab) {
  auto control = Open(
      "Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n"
      "Density=Uniform /Densities=1,2,3 /GridSpace=10;\r\n");
  database_->FailOn("WriteSetting");
  EXPECT_EQ(ErrorOf([&] { control->tapSimulationDefinition.UserSelectTab(4); }).source, "ProjectSettings");
  // The change itself had happened when the write failed.
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 4);
  database_->ClearFailures();
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(2));
  database_->FailOn("WriteSetting");
  EXPECT_EQ(ErrorOf([&] { control->tabsPopulationDescription.UserClickTab(2); }).source, "ProjectSettings");
  EXPECT_EQ(control->tabsPopulationDescription.SelectedKey(), "Covariates");
  EXPECT_TRUE(control->pagCovariates.Visible());
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
}

TEST_F(TabEventErrors, AnErrorWhileInitializeRestoresTheTabReachesTheHostAsInitializesFailure) {
  // The stratum layer's features cannot be fetched: the layer click reports it and leaves three strata
  // without names, which the hand-over on leaving the Simulation tab then fails on.
  database_->FailOn("FeatureByID");
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{1}));
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  control.SetDefinition("Reps=10;");
  const RuntimeError error = ErrorOf([&] { control.Initialize(); });
  EXPECT_EQ(error.number, 9);
  EXPECT_EQ(error.source, "PagDensity");
  EXPECT_EQ(control.tapSimulationDefinition.CurrentTab(), 0);
  // The only report is the layer click's own; the tab change added none.
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_NE(
      platform_.Messages()[0].text.find("(Error raised from: ZrSIMPrp.PagSimulation.cboRegionLayer_Click)"),
      std::string::npos)
      << AllMessages();
}

TEST(TabEventErrorsWithoutAFixture, AFailingValidationBoxWhileRestoringTheTabFailsInitialize) {
  CModGlobal::Clear();
  FailingBoxPlatform platform;
  auto database = MakeSampleProject();
  database->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{4}));
  SIMProperties control(platform);
  control.SetProjectDatabase(database);
  control.SetDefinition("Reps=0;");
  platform.fail_next_ = true;
  const RuntimeError error = ErrorOf([&] { control.Initialize(); });
  EXPECT_EQ(error.number, 5);
  EXPECT_EQ(error.source, "Platform");
  EXPECT_EQ(control.tapSimulationDefinition.CurrentTab(), 0);
  EXPECT_TRUE(platform.Messages().empty());
  CModGlobal::Clear();
}

}  // namespace
}  // namespace zrsimprp

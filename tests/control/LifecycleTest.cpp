#include <memory>
#include <string>
#include <vector>

#include "ControlTestFixture.h"
#include "support/ErrorNumberOf.h"

namespace zrsimprp {
namespace {

// Records every settings read with its selectors and default, in order.
class ReadRecordingSettings : public ProjectSettings {
 public:
  struct Read {
    int32_t a;
    int32_t b;
    std::string section;
    std::string key;
    Variant default_value;
  };
  ReadRecordingSettings(std::shared_ptr<ProjectSettings> inner, std::shared_ptr<std::vector<Read>> reads)
      : inner_(std::move(inner)), reads_(std::move(reads)) {}
  Variant ReadSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                      const Variant& default_value) override {
    reads_->push_back(Read{a, b, section, key, default_value});
    return inner_->ReadSetting(a, b, section, key, default_value);
  }
  void WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                    const Variant& value) override {
    inner_->WriteSetting(a, b, section, key, value);
  }

 private:
  std::shared_ptr<ProjectSettings> inner_;
  std::shared_ptr<std::vector<Read>> reads_;
};

class ReadRecordingProject : public MemoryProjectDatabase {
 public:
  std::shared_ptr<ProjectSettings> Settings() override {
    return std::make_shared<ReadRecordingSettings>(MemoryProjectDatabase::Settings(), reads);
  }
  std::shared_ptr<std::vector<ReadRecordingSettings::Read>> reads =
      std::make_shared<std::vector<ReadRecordingSettings::Read>>();
};

using Lifecycle = ControlTest;

TEST_F(Lifecycle, DesignModeDefinitionIsEmptyAndIsValidFalse) {
  auto control = Open("Reps=250;");
  platform_.SetUserMode(false);
  EXPECT_EQ(control->Definition(), "");
  EXPECT_FALSE(control->IsValid());
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  // The stored text is left alone: back in user mode the pages still give their values.
  platform_.SetUserMode(true);
  EXPECT_NE(control->Definition().find("Reps=250;"), std::string::npos);
}

TEST_F(Lifecycle, DesignModeInitializeWritesNothingToThePages) {
  platform_.SetUserMode(false);
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  control.SetDefinition("Reps=250;\r\nParallelProcessing=True /cores=3;");
  control.Initialize();
  EXPECT_EQ(control.pagSimulation.txtReps.Text(), "1");
  EXPECT_EQ(control.pagMisc.chkParallel.Value(), CheckBox::kUnchecked);
  EXPECT_EQ(control.pagSimulation.cboSurvey.ListCount(), 0);
  EXPECT_EQ(database_->Calls("ReadSetting"), 0);
  EXPECT_TRUE(database_->SettingWrites().empty());
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
}

TEST_F(Lifecycle, DesignModeResetDefinitionDoesNothing) {
  database_->SetDefaultDefinition("SIM", Variant(std::string("Reps=42;")));
  platform_.SetUserMode(false);
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  control.ResetDefinition();
  EXPECT_EQ(database_->Calls("EngineDefaults"), 0);
  EXPECT_EQ(control.pagSimulation.txtReps.Text(), "1");
}

TEST_F(Lifecycle, DesignModePageSettersRaise382) {
  SIMProperties control(platform_);
  platform_.SetUserMode(false);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagSimulation.SetReps("5"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagSimulation.SetStrataLayer("Strata"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagDensity.SetDSMLayer("L"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagPopulation.SetClusterDistribution("Poisson"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagCovariates.SetContinuousDist("Normal"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagDetectability.SetDetFunction("Hazard Rate"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagAnalyses.SetCriteria("BIC"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagAnalyses.SetDataFilter("5"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { control.pagAnalyses.SetModelDef("7"); }), 382);
}

TEST_F(Lifecycle, SettingDefinitionTwiceBeforeInitializeKeepsTheSecondText) {
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  control.SetDefinition("Reps=5;");
  EXPECT_EQ(control.pagSimulation.txtReps.Text(), "1");  // nothing parsed yet
  control.SetDefinition("Reps=7;");
  control.Initialize();
  EXPECT_EQ(control.pagSimulation.Reps(), "7");
}

TEST_F(Lifecycle, ReadingDefinitionTwiceRebuildsFromThePages) {
  NoLineBreaks();
  auto control = Open("Reps=5;");
  EXPECT_NE(control->Definition().find("Reps=5;"), std::string::npos);
  control->pagSimulation.txtReps.UserType("250");
  const std::string second = control->Definition();
  EXPECT_NE(second.find("Reps=250;"), std::string::npos);
  EXPECT_EQ(second.find("Reps=5;"), std::string::npos);
}

TEST_F(Lifecycle, InitializeDoesNotInitialiseTheMiscPage) {
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  control.pagMisc.chkParallel.SetValue(CheckBox::kChecked);
  control.pagMisc.txtCores.SetText("6");
  control.Initialize();
  EXPECT_EQ(control.pagMisc.Parallel(), "True");
  EXPECT_EQ(control.pagMisc.Cores(), "6");
}

TEST_F(Lifecycle, InitializeInitialisesTheOtherPagesBeforeReadingTheDefinition) {
  // The survey list is filled by the Simulation page's Initialize; the definition then picks from it.
  auto control = Open("Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;");
  EXPECT_EQ(control->pagSimulation.cboSurvey.ListCount(), 1);
  EXPECT_EQ(control->pagSimulation.TransectObjectID(), "1");
  EXPECT_EQ(control->pagSimulation.StrataNum(), 3);
  // The Analyses page's lists were filled before "DataFilter" would be read.
  EXPECT_EQ(control->pagAnalyses.cboDataFilter.ListCount(), 1);
}

TEST_F(Lifecycle, InitializeEndsWithTheStrataHandOver) {
  auto control = Open("");
  // The first survey's layer is chosen by the Simulation page; its three strata reach the grids.
  EXPECT_EQ(control->pagSimulation.StrataNum(), 3);
  EXPECT_EQ(control->pagDensity.flxConstantDensity.Cols(), 4);
  EXPECT_EQ(control->pagPopulation.flxN.Cols(), 4);
  EXPECT_EQ(control->pagDensity.flxConstantDensity.TextMatrix(0, 3), "C");
  EXPECT_EQ(control->pagPopulation.flxN.TextMatrix(0, 2), "B");
}

TEST_F(Lifecycle, SelectingTheInnerTabInInitializeChecksThePageShownOnTheOuterTab) {
  // The inner selection checks the page of the outer tab as it stands, here the Simulation page.
  auto control = Open("Reps=0;");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].text, "The number of repetitions must be greater than 0.");
  EXPECT_EQ(platform_.Messages()[0].title, "Error in options on Simulation Page");
  EXPECT_EQ(platform_.Messages()[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(control->tabsPopulationDescription.SelectedKey(), "General");
}

TEST_F(Lifecycle, InitializeReadsTheSettingsWithTheirSelectorsAndDefaults) {
  auto project = std::make_shared<ReadRecordingProject>();
  SIMProperties control(platform_);
  control.SetProjectDatabase(project);
  control.Initialize();
  const auto& reads = *project->reads;
  ASSERT_EQ(reads.size(), 3u);
  EXPECT_EQ(reads[0].a, 1);
  EXPECT_EQ(reads[0].b, 3);
  EXPECT_EQ(reads[0].section, "Analysis");
  EXPECT_EQ(reads[0].key, "PropertyTabLastUsed");
  EXPECT_EQ(reads[0].default_value, Variant(true));
  EXPECT_EQ(reads[1].a, 0);
  EXPECT_EQ(reads[1].b, 2);
  EXPECT_EQ(reads[1].section, "SIMProperties");
  EXPECT_EQ(reads[1].key, "CurrentTab");
  EXPECT_EQ(reads[1].default_value, Variant(int16_t{0}));
  EXPECT_EQ(reads[2].a, 0);
  EXPECT_EQ(reads[2].b, 0);
  EXPECT_EQ(reads[2].section, "SIMProperties");
  EXPECT_EQ(reads[2].key, "CurrentDFTab");
  EXPECT_EQ(reads[2].default_value, Variant(std::string("General")));

  project->reads->clear();
  control.Definition();
  ASSERT_EQ(reads.size(), 1u);
  EXPECT_EQ(reads[0].a, 1);
  EXPECT_EQ(reads[0].b, 3);
  EXPECT_EQ(reads[0].section, "Properties");
  EXPECT_EQ(reads[0].key, "InsertCrLf");
  EXPECT_EQ(reads[0].default_value, Variant(int32_t{-1}));
}

TEST_F(Lifecycle, PropertyTabLastUsedFalseOpensOnSimulationAndGeneral) {
  database_->SetSetting("Analysis", "PropertyTabLastUsed", Variant(false));
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{4}));
  database_->SetSetting("SIMProperties", "CurrentDFTab", Variant(std::string("Covariates")));
  auto control = Open("");
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 0);
  EXPECT_EQ(control->tabsPopulationDescription.SelectedKey(), "General");
  EXPECT_TRUE(control->pagPopulation.Visible());
  EXPECT_FALSE(control->pagCovariates.Visible());
}

TEST_F(Lifecycle, PropertyTabLastUsedNullCountsAsFalse) {
  database_->SetSetting("Analysis", "PropertyTabLastUsed", Variant());
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{4}));
  auto control = Open("");
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 0);
  EXPECT_EQ(database_->Calls("ReadSetting"), 1);
}

TEST_F(Lifecycle, StoredCurrentTabFourOpensOnAnalysis) {
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{4}));
  auto control = Open("Reps=10;");
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 4);
  EXPECT_EQ(control->tabsPopulationDescription.SelectedKey(), "General");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
}

TEST_F(Lifecycle, StoredInnerKeyIsReadFromCurrentDFTab) {
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{2}));
  database_->SetSetting("SIMProperties", "CurrentDFTab", Variant(std::string("covariates")));
  database_->SetSetting("SIMProperties", "CurrentAOTab", Variant(std::string("General")));
  auto control = Open("");
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 2);
  EXPECT_EQ(control->tabsPopulationDescription.SelectedKey(), "Covariates");
  EXPECT_FALSE(control->pagPopulation.Visible());
  EXPECT_TRUE(control->pagCovariates.Visible());
}

TEST_F(Lifecycle, NothingIsWrittenToTheSettingsDuringInitialize) {
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{3}));
  database_->SetSetting("SIMProperties", "CurrentDFTab", Variant(std::string("Covariates")));
  auto control = Open("Reps=10;");
  EXPECT_EQ(control->tapSimulationDefinition.CurrentTab(), 3);
  EXPECT_TRUE(database_->SettingWrites().empty());
}

TEST_F(Lifecycle, InitializeWithoutAProjectDatabaseRaisesAClearError) {
  SIMProperties control(platform_);
  try {
    control.Initialize();
    ADD_FAILURE() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 91);
    EXPECT_EQ(error.description, "No project database has been given to the control");
  }
}

TEST_F(Lifecycle, AFailingSettingsReadReachesTheHostFromInitialize) {
  database_->FailOn("ReadSetting");
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  EXPECT_EQ(ErrorNumberOf([&] { control.Initialize(); }), 5);
}

TEST_F(Lifecycle, ResetDefinitionLoadsTheEngineDefaultAndInitialises) {
  NoLineBreaks();
  database_->SetDefaultDefinition("SIM", Variant(std::string("Engine=SIM;Reps=42;")));
  auto control = Open("Reps=5;");
  control->ResetDefinition();
  EXPECT_EQ(control->pagSimulation.Reps(), "42");
  EXPECT_NE(control->Definition().find("Reps=42;"), std::string::npos);
}

TEST_F(Lifecycle, ResetDefinitionWithoutADefaultReachesTheHost) {
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  EXPECT_EQ(ErrorNumberOf([&] { control.ResetDefinition(); }), 5);
}

TEST_F(Lifecycle, ProjectDatabaseGoesToTheGlobals) {
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  EXPECT_EQ(CModGlobal::ProjectDatabase(), database_);
  EXPECT_NE(CModGlobal::ProjectSettings(), nullptr);
  EXPECT_NE(CModGlobal::ProjectCompanion(), nullptr);
}

TEST_F(Lifecycle, TabsHaveTheirCaptionsAndKeys) {
  SIMProperties control(platform_);
  const std::vector<std::string> captions = {"&Simulation",    "&Density",  "&Population",
                                             "D&etectability", "&Analysis", "&Misc."};
  ASSERT_EQ(control.tapSimulationDefinition.TabCount(), 6);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(control.tapSimulationDefinition.Caption(i), captions[i]);
  ASSERT_EQ(control.tabsPopulationDescription.TabCount(), 2);
  EXPECT_EQ(control.tabsPopulationDescription.Key(1), "General");
  EXPECT_EQ(control.tabsPopulationDescription.Caption(1), "General");
  EXPECT_EQ(control.tabsPopulationDescription.Key(2), "Covariates");
  EXPECT_EQ(control.tabsPopulationDescription.Caption(2), "Covariates");
}

}  // namespace
}  // namespace zrsimprp

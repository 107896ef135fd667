#include <string>
#include <vector>

#include "ControlTestFixture.h"

namespace zrsimprp {
namespace {

using WriteDefinition = ControlTest;

// Every entry the control writes, with a value in each: three strata, hotspots, both covariates,
// a hazard-rate detection function by stratum, analysis on and parallel running.
const std::string kFullDefinition =
    "Engine=SIM;\r\n"
    "Transects=Survey /ObjectID=1;\r\n"
    "StrataLayer=Strata;\r\n"
    "Reps=100;\r\n"
    "Density=Uniform /Densities=1,2,3 /GridSpace=10;\r\n"
    "Hotspot=\"\" /X,Y,Sig,Amp=10,20,5,2;\r\n"
    "Hotspot=\"\" /X,Y,Sig,Amp=30,40,6,3;\r\n"
    "PopSize=\"Fixed N\" /Values=100,200,300;\r\n"
    "Clusters=True /Distribution=Poisson /param=3;\r\n"
    "CategoricalCov=sex /categories=m,f /prob=0.5,0.5;\r\n"
    "ContinuousCov=size /distribution=Normal /param=3,1;\r\n"
    "Detectability=\"Hazard Rate\" /ParamByStratum=True;\r\n"
    "DetFuncParam=\"\" /Scale=20,30,40;\r\n"
    "DetFuncParam=\"\" /Shape=2,3,4;\r\n"
    "Analyse=True;\r\n"
    "DataFilter=5;\r\n"
    "ModelDef=7;\r\n"
    "ModelSelection=AIC;\r\n"
    "ParallelProcessing=True /cores=3;\r\n";

TEST_F(WriteDefinition, FullDefinitionRoundTrips) {
  auto control = Open(kFullDefinition);
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->Definition(), kFullDefinition);
}

TEST_F(WriteDefinition, InsertCrLfFalseWritesNoLineBreaks) {
  NoLineBreaks();
  auto control = Open(kFullDefinition);
  std::string expected;
  for (char c : kFullDefinition) {
    if (c != '\r' && c != '\n') expected.push_back(c);
  }
  EXPECT_EQ(control->Definition(), expected);
}

TEST_F(WriteDefinition, InsertCrLfIsConvertedToBoolean) {
  database_->SetSetting("Properties", "InsertCrLf", Variant(std::string("False")));
  auto control = Open("");
  EXPECT_EQ(control->Definition().find('\r'), std::string::npos);
  database_->SetSetting("Properties", "InsertCrLf", Variant(int32_t{1}));
  EXPECT_NE(control->Definition().find("Engine=SIM;\r\n"), std::string::npos);
}

TEST_F(WriteDefinition, PlainDefinitionHoldsExactlyTheAlwaysWrittenEntries) {
  auto control = Open("Analyse=False;");
  const std::vector<std::string> expected = {
      "Engine",   "Transects",     "StrataLayer",  "Reps",    "Density",           "PopSize",
      "Clusters", "Detectability", "DetFuncParam", "Analyse", "ParallelProcessing"};
  EXPECT_EQ(Keys(control->Definition()), expected);
}

TEST_F(WriteDefinition, HazardRateAddsTheShapeEntry) {
  NoLineBreaks();
  auto control = Open("Analyse=False;\r\nDetectability=\"Hazard Rate\" /ParamByStratum=False;");
  const std::vector<std::string> expected = {
      "Engine",   "Transects",     "StrataLayer",  "Reps",         "Density", "PopSize",
      "Clusters", "Detectability", "DetFuncParam", "DetFuncParam", "Analyse", "ParallelProcessing"};
  const std::string text = control->Definition();
  EXPECT_EQ(Keys(text), expected);
  EXPECT_NE(text.find("DetFuncParam=\"\" /Scale=0;DetFuncParam=\"\" /Shape="), std::string::npos);
}

TEST_F(WriteDefinition, EachEntryCarriesItsFields) {
  NoLineBreaks();
  auto control = Open("Transects=Survey /ObjectID=1;\r\nReps=12;\r\nAnalyse=False;");
  const std::string text = control->Definition();
  EXPECT_EQ(text.rfind("Engine=SIM;Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=12;"
                       "Density=Uniform /Densities=0,0,0 /GridSpace=",
                       0),
            0u);
  EXPECT_NE(text.find("Clusters=False;Detectability=Half-Normal /ParamByStratum=False;"), std::string::npos);
  EXPECT_NE(text.find("Analyse=False;ParallelProcessing=False /cores=\"max cores\";"), std::string::npos);
}

TEST_F(WriteDefinition, PoissonPopSizeHasNoFields) {
  auto control = Open("PopSize=\"Poisson N\";");
  const DefinitionEntry entry = EntryOf(control->Definition(), "PopSize");
  EXPECT_EQ(entry.value, "Poisson N");
  EXPECT_EQ(entry.field_count, 0);
}

TEST_F(WriteDefinition, ClustersWithPmfWriteThreeFields) {
  auto control = Open("Clusters=True /Distribution=pmf /size=1,2,3 /prob=0.5,0.3,0.2;");
  const DefinitionEntry entry = EntryOf(control->Definition(), "Clusters");
  EXPECT_EQ(entry.value, "True");
  ASSERT_EQ(entry.field_count, 3);
  EXPECT_EQ(entry.field_names, (std::vector<std::string>{"Distribution", "size", "prob"}));
  EXPECT_EQ(entry.field_values, (std::vector<std::string>{"pmf", "1,2,3", "0.5,0.3,0.2"}));
}

TEST_F(WriteDefinition, DsmWritesLayerAndField) {
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  control.pagDensity.cboLayer.AddItem("L");
  control.pagDensity.cboField.AddItem("F");
  control.SetDefinition("Density=DSM /Layer=L /Field=F;");
  control.Initialize();
  control.pagDensity.cboLayer.SetListIndex(0);
  control.pagDensity.cboField.SetListIndex(0);
  const DefinitionEntry entry = EntryOf(control.Definition(), "Density");
  EXPECT_EQ(entry.value, "DSM");
  ASSERT_EQ(entry.field_count, 2);
  EXPECT_EQ(entry.field_names, (std::vector<std::string>{"Layer", "Field"}));
  EXPECT_EQ(entry.field_values, (std::vector<std::string>{"L", "F"}));
}

TEST_F(WriteDefinition, OtherDensityDescriptionCarriesTheTransectsField) {
  // Before Initialize no density option is on, so the description is neither of the three words:
  // the entry keeps the field slots that "Transects" left.
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  const std::string text = control.Definition();
  const DefinitionEntry entry = EntryOf(text, "Density");
  EXPECT_EQ(entry.value, control.pagDensity.Description());
  EXPECT_NE(entry.value, "Uniform");
  ASSERT_EQ(entry.field_count, 1);
  EXPECT_EQ(entry.field_names[0], "ObjectID");
  EXPECT_EQ(entry.field_values[0], control.pagSimulation.TransectObjectID());
}

TEST_F(WriteDefinition, ParametersBeyondShapeAreWrittenByName) {
  NoLineBreaks();
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{3}));
  auto control = Open("Clusters=True /Distribution=Poisson /param=2;");
  // Entering the Detectability tab added the cluster-size row.
  ASSERT_EQ(control->pagDetectability.NumParams(), 3);
  EXPECT_NE(control->Definition().find("DetFuncParam=\"\" /Scale=0;DetFuncParam=\"\" /\"cluster size\"=0;"),
            std::string::npos);
}

TEST_F(WriteDefinition, ErrorGivesTheEmptyTextAndTheFullReport) {
  auto control = Open("Reps=5;");
  database_->FailOn("ReadSetting");
  EXPECT_EQ(control->Definition(), "");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].title, "Pellunar Internal Error");
  EXPECT_EQ(platform_.Messages()[0].icon, MessageIcon::Critical);
  EXPECT_EQ(platform_.Messages()[0].text,
            "The following internal error has occured in Pellunar:\r\n"
            "\r\n"
            "ReadSetting failed (injected by the test)\r\n"
            "\r\n"
            "(Error raised from: ZrSIMPrp.SIM.WriteDefinition)\r\n"
            "(Error source: ProjectSettings)\r\n"
            "(Error number: 5)\r\n"
            "\r\n"
            "If you suspect that this error is caused by a bug in the program, please note down all of the "
            "above information and contact the program authors.\r\n"
            "\r\n"
            "Press Ok and Pellunar will try to recover from the error.\r\n"
            "Press Help for more information about internal errors in Pellunar.");
  EXPECT_EQ(platform_.Beeps(), 1);
  EXPECT_EQ(platform_.MousePointerResets(), 1);
}

TEST_F(WriteDefinition, AFailingPageGetterGivesTheEmptyText) {
  // Clusters on with "Please Select" has no parameter column to read.
  auto control = Open("Clusters=True /Distribution=Poisson /param=3;");
  control->pagPopulation.cboDistribution.SetListIndex(0);
  EXPECT_EQ(control->Definition(), "");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_NE(platform_.Messages()[0].text.find("(Error raised from: ZrSIMPrp.SIM.WriteDefinition)"),
            std::string::npos);
}

TEST_F(WriteDefinition, WithoutAProjectDatabaseTheWriteIsReported) {
  SIMProperties control(platform_);
  EXPECT_EQ(control.Definition(), "");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_NE(platform_.Messages()[0].text.find("(Error raised from: ZrSIMPrp.SIM.WriteDefinition)"),
            std::string::npos);
}

}  // namespace
}  // namespace zrsimprp

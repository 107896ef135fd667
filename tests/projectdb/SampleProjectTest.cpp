#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "ProjectTestSupport.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/Variant.h"

namespace zrsimprp::testing {
namespace {

using ::testing::ElementsAre;

std::vector<DefinitionEntry> Entries(const std::string& text) {
  std::vector<DefinitionEntry> entries;
  std::string_view rest = text;
  while (!rest.empty()) {
    DefinitionEntry entry;
    DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
    entries.push_back(entry);
  }
  return entries;
}

class SampleProjectTest : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = folder_.File("sample.gpkg");
    SampleProject::Create(path_);
    project_ = GeoPackageProject::Open(path_);
  }
  TempFolder folder_;
  std::string path_;
  std::shared_ptr<GeoPackageProject> project_;
};

TEST_F(SampleProjectTest, HasARegionAndThreeNamedStrata) {
  auto strata = project_->Companion()->LayerByName("Strata");
  EXPECT_EQ(strata->Parent("")->Name(), "Study region");
  EXPECT_EQ(strata->Parent("")->Kind(), 1);
  EXPECT_NE(strata->Kind(), 1);
  auto table = strata->AttributeTable();
  const auto rows = strata->GetRows(table->IDField()->Name() + "," + table->LabelField()->Name(), 0, 1);
  ASSERT_TRUE(rows.has_value());
  EXPECT_THAT(rows->at(1), ElementsAre(Variant(std::string("North")), Variant(std::string("Central")),
                                       Variant(std::string("South"))));
  for (const Variant& id : rows->at(0)) EXPECT_NE(strata->FeatureByID(id), nullptr);
}

TEST_F(SampleProjectTest, DesignsNameTheStrataLayer) {
  const auto designs = project_->DesignGroups().at(0)->Records();
  ASSERT_EQ(designs.size(), 2u);
  for (const auto& design : designs) {
    EXPECT_EQ(DefinitionEntryCodec::Instance().EntryValue(design->DefinitionText(), "STRATUM LAYER"),
              "Strata");
  }
}

TEST_F(SampleProjectTest, HasFourSurveysOneNotReady) {
  const auto surveys = project_->SurveyGroups().at(0)->Records();
  ASSERT_EQ(surveys.size(), 4u);
  int not_ready = 0;
  for (const auto& survey : surveys) not_ready += survey->Status() != 1 ? 1 : 0;
  EXPECT_EQ(not_ready, 1);
}

TEST_F(SampleProjectTest, HasThreeDataFiltersAndModelsOfEveryEngineKind) {
  EXPECT_EQ(project_->DataFilters().size(), 3u);
  std::multiset<std::string> kinds;
  for (const auto& model : project_->ModelDefinitions()) {
    const std::string method = DefinitionEntryCodec::Instance().EntryValue(model->DefinitionText(), "Method");
    kinds.insert(model->EngineName() + (method.empty() ? "" : ":" + method));
  }
  EXPECT_EQ(kinds.count("MRDS:ds"), 1u);
  EXPECT_EQ(kinds.count("MRDS:io"), 1u);
  EXPECT_EQ(kinds.count("MA"), 1u);
  EXPECT_EQ(kinds.count("DSM"), 1u);
  EXPECT_EQ(kinds.size(), 5u);
}

TEST_F(SampleProjectTest, TheSampleSimulationUsesEveryKindOfEntry) {
  EXPECT_THAT(project_->SimulationNames(), ElementsAre("Sample simulation"));
  const auto entries = Entries(project_->SimulationDefinition("Sample simulation"));
  std::vector<std::string> keys;
  for (const auto& entry : entries) keys.push_back(entry.key);
  EXPECT_THAT(keys, ElementsAre("Engine", "Transects", "StrataLayer", "Reps", "Density", "Hotspot", "Hotspot",
                                "PopSize", "Clusters", "CategoricalCov", "ContinuousCov", "Detectability",
                                "DetFuncParam", "DetFuncParam", "Analyse", "DataFilter", "ModelDef",
                                "ModelSelection", "ParallelProcessing"));
  EXPECT_EQ(entries[1].value, "Survey");
  EXPECT_EQ(entries[1].field_names.at(0), "ObjectID");
  EXPECT_EQ(entries[2].value, "Strata");
  EXPECT_EQ(entries[4].value, "Uniform");
  EXPECT_EQ(Split(entries[4].field_values.at(0), ',').size(), 3u);
  EXPECT_EQ(entries[8].value, "True");
  EXPECT_EQ(entries[8].field_values.at(0), "Poisson");
  EXPECT_EQ(entries[11].value, "Hazard Rate");
  EXPECT_EQ(entries[12].field_names.at(0), "Scale");
  EXPECT_EQ(entries[13].field_names.at(0), "Shape");
  EXPECT_EQ(entries[14].value, "True");
}

TEST_F(SampleProjectTest, TheSimulationNamesASurveyThatIsOffered) {
  const auto entries = Entries(project_->SimulationDefinition("Sample simulation"));
  const int32_t id = ToInt32(entries[1].field_values.at(0));
  bool offered = false;
  for (const auto& survey : project_->SurveyGroups().at(0)->Records())
    offered |= survey->ID() == id && survey->Status() == 1;
  EXPECT_TRUE(offered);
}

TEST_F(SampleProjectTest, HasTheSimEngineDefault) {
  const std::string text = VariantToText(project_->EngineDefaults()->DefaultDefinition("SIM"));
  EXPECT_EQ(DefinitionEntryCodec::Instance().EntryValue(text, "Engine"), "SIM");
}

TEST_F(SampleProjectTest, CreatingAgainReplacesTheFile) {
  project_->SaveSimulationDefinition("Extra", "Reps=1;");
  project_.reset();
  SampleProject::Create(path_);
  EXPECT_THAT(GeoPackageProject::Open(path_)->SimulationNames(), ElementsAre("Sample simulation"));
}

TEST(SampleProjectBuild, TheBuildWroteTheSampleProject) {
  const std::string path = std::string(ZRSIMPRP_BINARY_DIR) + "/samples/sample.gpkg";
  if (!std::filesystem::exists(path)) GTEST_SKIP() << "the sample target was not built";
  EXPECT_THAT(GeoPackageProject::Open(path)->SimulationNames(), ElementsAre("Sample simulation"));
}

}  // namespace
}  // namespace zrsimprp::testing

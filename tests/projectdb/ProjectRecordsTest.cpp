#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ProjectTestSupport.h"
#include "projectdb/GeoPackageProject.h"

namespace zrsimprp::testing {
namespace {

std::shared_ptr<GeoPackageProject> Reopened(const std::string& path) { return GeoPackageProject::Open(path); }

TEST(ProjectRecords, DesignsComeBackInOneGroupInIdentifierOrderAfterReopening) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  project->AddDesign(12, "Lines A", "STRATUM LAYER=Strata;");
  project->AddDesign(4, "Zigzag", "Spacing=2;");
  project.reset();
  const auto groups = Reopened(path)->DesignGroups();
  ASSERT_EQ(groups.size(), 1u);
  const auto records = groups[0]->Records();
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0]->ID(), 4);
  EXPECT_EQ(records[0]->Name(), "Zigzag");
  EXPECT_EQ(records[1]->ID(), 12);
  EXPECT_EQ(records[1]->DefinitionText(), "STRATUM LAYER=Strata;");
}

TEST(ProjectRecords, SurveysCarryStatusAndDesign) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  project->AddDesign(1, "D", "");
  project->AddSurvey(3, "Lines A", 1, 1);
  project->AddSurvey(8, "Draft", 0, 1);
  project.reset();
  const auto records = Reopened(path)->SurveyGroups().at(0)->Records();
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0]->ID(), 3);
  EXPECT_EQ(records[0]->Name(), "Lines A");
  EXPECT_EQ(records[0]->Status(), 1);
  EXPECT_EQ(records[0]->DesignID(), 1);
  EXPECT_EQ(records[1]->Status(), 0);
}

TEST(ProjectRecords, AnEmptyProjectHasOneEmptyGroupOfEachKind) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  ASSERT_EQ(project->DesignGroups().size(), 1u);
  EXPECT_TRUE(project->DesignGroups()[0]->Records().empty());
  EXPECT_TRUE(project->SurveyGroups()[0]->Records().empty());
  EXPECT_TRUE(project->DataFilters().empty());
  EXPECT_TRUE(project->ModelDefinitions().empty());
}

TEST(ProjectRecords, DataFilterItemValuesGiveIdentifierTwiceAndName) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  GeoPackageProject::Create(path)->AddDataFilter(9, "Truncate at 200 m");
  const auto filters = Reopened(path)->DataFilters();
  ASSERT_EQ(filters.size(), 1u);
  int32_t a = 0, b = 0;
  std::string s;
  filters[0]->ItemValues(a, b, s);
  EXPECT_EQ(a, 9);
  EXPECT_EQ(b, 9);
  EXPECT_EQ(s, "Truncate at 200 m");
}

TEST(ProjectRecords, ModelDefinitionsGiveItemValuesEngineAndText) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  project->AddModelDefinition(2, "MRDS io", "MRDS", "Method=io;");
  project->AddModelDefinition(1, "MA hr", "MA", "Key=hr;");
  project.reset();
  const auto models = Reopened(path)->ModelDefinitions();
  ASSERT_EQ(models.size(), 2u);
  int32_t a = 0, b = 0;
  std::string s;
  models[1]->ItemValues(a, b, s);
  EXPECT_EQ(a, 2);
  EXPECT_EQ(b, 2);
  EXPECT_EQ(s, "MRDS io");
  EXPECT_EQ(models[1]->EngineName(), "MRDS");
  EXPECT_EQ(models[1]->DefinitionText(), "Method=io;");
  EXPECT_EQ(models[0]->EngineName(), "MA");
}

TEST(ProjectRecords, ARepeatedIdentifierIsRefused) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  project->AddDesign(1, "D", "");
  project->AddDataFilter(1, "F");
  project->AddModelDefinition(1, "M", "MA", "");
  project->AddSurvey(1, "S", 1, 1);
  EXPECT_EQ(CaptureError([&] { project->AddDesign(1, "again", ""); }).description,
            "The project already has a design with the identifier 1.");
  EXPECT_EQ(CaptureError([&] { project->AddSurvey(1, "again", 1, 1); }).description,
            "The project already has a survey with the identifier 1.");
  EXPECT_EQ(CaptureError([&] { project->AddDataFilter(1, "again"); }).description,
            "The project already has a data filter with the identifier 1.");
  EXPECT_EQ(CaptureError([&] { project->AddModelDefinition(1, "again", "MA", ""); }).description,
            "The project already has a model definition with the identifier 1.");
}

TEST(ProjectRecords, ASurveyOfAnUnknownDesignIsRefused) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  EXPECT_EQ(CaptureError([&] { project->AddSurvey(5, "S", 1, 77); }).description,
            "The survey 5 names the design 77, which the project does not have.");
  EXPECT_TRUE(project->Surveys().empty());
}

TEST(ProjectRecords, ARecordWithAMistypedValueInTheFileIsReportedNotGuessed) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  project->AddDesign(1, "D", "");
  project->AddSurvey(5, "S", 1, 1);
  project.reset();
  RunSql(path, "UPDATE zrsim_surveys SET status = 'active'");
  const RuntimeError error = CaptureError([&] { Reopened(path)->SurveyGroups(); });
  EXPECT_EQ(error.source, "ProjectDatabase");
  EXPECT_EQ(error.description,
            "The project file '" + path + "' is damaged: the status of the survey 5 is not a whole number.");
}

TEST(EngineDefaults, TheDefaultDefinitionOfAnEngineIsText) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  project->SetEngineDefault("SIM", "Engine=SIM;");
  project->SetEngineDefault("sim", "Engine=SIM;Reps=1;");
  project.reset();
  EXPECT_EQ(Reopened(path)->EngineDefaults()->DefaultDefinition("SIM"),
            Variant(std::string("Engine=SIM;Reps=1;")));
}

TEST(EngineDefaults, AnEngineWithoutADefaultIsReported) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  const RuntimeError error = CaptureError([&] { project->EngineDefaults()->DefaultDefinition("SIM"); });
  EXPECT_EQ(error.source, "EngineDefaults");
  EXPECT_EQ(error.description, "The project has no default definition for the engine 'SIM'.");
}

TEST(ProjectListings, ListTheRecordsForACommandLine) {
  TempFolder folder;
  auto project = MakeSmallProject(folder.File("p.gpkg"));
  project->AddDesign(1, "D", "x=1;");
  project->AddSurvey(2, "S", 0, 1);
  project->AddDataFilter(3, "F");
  project->AddModelDefinition(4, "M", "DSM", "y=2;");
  ASSERT_EQ(project->Layers().size(), 2u);
  EXPECT_EQ(project->Layers()[1].name, "Strata");
  EXPECT_EQ(project->Layers()[1].parent, "Region");
  EXPECT_EQ(project->Layers()[1].id_field, "StratumID");
  EXPECT_EQ(project->Layers()[1].label_field, "Label");
  EXPECT_EQ(project->FeatureCount("strata"), 3);
  EXPECT_EQ(project->Designs().at(0).definition_text, "x=1;");
  EXPECT_EQ(project->Surveys().at(0).status, 0);
  EXPECT_EQ(project->DataFilterList().at(0).name, "F");
  EXPECT_EQ(project->ModelDefinitionList().at(0).engine, "DSM");
}

}  // namespace
}  // namespace zrsimprp::testing

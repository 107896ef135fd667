#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ProjectTestSupport.h"
#include "projectdb/GeoPackageProject.h"

namespace zrsimprp::testing {
namespace {

using ::testing::ElementsAre;

TEST(SimulationStore, SavingCreatesANewSimulationAndReopeningShowsIt) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  GeoPackageProject::Create(path)->SaveSimulationDefinition("First run", "Engine=SIM;\r\nReps=5;\r\n");
  auto project = GeoPackageProject::Open(path);
  EXPECT_THAT(project->SimulationNames(), ElementsAre("First run"));
  EXPECT_EQ(project->SimulationDefinition("First run"), "Engine=SIM;\r\nReps=5;\r\n");
}

TEST(SimulationStore, SavingAgainReplacesTheDefinitionWhateverTheNameCase) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  project->SaveSimulationDefinition("Run", "Reps=1;");
  project->SaveSimulationDefinition("RUN", "Reps=2;");
  EXPECT_THAT(project->SimulationNames(), ElementsAre("Run"));
  EXPECT_EQ(project->SimulationDefinition("run"), "Reps=2;");
}

TEST(SimulationStore, NamesComeInTheOrderTheSimulationsWereCreated) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  for (const char* name : {"Zeta", "Alpha", "Mid"}) project->SaveSimulationDefinition(name, "Reps=1;");
  project->SaveSimulationDefinition("Alpha", "Reps=3;");
  EXPECT_THAT(project->SimulationNames(), ElementsAre("Zeta", "Alpha", "Mid"));
}

TEST(SimulationStore, AnEmptyDefinitionIsRefusedAndTheOldOneStays) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  project->SaveSimulationDefinition("Run", "Reps=7;");
  const RuntimeError error = CaptureError([&] { project->SaveSimulationDefinition("Run", ""); });
  EXPECT_EQ(error.source, "ProjectDatabase");
  EXPECT_EQ(error.description,
            "An empty definition is not saved; the simulation 'Run' keeps its previous definition.");
  project.reset();
  EXPECT_EQ(GeoPackageProject::Open(path)->SimulationDefinition("Run"), "Reps=7;");
}

TEST(SimulationStore, AnEmptyDefinitionForANewNameCreatesNothing) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  CaptureError([&] { project->SaveSimulationDefinition("New", ""); });
  EXPECT_TRUE(project->SimulationNames().empty());
}

TEST(SimulationStore, ASimulationNeedsAName) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  EXPECT_EQ(CaptureError([&] { project->SaveSimulationDefinition(" ", "Reps=1;"); }).description,
            "A simulation needs a name.");
}

TEST(SimulationStore, AnUnknownSimulationIsReportedByName) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  const RuntimeError error = CaptureError([&] { project->SimulationDefinition("Nope"); });
  EXPECT_EQ(error.source, "ProjectDatabase");
  EXPECT_EQ(error.description, "The project has no simulation named 'Nope'.");
}

TEST(SimulationStore, AnyBytesOfADefinitionSurviveTheFile) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  std::string text = "Density=Simple /Formula=\"= -100 + x*1.02\";";
  text += std::string("\0\x01\xff\"'", 5);
  GeoPackageProject::Create(path)->SaveSimulationDefinition("Bytes", text);
  EXPECT_EQ(GeoPackageProject::Open(path)->SimulationDefinition("Bytes"), text);
}

TEST(SimulationStore, SavingMarksTheSimulationTableAsChanged) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto project = GeoPackageProject::Create(path);
  RunSql(path, "UPDATE gpkg_contents SET last_change = '2000-01-01T00:00:00Z'");
  project->SaveSimulationDefinition("Run", "Reps=1;");
  EXPECT_EQ(QueryInteger(path,
                         "SELECT count(*) FROM gpkg_contents WHERE table_name = 'zrsim_simulations'"
                         " AND last_change > '2001'"),
            1);
}

}  // namespace
}  // namespace zrsimprp::testing

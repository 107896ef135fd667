// The project file as other programs see it: valid for GDAL's GeoPackage checks, readable in the
// first format without being changed, upgraded by its first write, and safe when several programs
// use it at once.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <limits>
#include <thread>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/GeoPackageValidator.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/ProjectTestSupport.h"
#include "projectdb/SampleProject.h"
#include "support/FileBytes.h"
#include "zrsimprp/host/LayerCatalogue.h"
#include "zrsimprp/host/ProjectSettings.h"
#include "zrsimprp/host/RecordGroup.h"
#include "zrsimprp/host/SurveyRecord.h"

namespace zrsimprp {
namespace {

using testing::CaptureError;
using testing::FileBytes;
using testing::QueryInteger;
using testing::RunSql;
using testing::TempFolder;

size_t SurveyCount(GeoPackageProject& project) {
  size_t count = 0;
  for (const auto& group : project.SurveyGroups()) count += group->Records().size();
  return count;
}

// A file as the first format wrote it: setting values in an untyped column, integers as integers.
void WriteFormatOneProject(const std::string& path) {
  testing::MakeSmallProject(path);
  RunSql(
      path,
      "DROP TABLE zrsim_settings;"
      "CREATE TABLE zrsim_settings (fid INTEGER PRIMARY KEY AUTOINCREMENT, section TEXT NOT NULL COLLATE "
      "NOCASE, key TEXT NOT NULL COLLATE NOCASE, selector_a INTEGER NOT NULL DEFAULT 0, selector_b INTEGER "
      "NOT NULL DEFAULT 0, value_type TEXT NOT NULL, value , UNIQUE (section, key));"
      "INSERT INTO zrsim_settings (section, key, selector_a, selector_b, value_type, value) VALUES"
      " ('S', 'small', 1, 2, 'int16', -7), ('S', 'big', 1, 2, 'int32', 70000),"
      " ('S', 'flag', 1, 2, 'bool', 1), ('S', 'real', 1, 2, 'double', 0.1),"
      " ('S', 'text', 1, 2, 'string', 'hello'), ('S', 'nothing', 1, 2, 'null', NULL);"
      "UPDATE zrsim_project SET format_version = 1;");
}

void ExpectFormatOneValues(ProjectSettings& settings) {
  const Variant none = Variant(std::string("absent"));
  EXPECT_EQ(settings.ReadSetting(1, 2, "S", "small", none), Variant(int16_t{-7}));
  EXPECT_EQ(settings.ReadSetting(1, 2, "S", "big", none), Variant(int32_t{70000}));
  EXPECT_EQ(settings.ReadSetting(1, 2, "S", "flag", none), Variant(true));
  EXPECT_EQ(settings.ReadSetting(1, 2, "S", "real", none), Variant(0.1));
  EXPECT_EQ(settings.ReadSetting(1, 2, "S", "text", none), Variant(std::string("hello")));
  EXPECT_EQ(settings.ReadSetting(1, 2, "S", "nothing", none), Variant());
}

TEST(ProjectFileValidity, ANewProjectPassesGdalsChecks) {
  TempFolder folder;
  GeoPackageProject::Create(folder.File("new.gpkg"));
  EXPECT_VALID_GEOPACKAGE(folder.File("new.gpkg"));
}

TEST(ProjectFileValidity, TheSampleProjectPassesGdalsChecks) {
  TempFolder folder;
  SampleProject::Create(folder.File("sample.gpkg"));
  EXPECT_VALID_GEOPACKAGE(folder.File("sample.gpkg"));
}

TEST(ProjectFileValidity, SettingsOfEveryTypeAndASavedDefinitionKeepTheFileValid) {
  TempFolder folder;
  auto project = testing::MakeSmallProject(folder.File("p.gpkg"));
  auto settings = project->Settings();
  settings->WriteSetting(1, 3, "S", "small", Variant(int16_t{-32768}));
  settings->WriteSetting(1, 3, "S", "big", Variant(int32_t{2147483647}));
  settings->WriteSetting(1, 3, "S", "flag", Variant(false));
  settings->WriteSetting(1, 3, "S", "real", Variant(1.0 / 3.0));
  settings->WriteSetting(1, 3, "S", "text", Variant(std::string("")));
  settings->WriteSetting(1, 3, "S", "nothing", Variant());
  project->SaveSimulationDefinition("Run", "Engine=SIM;");
  project.reset();
  EXPECT_EQ(QueryInteger(folder.File("p.gpkg"),
                         "SELECT count(*) FROM pragma_table_info('zrsim_settings') WHERE name = 'value' AND "
                         "type = 'TEXT'"),
            1);
  EXPECT_VALID_GEOPACKAGE(folder.File("p.gpkg"));
}

TEST(ProjectFileValidity, EveryValueTypeReadsBackAsTheVariantWritten) {
  TempFolder folder;
  auto project = GeoPackageProject::Create(folder.File("p.gpkg"));
  const std::vector<Variant> values = {Variant(),
                                       Variant(true),
                                       Variant(false),
                                       Variant(int16_t{-32768}),
                                       Variant(int16_t{32767}),
                                       Variant(int32_t{-2147483647 - 1}),
                                       Variant(0.1),
                                       Variant(-1e-300),
                                       Variant(std::numeric_limits<double>::max()),
                                       Variant(std::string("")),
                                       Variant(std::string("12")),
                                       Variant(std::string("true"))};
  for (size_t i = 0; i < values.size(); ++i) {
    project->Settings()->WriteSetting(1, 0, "Types", "k" + std::to_string(i), values[i]);
  }
  auto reopened = GeoPackageProject::Open(folder.File("p.gpkg"));
  for (size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(reopened->Settings()->ReadSetting(1, 0, "Types", "k" + std::to_string(i), Variant(int32_t{99})),
              values[i])
        << i;
  }
}

TEST(ProjectFormatUpgrade, AFormatOneFileIsReadWithoutBeingChanged) {
  TempFolder folder;
  const std::string path = folder.File("old.gpkg");
  WriteFormatOneProject(path);
  const std::string before = FileBytes(path);
  {
    auto project = GeoPackageProject::Open(path);
    EXPECT_EQ(project->FormatVersion(), 1);
    ExpectFormatOneValues(*project->Settings());
    EXPECT_EQ(project->Layers().size(), 2u);
    EXPECT_EQ(project->Companion()->LayerByName("Strata")->GetRows("StratumID", 0, 1)->front().size(), 3u);
  }
  EXPECT_EQ(FileBytes(path), before);
}

TEST(ProjectFormatUpgrade, TheFirstWriteUpgradesTheFileKeepingEveryValue) {
  TempFolder folder;
  const std::string path = folder.File("old.gpkg");
  WriteFormatOneProject(path);
  {
    auto project = GeoPackageProject::Open(path);
    project->AddDataFilter(7, "Written after the upgrade");
    EXPECT_EQ(project->FormatVersion(), ProjectSchema::kFormatVersion);
    ExpectFormatOneValues(*project->Settings());
  }
  EXPECT_EQ(QueryInteger(path, "SELECT format_version FROM zrsim_project"), ProjectSchema::kFormatVersion);
  EXPECT_EQ(
      QueryInteger(path, "SELECT count(*) FROM zrsim_settings WHERE typeof(value) NOT IN ('text', 'null')"),
      0);
  auto reopened = GeoPackageProject::Open(path);
  ExpectFormatOneValues(*reopened->Settings());
  EXPECT_EQ(reopened->DataFilterList().back().name, "Written after the upgrade");
  reopened.reset();
  EXPECT_VALID_GEOPACKAGE(path);
}

TEST(ProjectFormatUpgrade, AFailedFirstWriteLeavesTheOldFormatUntouched) {
  TempFolder folder;
  const std::string path = folder.File("old.gpkg");
  WriteFormatOneProject(path);
  const std::string before = FileBytes(path);
  {
    auto project = GeoPackageProject::Open(path);
    const RuntimeError error = CaptureError([&] { project->AddSurvey(1, "S", 1, 999); });
    EXPECT_EQ(error.description, "The survey 1 names the design 999, which the project does not have.");
    EXPECT_EQ(project->FormatVersion(), 1);
  }
  EXPECT_EQ(FileBytes(path), before);
}

TEST(ProjectCache, ASecondProgramsChangeIsSeenByTheNextRead) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto first = testing::MakeSmallProject(path);
  first->AddDesign(1, "D", "STRATUM LAYER=Strata;");
  first->AddSurvey(1, "S1", 1, 1);
  EXPECT_EQ(SurveyCount(*first), 1u);
  auto second = GeoPackageProject::Open(path);
  second->AddSurvey(2, "S2", 1, 1);
  EXPECT_EQ(SurveyCount(*first), 2u);
  RunSql(path, "UPDATE strata SET Label = 'Renamed' WHERE StratumID = 7");
  const auto rows = first->Companion()->LayerByName("Strata")->GetRows("StratumID,Label", 0, 1);
  ASSERT_TRUE(rows.has_value());
  EXPECT_EQ((*rows)[1][0], Variant(std::string("Renamed")));
}

TEST(ProjectCache, TheProjectsOwnWriteIsSeenByTheNextRead) {
  TempFolder folder;
  auto project = testing::MakeSmallProject(folder.File("p.gpkg"));
  project->AddDesign(1, "D", "STRATUM LAYER=Strata;");
  EXPECT_EQ(SurveyCount(*project), 0u);
  project->AddSurvey(5, "Five", 1, 1);
  EXPECT_EQ(SurveyCount(*project), 1u);
  EXPECT_EQ(project->DataFilters().size(), 0u);
  project->AddDataFilter(1, "F");
  EXPECT_EQ(project->DataFilters().size(), 1u);
  EXPECT_EQ(project->ModelDefinitions().size(), 0u);
  project->AddModelDefinition(1, "M", "CDS", "");
  EXPECT_EQ(project->ModelDefinitions().size(), 1u);
}

TEST(ProjectConcurrency, ASaveOverAnotherEditorsSaveIsReportedAndWritesNothing) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto first = testing::MakeSmallProject(path);
  first->SaveSimulationDefinition("Run", "Reps=1;");
  const std::string loaded = first->SimulationDefinition("Run");
  auto second = GeoPackageProject::Open(path);
  EXPECT_EQ(second->SaveSimulationDefinitionIfUnchanged("Run", loaded, "Reps=2;"),
            GeoPackageProject::SaveOutcome::kSaved);
  EXPECT_EQ(first->SaveSimulationDefinitionIfUnchanged("Run", loaded, "Reps=3;"),
            GeoPackageProject::SaveOutcome::kChangedSinceLoaded);
  EXPECT_EQ(first->SimulationDefinition("Run"), "Reps=2;");
  EXPECT_EQ(first->SaveSimulationDefinitionIfUnchanged("Run", "Reps=2;", "Reps=3;"),
            GeoPackageProject::SaveOutcome::kSaved);
  EXPECT_EQ(second->SimulationDefinition("Run"), "Reps=3;");
}

TEST(ProjectConcurrency, ANewSimulationIsNotAddedOverOneAddedMeanwhile) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto first = testing::MakeSmallProject(path);
  GeoPackageProject::Open(path)->SaveSimulationDefinition("run", "Reps=5;");
  EXPECT_EQ(first->SaveSimulationDefinitionIfUnchanged("Run", "", "Reps=1;"),
            GeoPackageProject::SaveOutcome::kChangedSinceLoaded);
  EXPECT_EQ(first->SimulationDefinition("run"), "Reps=5;");
}

TEST(ProjectConcurrency, AShortLockByAnotherProgramIsWaitedFor) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  auto project = testing::MakeSmallProject(path);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  std::thread release([other] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
  });
  EXPECT_NO_THROW(project->AddDataFilter(1, "After the lock"));
  release.join();
  sqlite3_close(other);
  EXPECT_EQ(project->DataFilterList().size(), 1u);
}

TEST(ProjectConcurrency, ALongLockIsOneClearSentenceAndChangesNothing) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  testing::MakeSmallProject(path);
  GeoPackageProject::OpenOptions options;
  options.busy_timeout_ms = 100;
  auto project = GeoPackageProject::Open(path, options);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  const std::string before = FileBytes(path);
  const RuntimeError error = CaptureError([&] { project->AddDataFilter(1, "Blocked"); });
  EXPECT_EQ(error.description,
            "The project file '" + path + "' could not be written: another program is using the file.");
  sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_close(other);
  EXPECT_EQ(FileBytes(path), before);
  EXPECT_EQ(project->DataFilterList().size(), 0u);
}

TEST(ProjectConcurrency, AFileHeldExclusivelyByAnotherWriterCannotBeOpenedAndIsUnchanged) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  testing::MakeSmallProject(path);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  const std::string before = FileBytes(path);
  GeoPackageProject::OpenOptions options;
  options.busy_timeout_ms = 100;
  const RuntimeError error = CaptureError([&] { GeoPackageProject::Open(path, options); });
  EXPECT_EQ(error.description,
            "The project file '" + path + "' could not be read: another program is using the file.");
  sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_close(other);
  EXPECT_EQ(FileBytes(path), before);
}

TEST(ProjectReadOnly, AReadOnlyProjectReadsAndRefusesChanges) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  testing::MakeSmallProject(path)->SaveSimulationDefinition("Run", "Reps=1;");
  const std::string before = FileBytes(path);
  GeoPackageProject::OpenOptions options;
  options.read_only = true;
  auto project = GeoPackageProject::Open(path, options);
  EXPECT_TRUE(project->IsReadOnly());
  EXPECT_EQ(project->SimulationDefinition("Run"), "Reps=1;");
  EXPECT_EQ(project->Companion()->LayerByName("Strata")->Name(), "Strata");
  const RuntimeError error = CaptureError([&] { project->SaveSimulationDefinition("Run", "Reps=2;"); });
  EXPECT_EQ(error.description, "The project file '" + path + "' is open read-only, so it cannot be changed.");
  const RuntimeError setting =
      CaptureError([&] { project->Settings()->WriteSetting(1, 0, "S", "K", Variant(int32_t{1})); });
  EXPECT_EQ(setting.description, error.description);
  project.reset();
  EXPECT_EQ(FileBytes(path), before);
}

// What a project the system will not let us write must do: open for reading, and refuse a save in
// one sentence without touching the file. The project is MakeSmallProject's with "Run" saved.
void ExpectOpensReadOnlyAndRefusesASave(const std::string& path) {
  const std::string before = FileBytes(path);
  {
    auto project = GeoPackageProject::Open(path);
    EXPECT_TRUE(project->IsReadOnly());
    EXPECT_EQ(project->Layers().size(), 2u);
    EXPECT_EQ(project->SimulationDefinition("Run"), "Reps=1;");
    const RuntimeError error = CaptureError([&] { project->SaveSimulationDefinition("Run", "Reps=2;"); });
    EXPECT_EQ(error.source, "ProjectDatabase");
    EXPECT_EQ(error.description,
              "The project file '" + path + "' is open read-only, so it cannot be changed.");
  }
  EXPECT_EQ(FileBytes(path), before);
}

TEST(ProjectReadOnly, AFileThatMayNotBeWrittenOpensReadOnly) {
  if (::geteuid() == 0) GTEST_SKIP() << "file permissions do not bind the superuser";
  namespace fs = std::filesystem;
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  testing::MakeSmallProject(path)->SaveSimulationDefinition("Run", "Reps=1;");
  fs::permissions(path, fs::perms::owner_read);
  ExpectOpensReadOnlyAndRefusesASave(path);
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
}

// SQLite writes its journal beside the file, so a writable file in a closed folder cannot be changed
// either.
TEST(ProjectReadOnly, AFileInAFolderThatMayNotBeWrittenOpensReadOnly) {
  if (::geteuid() == 0) GTEST_SKIP() << "file permissions do not bind the superuser";
  namespace fs = std::filesystem;
  TempFolder folder;
  const fs::path closed = fs::path(folder.File("closed"));
  fs::create_directories(closed);
  const std::string path = (closed / "p.gpkg").string();
  testing::MakeSmallProject(path)->SaveSimulationDefinition("Run", "Reps=1;");
  fs::permissions(closed, fs::perms::owner_read | fs::perms::owner_exec);
  ExpectOpensReadOnlyAndRefusesASave(path);
  fs::permissions(closed, fs::perms::owner_all);
}

TEST(ProjectReadOnly, AWritableFileOpensForWriting) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  testing::MakeSmallProject(path);
  EXPECT_FALSE(GeoPackageProject::Open(path)->IsReadOnly());
}

TEST(ProjectDamage, ATruncatedFileIsOneClearSentenceAndIsNotChanged) {
  TempFolder folder;
  const std::string path = folder.File("cut.gpkg");
  SampleProject::Create(path);
  std::filesystem::resize_file(path, 3 * 1024);
  const std::string before = FileBytes(path);
  const RuntimeError error = CaptureError([&] { GeoPackageProject::Open(path); });
  EXPECT_EQ(error.source, "ProjectDatabase");
  EXPECT_EQ(
      error.description.rfind("The project file '" + path + "' could not be read: the file is damaged", 0),
      0u)
      << error.description;
  EXPECT_EQ(FileBytes(path), before);
}

TEST(ProjectDamage, AFileThatIsNotSqliteIsOneClearSentence) {
  TempFolder folder;
  const std::string path = folder.File("text.gpkg");
  testing::WriteBytes(path, std::string(4096, 'x'));
  const RuntimeError error = CaptureError([&] { GeoPackageProject::Open(path); });
  EXPECT_EQ(error.description,
            "The project file '" + path + "' could not be read: it is not an SQLite database.");
  EXPECT_EQ(FileBytes(path), std::string(4096, 'x'));
}

TEST(ProjectDamage, AGeoPackageWithoutProjectTablesIsOneClearSentence) {
  TempFolder folder;
  const std::string path = folder.File("plain.gpkg");
  GeoPackageProject::Create(path);
  RunSql(
      path,
      "DROP TABLE zrsim_project; DROP TABLE zrsim_layers; DROP TABLE zrsim_designs; DROP TABLE zrsim_surveys;"
      "DROP TABLE zrsim_data_filters; DROP TABLE zrsim_model_definitions; DROP TABLE zrsim_simulations;"
      "DROP TABLE zrsim_settings; DROP TABLE zrsim_engine_defaults; DELETE FROM gpkg_contents;");
  const std::string before = FileBytes(path);
  const RuntimeError error = CaptureError([&] { GeoPackageProject::Open(path); });
  EXPECT_EQ(error.description,
            "The file '" + path + "' is a GeoPackage but not a project file: it holds no project tables.");
  EXPECT_EQ(FileBytes(path), before);
}

}  // namespace
}  // namespace zrsimprp

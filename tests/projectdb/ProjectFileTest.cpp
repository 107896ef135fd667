#include <gtest/gtest.h>

#include <filesystem>

#include "ProjectTestSupport.h"
#include "projectdb/GeoPackageProject.h"

namespace zrsimprp::testing {
namespace {

TEST(ProjectFile, OpeningAMissingFileSaysItDoesNotExist) {
  TempFolder folder;
  const std::string path = folder.File("absent.gpkg");
  const RuntimeError error = CaptureError([&] { GeoPackageProject::Open(path); });
  EXPECT_EQ(error.source, "ProjectDatabase");
  EXPECT_EQ(error.description, "The project file '" + path + "' does not exist.");
}

TEST(ProjectFile, OpeningNeverCreatesAFile) {
  TempFolder folder;
  const std::string path = folder.File("absent.gpkg");
  CaptureError([&] { GeoPackageProject::Open(path); });
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ProjectFile, OpeningAFolderSaysItIsAFolder) {
  TempFolder folder;
  const std::string path = folder.File("");
  EXPECT_EQ(CaptureError([&] { GeoPackageProject::Open(path); }).description,
            "'" + path + "' is a folder, not a project file.");
}

TEST(ProjectFile, OpeningAnEmptyFileSaysItIsEmpty) {
  TempFolder folder;
  const std::string path = folder.File("empty.gpkg");
  WriteBytes(path, "");
  EXPECT_EQ(CaptureError([&] { GeoPackageProject::Open(path); }).description,
            "The file '" + path + "' is empty, so it is not a project file.");
}

TEST(ProjectFile, OpeningATextFileSaysItIsNotAnSqliteDatabase) {
  TempFolder folder;
  const std::string path = folder.File("notes.gpkg");
  WriteBytes(path, "These are my field notes, not a project.\n");
  const RuntimeError error = CaptureError([&] { GeoPackageProject::Open(path); });
  EXPECT_EQ(error.source, "ProjectDatabase");
  EXPECT_EQ(error.description,
            "The project file '" + path + "' could not be read: it is not an SQLite database.");
}

TEST(ProjectFile, OpeningRandomBytesSaysItIsNotAnSqliteDatabase) {
  TempFolder folder;
  const std::string path = folder.File("random.gpkg");
  std::string bytes;
  for (int i = 0; i < 8192; ++i) bytes.push_back(static_cast<char>((i * 7919 + 13) % 251));
  WriteBytes(path, bytes);
  EXPECT_EQ(CaptureError([&] { GeoPackageProject::Open(path); }).description,
            "The project file '" + path + "' could not be read: it is not an SQLite database.");
}

TEST(ProjectFile, OpeningAnSqliteDatabaseThatIsNotAGeoPackageSaysSo) {
  TempFolder folder;
  const std::string path = folder.File("plain.sqlite");
  RunSql(path, "CREATE TABLE t (a INTEGER);");
  EXPECT_EQ(
      CaptureError([&] { GeoPackageProject::Open(path); }).description,
      "The file '" + path + "' is an SQLite database but not a GeoPackage, so it cannot be a project file.");
}

TEST(ProjectFile, OpeningAGeoPackageThatIsNotAProjectSaysSo) {
  TempFolder folder;
  const std::string path = folder.File("counties.gpkg");
  WriteForeignGeoPackage(path, "nc.gpkg", 3);
  EXPECT_EQ(CaptureError([&] { GeoPackageProject::Open(path); }).description,
            "The file '" + path + "' is a GeoPackage but not a project file: it holds no project tables.");
}

TEST(ProjectFile, OpeningAProjectWithAMissingTableNamesTheTable) {
  TempFolder folder;
  const std::string path = folder.File("damaged.gpkg");
  GeoPackageProject::Create(path);
  RunSql(path, "DROP TABLE zrsim_surveys;");
  EXPECT_EQ(CaptureError([&] { GeoPackageProject::Open(path); }).description,
            "The project file '" + path + "' is damaged: its table 'zrsim_surveys' is missing.");
}

TEST(ProjectFile, OpeningAProjectWithAMistypedColumnNamesColumnAndTypes) {
  TempFolder folder;
  const std::string path = folder.File("mistyped.gpkg");
  GeoPackageProject::Create(path);
  RunSql(path,
         "DROP TABLE zrsim_surveys; CREATE TABLE zrsim_surveys (id INTEGER PRIMARY KEY, name TEXT,"
         " status TEXT, design_id INTEGER);");
  EXPECT_EQ(
      CaptureError([&] { GeoPackageProject::Open(path); }).description,
      "The project file '" + path +
          "' is damaged: the column 'status' of its table 'zrsim_surveys' has the type TEXT where INTEGER "
          "is expected.");
}

TEST(ProjectFile, OpeningAProjectWithAMissingColumnNamesIt) {
  TempFolder folder;
  const std::string path = folder.File("short.gpkg");
  GeoPackageProject::Create(path);
  RunSql(
      path,
      "DROP TABLE zrsim_simulations; CREATE TABLE zrsim_simulations (fid INTEGER PRIMARY KEY, name TEXT);");
  EXPECT_EQ(CaptureError([&] { GeoPackageProject::Open(path); }).description,
            "The project file '" + path +
                "' is damaged: the column 'definition' of its table 'zrsim_simulations' is missing.");
}

TEST(ProjectFile, OpeningAProjectWhoseTableIsAViewSaysSo) {
  TempFolder folder;
  const std::string path = folder.File("view.gpkg");
  GeoPackageProject::Create(path);
  RunSql(path,
         "DROP TABLE zrsim_data_filters; CREATE VIEW zrsim_data_filters AS SELECT 1 AS id, 'a' AS name;");
  EXPECT_EQ(CaptureError([&] { GeoPackageProject::Open(path); }).description,
            "The project file '" + path + "' is damaged: 'zrsim_data_filters' is not a table.");
}

TEST(ProjectFile, OpeningAProjectFromANewerFormatRefuses) {
  TempFolder folder;
  const std::string path = folder.File("newer.gpkg");
  GeoPackageProject::Create(path);
  RunSql(path, "UPDATE zrsim_project SET format_version = 9;");
  EXPECT_EQ(
      CaptureError([&] { GeoPackageProject::Open(path); }).description,
      "The project file '" + path + "' was written by a newer version (format 9) and cannot be opened.");
}

TEST(ProjectFile, CreateRefusesAnExistingFile) {
  TempFolder folder;
  const std::string path = folder.File("taken.gpkg");
  WriteBytes(path, "keep me");
  EXPECT_EQ(CaptureError([&] { GeoPackageProject::Create(path); }).description,
            "The file '" + path + "' already exists; a new project needs a file name that is not in use.");
  EXPECT_EQ(std::filesystem::file_size(path), 7u);
}

TEST(ProjectFile, CreateInAMissingFolderExplainsAndLeavesNothing) {
  TempFolder folder;
  const std::string path = folder.File("no/such/folder/new.gpkg");
  const RuntimeError error = CaptureError([&] { GeoPackageProject::Create(path); });
  EXPECT_EQ(error.description.rfind("The project file '" + path + "' could not be created.", 0), 0u)
      << error.description;
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ProjectFile, CreateWritesAGeoPackageWithItsCoreTables) {
  TempFolder folder;
  const std::string path = folder.File("new.gpkg");
  auto project = GeoPackageProject::Create(path);
  EXPECT_EQ(project->Path(), path);
  project.reset();
  EXPECT_EQ(QueryInteger(path, "PRAGMA application_id"), 0x47504B47);
  EXPECT_EQ(QueryInteger(path, "PRAGMA user_version"), 10300);
  EXPECT_EQ(QueryInteger(path, "SELECT count(*) FROM gpkg_spatial_ref_sys WHERE srs_id IN (-1, 0, 4326)"), 3);
  EXPECT_EQ(QueryInteger(path, "SELECT count(*) FROM gpkg_contents WHERE data_type = 'attributes'"), 9);
  EXPECT_NO_THROW(GeoPackageProject::Open(path));
}

TEST(ProjectFile, OpensAProjectMarkedWithTheOlderGp10Id) {
  TempFolder folder;
  const std::string path = folder.File("old.gpkg");
  GeoPackageProject::Create(path);
  RunSql(path, "PRAGMA application_id = 1196437808; PRAGMA user_version = 0;");
  EXPECT_NO_THROW(GeoPackageProject::Open(path));
}

}  // namespace
}  // namespace zrsimprp::testing

#include <gtest/gtest.h>

#include "ProjectTestSupport.h"
#include "projectdb/GeoPackageProject.h"

namespace zrsimprp::testing {
namespace {

class ProjectSettingsRoundTrip : public ::testing::TestWithParam<Variant> {};

TEST_P(ProjectSettingsRoundTrip, AValueReadAfterReopeningHasItsTypeAndValue) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  GeoPackageProject::Create(path)->Settings()->WriteSetting(0, 2, "SIMProperties", "CurrentTab", GetParam());
  const Variant read = GeoPackageProject::Open(path)->Settings()->ReadSetting(
      0, 2, "SIMProperties", "CurrentTab", Variant("default"));
  EXPECT_EQ(read.index(), GetParam().index());
  EXPECT_EQ(read, GetParam());
}

INSTANTIATE_TEST_SUITE_P(EveryVariantType, ProjectSettingsRoundTrip,
                         ::testing::Values(Variant(), Variant(true), Variant(false), Variant(int16_t{-32768}),
                                           Variant(int16_t{3}), Variant(int32_t{-1}),
                                           Variant(int32_t{2147483647}), Variant(0.1), Variant(-2.5e300),
                                           Variant(std::string("General")), Variant(std::string())));

TEST(ProjectSettings, AMissingSettingGivesTheDefault) {
  TempFolder folder;
  auto settings = GeoPackageProject::Create(folder.File("p.gpkg"))->Settings();
  EXPECT_EQ(settings->ReadSetting(1, 3, "Analysis", "PropertyTabLastUsed", Variant(true)), Variant(true));
  EXPECT_EQ(settings->ReadSetting(0, 0, "SIMProperties", "CurrentDFTab", Variant(std::string("General"))),
            Variant(std::string("General")));
}

TEST(ProjectSettings, SectionAndKeyIgnoreCaseAndSelectorsDoNotSplitValues) {
  TempFolder folder;
  auto settings = GeoPackageProject::Create(folder.File("p.gpkg"))->Settings();
  settings->WriteSetting(0, 2, "SIMProperties", "CurrentDFTab", Variant(std::string("Covariates")));
  EXPECT_EQ(settings->ReadSetting(0, 0, "simproperties", "currentdftab", Variant()),
            Variant(std::string("Covariates")));
}

TEST(ProjectSettings, WritingAgainReplacesValueAndType) {
  TempFolder folder;
  auto settings = GeoPackageProject::Create(folder.File("p.gpkg"))->Settings();
  settings->WriteSetting(1, 3, "Properties", "InsertCrLf", Variant(int32_t{-1}));
  settings->WriteSetting(1, 3, "Properties", "InsertCrLf", Variant(false));
  EXPECT_EQ(settings->ReadSetting(1, 3, "Properties", "InsertCrLf", Variant()), Variant(false));
}

TEST(ProjectSettings, AStoredValueThatDoesNotMatchItsTypeIsAClearError) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  GeoPackageProject::Create(path)->Settings()->WriteSetting(0, 2, "SIMProperties", "CurrentTab",
                                                            Variant(int16_t{2}));
  RunSql(path, "UPDATE zrsim_settings SET value = 'two'");
  const RuntimeError error = CaptureError([&] {
    GeoPackageProject::Open(path)->Settings()->ReadSetting(0, 2, "SIMProperties", "CurrentTab", Variant());
  });
  EXPECT_EQ(error.source, "ProjectSettings");
  EXPECT_EQ(error.number, 13);
  EXPECT_EQ(
      error.description,
      "The setting 'CurrentTab' in section 'SIMProperties' of the project file holds a value that does not "
      "match its type 'int16'.");
}

TEST(ProjectSettings, AnInt16OutOfRangeInTheFileIsRefused) {
  TempFolder folder;
  const std::string path = folder.File("p.gpkg");
  GeoPackageProject::Create(path)->Settings()->WriteSetting(0, 2, "S", "K", Variant(int16_t{2}));
  RunSql(path, "UPDATE zrsim_settings SET value = 40000");
  EXPECT_EQ(CaptureError([&] {
              GeoPackageProject::Open(path)->Settings()->ReadSetting(0, 2, "S", "K", Variant());
            }).source,
            "ProjectSettings");
}

}  // namespace
}  // namespace zrsimprp::testing

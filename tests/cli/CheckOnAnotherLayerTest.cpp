#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CliFixture.h"
#include "JsonReader.h"
#include "projectdb/GeoPackageProject.h"

namespace {

// The sample simulation switched to a layer of 281 tracts of its own: the three sample values land on
// the first three tracts and the hotspots lie far outside the new region.
class CheckOnAnotherLayer : public CliFixture {
 protected:
  static constexpr int kTracts = 281;

  std::string TractsProject() {
    const std::string path = SampleProject();
    auto project = zrsimprp::GeoPackageProject::Open(path);
    std::vector<zrsimprp::PolygonFeature> tracts;
    for (int i = 0; i < kTracts; ++i) {
      // 1 km squares in a row, 400 km east of the sample's region.
      const double left = 400000 + 1000.0 * i;
      tracts.push_back({i + 1,
                        "Tract " + std::to_string(i + 1),
                        {{{{left, 0}, {left + 1000, 0}, {left + 1000, 1000}, {left, 1000}, {left, 0}}}}});
    }
    project->AddLayer("Tracts", 2, "Study region", "TractID", "TractName", tracts);
    project->AddDesign(7, "Tract lines",
                       "Engine=DES;\r\nType=Parallel /Spacing=500;\r\n\"STRATUM LAYER\"=Tracts;\r\n"
                       "Truncation=200;\r\n");
    project->AddSurvey(7, "Tract survey", 1, 7);
    return path;
  }

  std::string SwitchedDefinition() {
    std::string definition = SampleDefinition();
    definition.replace(definition.find("ObjectID=3"), 10, "ObjectID=7");
    definition.replace(definition.find("StrataLayer=Strata"), 18, "StrataLayer=Tracts");
    return definition;
  }
};

TEST_F(CheckOnAnotherLayer, StrictCheckOfTheSampleOnTractsFailsWithOneLinePerCause) {
  const std::string project = TractsProject();
  Result result = Run({"check", "--project", project, "--definition", "-", "--strict"}, SwitchedDefinition());
  EXPECT_EQ(result.status, 3) << result.out << result.err;
  const std::string findings = result.out.substr(result.out.find("Misc: OK\n") + 9);
  EXPECT_EQ(
      findings,
      "ZR107 warning at line 5 (Density /Densities): The entry \"Density\" gives no density for 278 strata "
      "('Tract 4', 'Tract 5', 'Tract 6', 'Tract 7', 'Tract 8' and 273 more), which keep 0; give one value "
      "for each stratum.\n"
      "ZR107 warning at line 8 (PopSize /Values): The entry \"PopSize\" gives no population size for 278 "
      "strata ('Tract 4', 'Tract 5', 'Tract 6', 'Tract 7', 'Tract 8' and 273 more), which keep 0; give one "
      "value for each stratum.\n"
      "ZR603 warning at line 6 (Hotspot /X,Y,Sig,Amp): The centre (800, 1700) of hotspot 1 lies outside "
      "every stratum of the layer \"Tracts\", 399201 map units from the region; move the centre into the "
      "region or delete the hotspot.\n"
      "ZR603 warning at line 7 (Hotspot /X,Y,Sig,Amp): The centre (2200, 300) of hotspot 2 lies outside "
      "every stratum of the layer \"Tracts\", 397800 map units from the region; move the centre into the "
      "region or delete the hotspot.\n");
}

TEST_F(CheckOnAnotherLayer, JsonKeepsEveryStratumAndWhereTheFindingPoints) {
  const std::string project = TractsProject();
  Result result =
      Run({"check", "--project", project, "--definition", "-", "--format", "json"}, SwitchedDefinition());
  EXPECT_EQ(result.status, 0) << result.err;
  JsonValue json = JsonValue::Parse(result.out);
  const JsonValue& finding = json["simulations"][0]["findings"][0];
  EXPECT_EQ(finding["code"].text, "ZR107");
  ASSERT_EQ(finding["strata"].items.size(), 278u);
  EXPECT_EQ(finding["strata"][0]["index"].number, 3);
  EXPECT_EQ(finding["strata"][0]["id"].text, "4");
  EXPECT_EQ(finding["strata"][0]["name"].text, "Tract 4");
  EXPECT_EQ(finding["strata"][277]["name"].text, "Tract 281");
  EXPECT_EQ(finding["form"]["page"].text, "Density");
  EXPECT_EQ(finding["form"]["control"].text, "flxConstantDensity");
}

TEST_F(CheckOnAnotherLayer, TheSampleItselfStaysClean) {
  Result result = Run({"check", "--project", TractsProject(), "--simulation", "Sample simulation", "--strict",
                       "--format", "json"});
  EXPECT_EQ(result.status, 0) << result.out;
  JsonValue json = JsonValue::Parse(result.out);
  EXPECT_TRUE(json["simulations"][0]["findings"].items.empty());
}

}  // namespace

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "TractsProject.h"
#include "zrsimprp/lint/DefinitionLint.h"
#include "zrsimprp/lint/LintCodes.h"
#include "zrsimprp/lint/StrataLint.h"

namespace zrsimprp {
namespace {

std::string Describe(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings) text += finding.code + " " + finding.sentence + "\n";
  return text;
}

std::vector<Finding> Lint(const std::shared_ptr<MemoryProjectDatabase>& project, const std::string& text) {
  ProjectFacts facts(project);
  return DefinitionLint(&facts).Check(text).findings;
}

// The one finding of `code`; fails the test when there is none or more than one.
Finding Only(const std::vector<Finding>& findings, const char* code) {
  std::vector<Finding> found;
  for (const Finding& finding : findings) {
    if (finding.code == code) found.push_back(finding);
  }
  EXPECT_EQ(found.size(), 1u) << "findings of " << code << " in:\n" << Describe(findings);
  return found.empty() ? Finding() : found.front();
}

TEST(StrataLint, TheCleanTractsDefinitionHasNoFindings) {
  const std::vector<Finding> findings = Lint(TractsProject(3), TractsDefinition());
  EXPECT_TRUE(findings.empty()) << Describe(findings);
}

TEST(StrataLint, AZeroDensityAmongPositiveOnesIsOneFinding) {
  const Finding finding =
      Only(Lint(TractsProject(3), TractsDefinition({"Density=Uniform /Densities=1,0,2 /GridSpace=100;"})),
           lint_code::kZeroDensity);
  EXPECT_EQ(finding.sentence,
            "The density is 0 in stratum 'T2' while other strata have positive densities, so no animals will "
            "be placed there; give it a positive density if animals live there.");
  EXPECT_EQ(finding.severity, Severity::kWarning);
  EXPECT_EQ(finding.entry, "Density");
  EXPECT_EQ(finding.field, "Densities");
  ASSERT_EQ(finding.strata.size(), 1u);
  EXPECT_EQ(finding.strata[0].index, 1u);
  EXPECT_EQ(finding.strata[0].id, "2");
  EXPECT_EQ(finding.strata[0].name, "T2");
  EXPECT_EQ(finding.page, "Density");
  EXPECT_EQ(finding.control, "flxConstantDensity");
}

TEST(StrataLint, AllDensitiesZeroIsNotAZeroAmongPositiveOnes) {
  const std::vector<Finding> findings =
      Lint(TractsProject(3), TractsDefinition({"Density=Uniform /Densities=0,0,0 /GridSpace=100;"}));
  for (const Finding& finding : findings) EXPECT_NE(finding.code, lint_code::kZeroDensity);
}

TEST(StrataLint, StrataWithFixedNZeroAreOneFinding) {
  const Finding finding =
      Only(Lint(TractsProject(3), TractsDefinition({"PopSize=\"Fixed N\" /Values=10,0,0;"})),
           lint_code::kZeroPopulation);
  EXPECT_EQ(finding.sentence,
            "The population size N is 0 in 2 strata ('T2' and 'T3'), so no animals will be there; give each "
            "the number of animals it should hold.");
  EXPECT_EQ(finding.entry, "PopSize");
  EXPECT_EQ(finding.field, "Values");
  EXPECT_EQ(finding.strata.size(), 2u);
  EXPECT_EQ(finding.place_kind, "");
  EXPECT_EQ(finding.page, "General");
  EXPECT_EQ(finding.control, "flxN");
}

TEST(StrataLint, AHotspotCentreOutsideEveryStratumSaysHowFarItIs) {
  const Finding finding =
      Only(Lint(TractsProject(3), TractsDefinition({"Hotspot=\"\" /X,Y,Sig,Amp=6000,-4000,150,4;"})),
           lint_code::kHotspotOutside);
  EXPECT_EQ(finding.sentence,
            "The centre (6000, -4000) of hotspot 1 lies outside every stratum of the layer \"Tracts\", 5000 "
            "map units from the region; move the centre into the region or delete the hotspot.");
  EXPECT_EQ(finding.place_kind, "hotspot");
  EXPECT_EQ(finding.place, "1");
  EXPECT_EQ(finding.page, "Density");
  EXPECT_EQ(finding.control, "flxHotspots");
}

TEST(StrataLint, AHotspotInsideAStratumIsNotOutside) {
  const std::vector<Finding> findings =
      Lint(TractsProject(3), TractsDefinition({"Hotspot=\"\" /X,Y,Sig,Amp=1500,500,150,4;"}));
  EXPECT_TRUE(findings.empty()) << Describe(findings);
}

TEST(StrataLint, AHotspotSigmaBeyondTheRegionIsAFinding) {
  const Finding finding =
      Only(Lint(TractsProject(3), TractsDefinition({"Hotspot=\"\" /X,Y,Sig,Amp=1500,500,5000,4;"})),
           lint_code::kHotspotWiderThanRegion);
  EXPECT_EQ(finding.sentence,
            "The sigma 5000 of hotspot 1 is larger than the region of the layer \"Tracts\" (3000 by 1000 map "
            "units), so the hotspot raises the density almost evenly everywhere; give a sigma smaller than "
            "the region.");
}

TEST(StrataLint, AGridSpacingThatMissesAStratumIsTooCoarse) {
  const Finding finding =
      Only(Lint(TractsProject(3), TractsDefinition({"Density=Uniform /Densities=1,2,3 /GridSpace=1500;"})),
           lint_code::kGridTooCoarse);
  EXPECT_EQ(
      finding.sentence,
      "The grid spacing 1500 leaves stratum 'T2' without a grid cell centre, so the density surface has "
      "no cell there; give a grid spacing smaller than the smallest stratum.");
  EXPECT_EQ(finding.place, "T2");
  EXPECT_EQ(finding.page, "Density");
  EXPECT_EQ(finding.control, "txtGridSpace");
}

TEST(StrataLint, AGridSpacingOfMoreThanTenMillionCellsIsTooFine) {
  const Finding finding =
      Only(Lint(TractsProject(3), TractsDefinition({"Density=Uniform /Densities=1,2,3 /GridSpace=0.5;"})),
           lint_code::kGridTooFine);
  EXPECT_EQ(
      finding.sentence,
      "The grid spacing 0.5 makes 1.2e+07 cells over the layer \"Tracts\", more than 10 million, so the "
      "simulation will be very slow; give a larger grid spacing.");
}

TEST(StrataLint, DistancesOnALayerInDegreesAreOneFindingThatNamesTheCommand) {
  const std::vector<Finding> findings =
      Lint(TractsProject(3, true), TractsDefinition({"Hotspot=\"\" /X,Y,Sig,Amp=-1.5,50.5,0.2,4;",
                                                     "Density=Uniform /Densities=1,2,3 /GridSpace=0.01;",
                                                     "DetFuncParam=\"\" /Scale=0.05;"}));
  const Finding finding = Only(findings, lint_code::kDistancesInDegrees);
  EXPECT_EQ(finding.sentence,
            "The strata layer \"Tracts\" has its coordinates in degrees (WGS 84), so the grid spacing, the "
            "hotspots' centres and sigmas, the detection scale and the design's spacing and truncation "
            "distance are read in degrees too; reproject the layer with \"zrsim project import-layer ... "
            "--to-crs auto\" and give the distances in metres.");
  EXPECT_EQ(finding.entry, "StrataLayer");
  EXPECT_EQ(finding.page, "Simulation");
  EXPECT_EQ(finding.control, "cboRegionLayer");
}

TEST(StrataLint, AGridSpacingOfOneHundredDegreesMissesEveryStratum) {
  const std::vector<Finding> findings = Lint(TractsProject(3, true), TractsDefinition());
  Only(findings, lint_code::kDistancesInDegrees);
  const Finding coarse = Only(findings, lint_code::kGridTooCoarse);
  EXPECT_EQ(coarse.sentence,
            "The grid spacing 100 leaves 3 strata ('T1', 'T2' and 'T3') without a grid cell centre, so the "
            "density surface has no cell in them; give a grid spacing smaller than the smallest stratum.");
}

TEST(StrataLint, ADetectionFunctionThatSeesAlmostNothingIsAFinding) {
  const Finding finding = Only(Lint(TractsProject(3), TractsDefinition({"DetFuncParam=\"\" /Scale=5;"})),
                               lint_code::kDetectionTooLow);
  EXPECT_EQ(
      finding.sentence,
      "With the scale 5 of the Half-Normal detection function and the design's truncation distance 200, "
      "the average detection probability within the truncation distance is 0.031, so almost no animals "
      "will be detected; give a larger scale or check the design's truncation distance.");
  EXPECT_EQ(finding.page, "Detectability");
  EXPECT_EQ(finding.control, "flxDetect");
}

TEST(StrataLint, AHazardRateCurveStillHighAtTheTruncationIsAFinding) {
  const Finding finding =
      Only(Lint(TractsProject(3),
                TractsDefinition({"Detectability=\"Hazard Rate\" /ParamByStratum=False;",
                                  "DetFuncParam=\"\" /Scale=400;", "DetFuncParam=\"\" /Shape=3;"})),
           lint_code::kDetectionTooHigh);
  EXPECT_EQ(finding.sentence,
            "With the scale 400 and shape 3 of the Hazard Rate detection function, the detection probability "
            "at the design's truncation distance 200 is still 0.9997, so almost every animal within it is "
            "detected; give a smaller scale or check the design's truncation distance.");
}

TEST(StrataLint, AHazardRateCurveThatFallsWithinTheTruncationIsNoFinding) {
  const std::vector<Finding> findings = Lint(
      TractsProject(3), TractsDefinition({"Detectability=\"Hazard Rate\" /ParamByStratum=False;",
                                          "DetFuncParam=\"\" /Scale=60;", "DetFuncParam=\"\" /Shape=3;"}));
  EXPECT_TRUE(findings.empty()) << Describe(findings);
}

TEST(StrataLint, EachStratumsScaleIsPairedWithItsOwnShape) {
  // T1's shape 3 keeps its curve above 0.99 at 200; T2 and T3 have the same scale but a shape of 1.
  const std::vector<Finding> findings =
      Lint(TractsProject(3),
           TractsDefinition({"Detectability=\"Hazard Rate\" /ParamByStratum=True;",
                             "DetFuncParam=\"\" /Scale=400,400,400;", "DetFuncParam=\"\" /Shape=3,1,1;"}));
  const Finding finding = Only(findings, lint_code::kDetectionTooHigh);
  EXPECT_EQ(finding.sentence,
            "With the scale 400 and shape 3 of the Hazard Rate detection function in stratum 'T1', the "
            "detection probability at the design's truncation distance 200 is still 0.9997, so almost every "
            "animal within it is detected; give a smaller scale or check the design's truncation distance.");
  ASSERT_EQ(finding.strata.size(), 1u);
  EXPECT_EQ(finding.strata[0].index, 0u);
  EXPECT_EQ(finding.strata[0].name, "T1");
  EXPECT_EQ(finding.place, "Scale");
}

TEST(StrataLint, StrataThatSeeAlmostNothingAreOneFindingNamingThem) {
  const std::vector<Finding> findings =
      Lint(TractsProject(3), TractsDefinition({"Detectability=Half-Normal /ParamByStratum=True;",
                                               "DetFuncParam=\"\" /Scale=5,60,4;"}));
  const Finding finding = Only(findings, lint_code::kDetectionTooLow);
  EXPECT_EQ(finding.sentence,
            "With the scales of the Half-Normal detection function in 2 strata ('T1' and 'T3') and the "
            "design's truncation distance 200, the average detection probability within the truncation "
            "distance is at most 0.031, so almost no animals will be detected; give a larger scale or check "
            "the design's truncation distance.");
  ASSERT_EQ(finding.strata.size(), 2u);
  EXPECT_EQ(finding.strata[0].name, "T1");
  EXPECT_EQ(finding.strata[1].name, "T3");
  EXPECT_EQ(finding.control, "flxDetect");
}

TEST(StrataLint, ManyStrataWithTheSameLowScaleAreNamedFiveThenCounted) {
  std::string scales = "5";
  for (int i = 1; i < 8; ++i) scales += ",5";
  const std::vector<Finding> findings =
      Lint(TractsProject(8), TractsDefinition({"Density=Uniform /Densities=1,1,1,1,1,1,1,1 /GridSpace=100;",
                                               "PopSize=\"Fixed N\" /Values=1,1,1,1,1,1,1,1;",
                                               "Detectability=Half-Normal /ParamByStratum=True;",
                                               "DetFuncParam=\"\" /Scale=" + scales + ";"}));
  const Finding finding = Only(findings, lint_code::kDetectionTooLow);
  EXPECT_EQ(finding.sentence,
            "With the scale 5 of the Half-Normal detection function in 8 strata ('T1', 'T2', 'T3', 'T4', "
            "'T5' and 3 more) and the design's truncation distance 200, the average detection probability "
            "within the truncation distance is 0.031, so almost no animals will be detected; give a larger "
            "scale or check the design's truncation distance.");
  EXPECT_EQ(finding.strata.size(), 8u);
}

TEST(StrataLint, ValuesForFewerStrataThanTheLayerHasAreOneFindingPerEntry) {
  // The sample's values on a layer of 281 tracts.
  const std::vector<Finding> findings =
      Lint(TractsProject(281), TractsDefinition({"Density=Uniform /Densities=2.5,1.5,3 /GridSpace=100;",
                                                 "PopSize=\"Fixed N\" /Values=400,250,350;"}));
  std::vector<Finding> missing;
  for (const Finding& finding : findings) {
    if (finding.code == lint_code::kStratumWithoutValue) missing.push_back(finding);
  }
  ASSERT_EQ(missing.size(), 2u) << Describe(findings);
  EXPECT_EQ(missing[0].sentence,
            "The entry \"Density\" gives no density for 278 strata ('T4', 'T5', 'T6', 'T7', 'T8' and 273 "
            "more), which keep 0; give one value for each stratum.");
  EXPECT_EQ(missing[1].sentence,
            "The entry \"PopSize\" gives no population size for 278 strata ('T4', 'T5', 'T6', 'T7', 'T8' and "
            "273 more), which keep 0; give one value for each stratum.");
  ASSERT_EQ(missing[0].strata.size(), 278u);
  EXPECT_EQ(missing[0].strata.front().index, 3u);
  EXPECT_EQ(missing[0].strata.front().id, "4");
  EXPECT_EQ(missing[0].strata.back().name, "T281");
  EXPECT_EQ(missing[0].place_kind, "");
  EXPECT_EQ(missing[1].page, "General");
  EXPECT_EQ(missing[1].control, "flxN");
}

TEST(StrataLint, NegativeDensitiesOfSeveralStrataAreOneFinding) {
  const Finding finding =
      Only(Lint(TractsProject(3), TractsDefinition({"Density=Uniform /Densities=-1,-2,3 /GridSpace=100;"})),
           lint_code::kNegative);
  EXPECT_EQ(finding.sentence,
            "The density for 2 strata ('T1' and 'T2') is negative (-1 and -2); give each 0 or a positive "
            "number.");
  EXPECT_EQ(finding.severity, Severity::kError);
  ASSERT_EQ(finding.strata.size(), 2u);
  EXPECT_EQ(finding.strata[1].id, "2");
  EXPECT_EQ(finding.place_kind, "");
  EXPECT_EQ(finding.page, "Density");
}

TEST(StrataLint, AHundredStrataWithTheSameMistakeAreOneLine) {
  std::string densities = "x";
  std::string sizes = "1.5";
  for (int i = 1; i < 100; ++i) {
    densities += ",x";
    sizes += ",1.5";
  }
  const std::vector<Finding> findings = Lint(
      TractsProject(100), TractsDefinition({"Density=Uniform /Densities=" + densities + " /GridSpace=100;",
                                            "PopSize=\"Fixed N\" /Values=" + sizes + ";"}));
  EXPECT_EQ(findings.size(), 2u) << Describe(findings);
  const Finding density = Only(findings, lint_code::kNotANumber);
  EXPECT_EQ(density.sentence,
            "The density for 100 strata ('T1', 'T2', 'T3', 'T4', 'T5' and 95 more) is not a number (\"x\", "
            "\"x\", \"x\", \"x\", \"x\" and 95 more); type a number for each.");
  EXPECT_EQ(density.strata.size(), 100u);
  const Finding whole = Only(findings, lint_code::kNotWhole);
  EXPECT_EQ(whole.sentence,
            "The population size N for 100 strata ('T1', 'T2', 'T3', 'T4', 'T5' and 95 more) is not a whole "
            "number (1.5, 1.5, 1.5, 1.5, 1.5 and 95 more); give each a whole number.");
}

TEST(StrataLint, StrataPhraseNamesAtMostFive) {
  std::vector<FindingStratum> strata;
  for (std::size_t i = 0; i < 5; ++i)
    strata.push_back({i, std::to_string(i + 1), "S" + std::to_string(i + 1)});
  EXPECT_EQ(StrataLint::StrataPhrase({strata.front()}), "stratum 'S1'");
  EXPECT_EQ(StrataLint::StrataPhrase(strata), "5 strata ('S1', 'S2', 'S3', 'S4' and 'S5')");
  strata.push_back({5, "6", "S6"});
  EXPECT_EQ(StrataLint::StrataPhrase(strata), "6 strata ('S1', 'S2', 'S3', 'S4', 'S5' and 1 more)");
}

TEST(StrataLint, AverageDetectionMatchesTheHalfNormalIntegral) {
  // With the truncation at 0+ every animal is seen; with a wide curve nearly every one.
  EXPECT_NEAR(StrataLint::AverageDetection(60, std::nullopt, 1e-9), 1.0, 1e-9);
  EXPECT_NEAR(StrataLint::AverageDetection(1e6, std::nullopt, 200), 1.0, 1e-6);
  // σ √(π/2) / w once the truncation is far beyond the scale.
  EXPECT_NEAR(StrataLint::AverageDetection(5, std::nullopt, 200), 5 * 1.2533141373155 / 200, 1e-9);
  // The Hazard Rate's average is between its value at the truncation and 1.
  const double hazard = StrataLint::AverageDetection(60, 3.0, 200);
  EXPECT_GT(hazard, StrataLint::HazardRateAt(200, 60, 3));
  EXPECT_LT(hazard, 1.0);
}

TEST(StrataLint, WithoutGeometryOnlyTheTextAndTheStrataAreChecked) {
  auto project = TractsProject(3);
  project->SetLayerShapes("Tracts", {}, {});
  const std::vector<Finding> findings =
      Lint(project, TractsDefinition({"Hotspot=\"\" /X,Y,Sig,Amp=6000,-4000,150,4;",
                                      "Density=Uniform /Densities=1,0,2 /GridSpace=1500;"}));
  ASSERT_EQ(findings.size(), 1u) << Describe(findings);
  EXPECT_EQ(findings[0].code, lint_code::kZeroDensity);
}

TEST(StrataLint, AValueFindingOfOneStratumListsThatStratum) {
  const std::vector<Finding> findings =
      Lint(TractsProject(3), TractsDefinition({"Density=Uniform /Densities=1,-2,3 /GridSpace=100;",
                                               "PopSize=\"Fixed N\" /Values=10,20,3.5;"}));
  const Finding negative = Only(findings, lint_code::kNegative);
  ASSERT_EQ(negative.strata.size(), 1u);
  EXPECT_EQ(negative.strata[0].index, 1u);
  EXPECT_EQ(negative.strata[0].id, "2");
  EXPECT_EQ(negative.strata[0].name, "T2");
  const Finding whole = Only(findings, lint_code::kNotWhole);
  ASSERT_EQ(whole.strata.size(), 1u);
  EXPECT_EQ(whole.strata[0].id, "3");
  EXPECT_EQ(whole.page, "General");
}

}  // namespace
}  // namespace zrsimprp

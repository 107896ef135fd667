#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <string>
#include <vector>

#include "zrsimprp/surface/DensitySurfaceReader.h"

namespace zrsimprp {
namespace {

using Kind = SurfaceProblemKind;

DensitySurfaceInputs Spacing(const std::string& text) {
  DensitySurfaceInputs inputs;
  inputs.grid_spacing = text;
  return inputs;
}

DensitySurfaceInputs Strata(std::vector<std::string> names, std::vector<std::string> densities) {
  DensitySurfaceInputs inputs;
  inputs.strata = std::move(names);
  inputs.densities = std::move(densities);
  return inputs;
}

DensitySurfaceInputs Hotspots(std::vector<std::vector<std::string>> hotspots) {
  DensitySurfaceInputs inputs;
  inputs.hotspots = std::move(hotspots);
  return inputs;
}

// The grid spacing's problem, or what went wrong.
Kind SpacingProblem(const std::string& text) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Spacing(text));
  EXPECT_EQ(reading.problems.size(), 1u) << text;
  const DensitySurfaceProblem* problem = reading.ProblemOf(*reading.grid_spacing);
  EXPECT_NE(problem, nullptr) << text;
  return problem ? problem->kind : Kind::kMissing;
}

TEST(DensitySurfaceReader, InputsNotGivenAreNotRead) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(DensitySurfaceInputs());
  EXPECT_TRUE(reading.problems.empty());
  EXPECT_FALSE(reading.grid_spacing.has_value());
  EXPECT_FALSE(reading.formula_problem.has_value());
  EXPECT_TRUE(reading.densities.empty());
  EXPECT_TRUE(reading.hotspots.empty());
}

TEST(DensitySurfaceReader, ReadsNumbersAsTheCLocaleWritesThem) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(
      Strata({"A", "B", "C", "D", "E"}, {"1.5", " 2 ", "\t3e2", "+.25", "1E-400"}));
  ASSERT_EQ(reading.densities.size(), 5u);
  EXPECT_TRUE(reading.problems.empty());
  EXPECT_EQ(*reading.densities[0].number, 1.5);
  EXPECT_EQ(*reading.densities[1].number, 2.0);
  EXPECT_EQ(*reading.densities[2].number, 300.0);
  EXPECT_EQ(*reading.densities[3].number, 0.25);
  EXPECT_EQ(*reading.densities[4].number, 0.0);  // below a double's smallest: zero, as the system reads it
  for (const auto& density : reading.densities) EXPECT_TRUE(density.Usable());
}

TEST(DensitySurfaceReader, DecimalCommaAndOtherSpellingsAreNotNumbers) {
  for (const char* text : {"1,5", "abc", "a\tb", "inf", "nan", "0x10", "1.2.3", "1e", "- 1", "1 000"}) {
    EXPECT_EQ(SpacingProblem(text), Kind::kNotANumber) << text;
  }
}

TEST(DensitySurfaceReader, ProcessLocaleDoesNotChangeTheReading) {
  const std::string previous = std::setlocale(LC_NUMERIC, nullptr);
  bool comma_locale = false;
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8", "de_DE"}) {
    if (std::setlocale(LC_NUMERIC, name) != nullptr) {
      comma_locale = true;
      break;
    }
  }
  if (!comma_locale) GTEST_SKIP() << "no locale with a decimal comma is installed";
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Strata({"A", "B"}, {"1.5", "1,5"}));
  std::setlocale(LC_NUMERIC, previous.c_str());
  EXPECT_EQ(*reading.densities[0].number, 1.5);
  ASSERT_EQ(reading.problems.size(), 1u);
  EXPECT_EQ(reading.problems[0].kind, Kind::kNotANumber);
  EXPECT_EQ(reading.problems[0].stratum, "B");
}

TEST(DensitySurfaceReader, BlankGridSpacingKeepsItsText) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Spacing(" \t "));
  ASSERT_EQ(reading.problems.size(), 1u);
  const DensitySurfaceProblem& problem = reading.problems[0];
  EXPECT_EQ(problem.kind, Kind::kBlank);
  EXPECT_EQ(problem.input, SurfaceInput::kGridSpacing);
  EXPECT_EQ(problem.text, " \t ");
  EXPECT_FALSE(reading.grid_spacing->number.has_value());
  EXPECT_EQ(SpacingProblem(""), Kind::kBlank);
}

TEST(DensitySurfaceReader, NumberBeyondADoubleIsNotFiniteAndHasNoNumber) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Strata({"North"}, {"-1e999"}));
  ASSERT_EQ(reading.problems.size(), 1u);
  EXPECT_EQ(reading.problems[0].kind, Kind::kNotFinite);
  EXPECT_EQ(reading.problems[0].text, "-1e999");
  EXPECT_FALSE(reading.densities[0].number.has_value());
  EXPECT_EQ(SpacingProblem("1e999"), Kind::kNotFinite);
}

TEST(DensitySurfaceReader, GridSpacingMustBeAboveZeroAndKeepsItsNumber) {
  EXPECT_EQ(SpacingProblem("0"), Kind::kNotPositive);
  EXPECT_EQ(SpacingProblem("-0"), Kind::kNotPositive);
  EXPECT_EQ(SpacingProblem("-5"), Kind::kNotPositive);
  EXPECT_EQ(SpacingProblem("1e-400"), Kind::kNotPositive);
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Spacing("-5"));
  EXPECT_EQ(*reading.grid_spacing->number, -5.0);
  EXPECT_FALSE(reading.grid_spacing->Usable());
  EXPECT_TRUE(DensitySurfaceReader::Read(Spacing("0.5")).problems.empty());
}

TEST(DensitySurfaceReader, NegativeDensityNamesItsStratumAndKeepsItsNumber) {
  const DensitySurfaceReading reading =
      DensitySurfaceReader::Read(Strata({"A", "B", "C"}, {"1", " -2", "-0"}));
  ASSERT_EQ(reading.problems.size(), 1u);  // -0 is not below 0
  const DensitySurfaceProblem& problem = reading.problems[0];
  EXPECT_EQ(problem.kind, Kind::kNegative);
  EXPECT_EQ(problem.input, SurfaceInput::kStratumDensity);
  EXPECT_EQ(problem.index, 1u);
  EXPECT_EQ(problem.stratum, "B");
  EXPECT_EQ(problem.text, " -2");
  EXPECT_EQ(*reading.densities[1].number, -2.0);
  EXPECT_EQ(reading.ProblemOf(reading.densities[1]), &reading.problems[0]);
  EXPECT_EQ(reading.ProblemOf(reading.densities[0]), nullptr);
}

TEST(DensitySurfaceReader, EveryStratumIsJudgedNotOnlyTheFirst) {
  const DensitySurfaceReading reading =
      DensitySurfaceReader::Read(Strata({"A", "B", "C", "D"}, {"", "x", "-1", "1e999"}));
  ASSERT_EQ(reading.problems.size(), 4u);
  const Kind kinds[] = {Kind::kBlank, Kind::kNotANumber, Kind::kNegative, Kind::kNotFinite};
  const char* names[] = {"A", "B", "C", "D"};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(reading.problems[i].kind, kinds[i]) << i;
    EXPECT_EQ(reading.problems[i].index, i);
    EXPECT_EQ(reading.problems[i].stratum, names[i]);
  }
}

TEST(DensitySurfaceReader, StrataAfterTheLastDensityAreMissing) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Strata({"A", "B", "C"}, {"4"}));
  ASSERT_EQ(reading.densities.size(), 3u);
  ASSERT_EQ(reading.problems.size(), 2u);
  EXPECT_EQ(reading.problems[0].kind, Kind::kMissing);
  EXPECT_EQ(reading.problems[0].stratum, "B");
  EXPECT_EQ(reading.problems[1].stratum, "C");
  EXPECT_EQ(reading.problems[1].index, 2u);
  EXPECT_EQ(reading.problems[1].text, "");
}

TEST(DensitySurfaceReader, DensitiesBeyondTheStrataAreReadWithoutAName) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Strata({"A"}, {"1", "-3"}));
  ASSERT_EQ(reading.densities.size(), 2u);
  EXPECT_EQ(*reading.densities[1].number, -3.0);
  ASSERT_EQ(reading.problems.size(), 1u);
  EXPECT_EQ(reading.problems[0].index, 1u);
  EXPECT_EQ(reading.problems[0].stratum, "");
}

TEST(DensitySurfaceReader, StrataWithoutValueNamesEachStratumFromTheFirstNotGiven) {
  const std::vector<DensitySurfaceProblem> problems =
      DensitySurfaceReader::StrataWithoutValue({"North", "South", "East"}, 1);
  ASSERT_EQ(problems.size(), 2u);
  EXPECT_EQ(problems[0].kind, Kind::kMissing);
  EXPECT_EQ(problems[0].input, SurfaceInput::kStratumDensity);
  EXPECT_EQ(problems[0].index, 1u);
  EXPECT_EQ(problems[0].stratum, "South");
  EXPECT_EQ(problems[1].stratum, "East");
  EXPECT_TRUE(DensitySurfaceReader::StrataWithoutValue({"North"}, 3).empty());
}

TEST(DensitySurfaceReader, HotspotRulesAreSigmaAboveZeroAndAmplitudeNotNegative) {
  const DensitySurfaceReading reading =
      DensitySurfaceReader::Read(Hotspots({{"-10", "-20", "0", "-4"}, {"1", "2", "3", "0"}}));
  ASSERT_EQ(reading.hotspots.size(), 2u);
  ASSERT_EQ(reading.problems.size(), 2u);
  EXPECT_EQ(reading.problems[0].kind, Kind::kNotPositive);
  EXPECT_EQ(reading.problems[0].field, HotspotField::kSigma);
  EXPECT_EQ(reading.problems[1].kind, Kind::kNegative);
  EXPECT_EQ(reading.problems[1].field, HotspotField::kAmplitude);
  EXPECT_EQ(reading.problems[1].input, SurfaceInput::kHotspot);
  EXPECT_EQ(reading.problems[1].index, 0u);
  EXPECT_EQ(*reading.hotspots[0][0].number, -10.0);
  EXPECT_EQ(*reading.hotspots[0][3].number, -4.0);
  for (const auto& value : reading.hotspots[1]) EXPECT_TRUE(value.Usable());
}

TEST(DensitySurfaceReader, HotspotProblemsNameTheirRowAndField) {
  const DensitySurfaceReading reading =
      DensitySurfaceReader::Read(Hotspots({{"1", "2", "3", "4"}, {"", "north", "1e999", "4"}}));
  ASSERT_EQ(reading.problems.size(), 3u);
  const Kind kinds[] = {Kind::kBlank, Kind::kNotANumber, Kind::kNotFinite};
  const HotspotField fields[] = {HotspotField::kCentreX, HotspotField::kCentreY, HotspotField::kSigma};
  const char* texts[] = {"", "north", "1e999"};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(reading.problems[i].kind, kinds[i]);
    EXPECT_EQ(reading.problems[i].index, 1u);
    EXPECT_EQ(reading.problems[i].field, fields[i]);
    EXPECT_EQ(reading.problems[i].text, texts[i]);
  }
}

TEST(DensitySurfaceReader, HotspotWithFewerThanFourValuesMissesTheRest) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Hotspots({{"1", "x"}, {}}));
  ASSERT_EQ(reading.hotspots.size(), 2u);
  EXPECT_EQ(*reading.hotspots[0][0].number, 1.0);
  ASSERT_EQ(reading.problems.size(), 7u);
  EXPECT_EQ(reading.problems[0].kind, Kind::kNotANumber);
  EXPECT_EQ(reading.problems[0].field, HotspotField::kCentreY);
  EXPECT_EQ(reading.problems[1].kind, Kind::kMissing);
  EXPECT_EQ(reading.problems[1].field, HotspotField::kSigma);
  EXPECT_EQ(reading.problems[2].kind, Kind::kMissing);
  EXPECT_EQ(reading.problems[2].field, HotspotField::kAmplitude);
  for (std::size_t i = 3; i < 7; ++i) {
    EXPECT_EQ(reading.problems[i].kind, Kind::kMissing);
    EXPECT_EQ(reading.problems[i].index, 1u);
    EXPECT_EQ(reading.problems[i].field, static_cast<HotspotField>(i - 3));
  }
}

TEST(DensitySurfaceReader, ValuesAfterTheFourthAreNotRead) {
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(Hotspots({{"1", "2", "3", "4", "x", ""}}));
  EXPECT_TRUE(reading.problems.empty());
  EXPECT_EQ(*reading.hotspots[0][3].number, 4.0);
}

TEST(DensitySurfaceReader, FormulaIsItsExpressionAndBlankWithoutOne) {
  DensitySurfaceInputs inputs;
  inputs.formula = " = -100 + x*1.02 ";
  DensitySurfaceReading reading = DensitySurfaceReader::Read(inputs);
  EXPECT_EQ(reading.formula, "-100 + x*1.02");
  EXPECT_TRUE(reading.problems.empty());
  inputs.formula = " = ";
  reading = DensitySurfaceReader::Read(inputs);
  EXPECT_EQ(reading.formula, "");
  ASSERT_TRUE(reading.formula_problem.has_value());
  EXPECT_EQ(reading.problems[*reading.formula_problem].kind, Kind::kBlank);
  EXPECT_EQ(reading.problems[*reading.formula_problem].input, SurfaceInput::kFormula);
  EXPECT_EQ(reading.problems[*reading.formula_problem].text, " = ");
  EXPECT_EQ(DensitySurfaceReader::FormulaExpression("==x"), "=x");  // only one "=" is dropped
  EXPECT_EQ(DensitySurfaceReader::FormulaExpression("x + y"), "x + y");
}

TEST(DensitySurfaceReader, ProblemsComeInTheOrderOfTheInputs) {
  DensitySurfaceInputs inputs = Strata({"A"}, {"x"});
  inputs.grid_spacing = "0";
  inputs.formula = "";
  inputs.hotspots = {{"1", "2", "0", "4"}};
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(inputs);
  ASSERT_EQ(reading.problems.size(), 4u);
  EXPECT_EQ(reading.problems[0].input, SurfaceInput::kStratumDensity);
  EXPECT_EQ(reading.problems[1].input, SurfaceInput::kGridSpacing);
  EXPECT_EQ(reading.problems[2].input, SurfaceInput::kFormula);
  EXPECT_EQ(reading.problems[3].input, SurfaceInput::kHotspot);
}

TEST(DensitySurfaceReader, ManyStrataAreReadInTimeProportionalToTheirNumber) {
  // Every other value has a problem, so that the problems grow with the strata too. Work that grows
  // with the square of the count would take minutes here; a linear reading takes well under a second.
  constexpr std::size_t kStrata = 400'000;
  DensitySurfaceInputs inputs;
  inputs.strata.reserve(kStrata);
  inputs.densities.reserve(kStrata);
  for (std::size_t i = 0; i < kStrata; ++i) {
    inputs.strata.push_back("S" + std::to_string(i));
    inputs.densities.push_back(i % 2 ? "-" + std::to_string(i) : std::to_string(i) + ".5");
  }
  const auto start = std::chrono::steady_clock::now();
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(inputs);
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  ASSERT_EQ(reading.densities.size(), kStrata);
  ASSERT_EQ(reading.problems.size(), kStrata / 2);
  for (std::size_t i = 1; i < kStrata; i += 2) {
    const DensitySurfaceProblem* problem = reading.ProblemOf(reading.densities[i]);
    ASSERT_NE(problem, nullptr);
    ASSERT_EQ(problem->index, i);
    ASSERT_EQ(problem->stratum, "S" + std::to_string(i));
  }
  EXPECT_EQ(*reading.densities[kStrata - 2].number, static_cast<double>(kStrata - 2) + 0.5);
  EXPECT_LT(seconds, 10.0);
}

}  // namespace
}  // namespace zrsimprp

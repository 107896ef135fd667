#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "CliFixture.h"
#include "JsonReader.h"
#include "support/FileBytes.h"

namespace {

using PreviewCommand = CliFixture;

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  if (at != std::string::npos) text.replace(at, from.size(), to);
  return text;
}

TEST_F(PreviewCommand, JsonGivesTheExpectedDetectionsOfEveryStratum) {
  Result result =
      Run({"preview", "--project", SampleProject(), "--simulation", "Sample simulation", "--format", "json"});
  ASSERT_EQ(result.status, 0) << result.err;
  const JsonValue json = JsonValue::Parse(result.out);
  const JsonValue& strata = json["strata"];
  ASSERT_EQ(strata.items.size(), 3u);
  EXPECT_EQ(strata[0]["name"].text, "North");
  EXPECT_EQ(strata[2]["id"].text, "3");
  EXPECT_EQ(strata[1]["animals"].number, 250);
  EXPECT_EQ(strata[1]["coverage"].number, 0.8);
  double total = 0;
  for (const JsonValue& stratum : strata.items) {
    EXPECT_DOUBLE_EQ(
        stratum["expected_detections"].number,
        stratum["animals"].number * stratum["coverage"].number * stratum["average_detectability"].number);
    total += stratum["expected_detections"].number;
  }
  EXPECT_NEAR(json["expected_detections"].number, total, 1e-9);
  EXPECT_DOUBLE_EQ(json["cv_guide"].number, std::sqrt(3 / json["expected_detections"].number));
  EXPECT_THROW(json["realization"], std::out_of_range);
}

TEST_F(PreviewCommand, SeedAddsARealization) {
  Result result = Run({"preview", "--project", SampleProject(), "--simulation", "Sample simulation",
                       "--format", "json", "--seed", "11"});
  ASSERT_EQ(result.status, 0) << result.err;
  const JsonValue json = JsonValue::Parse(result.out);
  EXPECT_EQ(json["realization"]["animals"].number, 1000);
  EXPECT_GT(json["realization"]["detections"].number, 0);
  EXPECT_LT(json["realization"]["detections"].number, 1000);
}

TEST_F(PreviewCommand, TheSameSeedGivesTheSameBytes) {
  const std::vector<std::string> words = {
      "preview", "--project", SampleProject(), "--simulation", "Sample simulation", "--seed", "42"};
  for (const char* format : {"text", "json"}) {
    std::vector<std::string> with_format = words;
    with_format.insert(with_format.end(), {"--format", format});
    const Result first = Run(with_format);
    const Result second = Run(with_format);
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_EQ(first.out, second.out) << format;
  }
  const Result other =
      Run({"preview", "--project", SampleProject(), "--simulation", "Sample simulation", "--seed", "43"});
  EXPECT_NE(other.out, Run(words).out);
}

TEST_F(PreviewCommand, OutDrawsTheSamePictureForTheSameSeed) {
  const std::string first = PathIn("first.png");
  const std::string second = PathIn("second.png");
  for (const std::string& path : {first, second}) {
    Result result = Run({"preview", "--project", SampleProject(), "--simulation", "Sample simulation",
                         "--seed", "5", "--out", path});
    ASSERT_EQ(result.status, 0) << result.err;
  }
  const std::string bytes = zrsimprp::testing::FileBytes(first);
  ASSERT_GT(bytes.size(), 8u);
  EXPECT_EQ(bytes.substr(0, 8), std::string("\x89PNG\r\n\x1a\n", 8));
  EXPECT_EQ(bytes, zrsimprp::testing::FileBytes(second));
}

TEST_F(PreviewCommand, TextNamesTheDesignAndTheCvGuide) {
  Result result = Run({"preview", "--project", SampleProject(), "--simulation", "Sample simulation"});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_NE(
      result.out.find("Design: Systematic parallel lines (Parallel), spacing S 500, truncation w 200\n"),
      std::string::npos)
      << result.out;
  EXPECT_NE(result.out.find("CV guide sqrt(3/n): "), std::string::npos);
}

TEST_F(PreviewCommand, DesignWithoutSpacingIsRefusedInOneSentence) {
  const std::string project = SampleProject();
  ASSERT_EQ(Run({"project", "add-design", project, "--id", "3", "--name", "Bare design", "--stratum-layer",
                 "Strata"})
                .status,
            0);
  ASSERT_EQ(Run({"project", "add-survey", project, "--id", "5", "--name", "Bare survey", "--design", "3",
                 "--status", "1"})
                .status,
            0);
  const std::string definition = Replaced(SampleDefinition(), "ObjectID=3", "ObjectID=5");
  Result result = Run({"preview", "--project", project, "--definition", "-"}, definition);
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err,
            "zrsim preview: The design 'Bare design' gives no spacing, so the survey cannot be previewed.\n");
}

TEST_F(PreviewCommand, DefinitionThePagesRefuseIsRefusedInOneSentence) {
  const std::string definition = Replaced(SampleDefinition(), "Reps=25", "Reps=many");
  Result result = Run({"preview", "--project", SampleProject(), "--definition", "-"}, definition);
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err,
            "zrsim preview: the Simulation page refuses the definition: The number of repetitions must be "
            "numeric.\n");
}

TEST_F(PreviewCommand, BadSeedIsAUsageError) {
  Result result =
      Run({"preview", "--project", SampleProject(), "--simulation", "Sample simulation", "--seed", "-1"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err,
            "zrsim preview: --seed must be a whole number from 0 to 18446744073709551615, not '-1'\n");
}

TEST_F(PreviewCommand, OutWithoutSeedIsAUsageError) {
  Result result = Run({"preview", "--project", SampleProject(), "--simulation", "Sample simulation", "--out",
                       PathIn("x.png")});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim preview: --out draws a survey, so it needs --seed N\n");
}

TEST_F(PreviewCommand, UnknownFormatIsAUsageError) {
  Result result =
      Run({"preview", "--project", SampleProject(), "--simulation", "Sample simulation", "--format", "xml"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim preview: --format must be text or json, not 'xml'\n");
}

TEST_F(PreviewCommand, HelpDescribesTheOptions) {
  Result result = Run({"preview", "--help"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out.rfind("Usage: zrsim preview --project FILE", 0), 0u) << result.out;
}

}  // namespace

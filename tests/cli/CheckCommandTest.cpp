#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "CliFixture.h"

namespace {

using CheckCommand = CliFixture;

const std::vector<std::string> kPages = {"Simulation",    "Density",  "General", "Covariates",
                                         "Detectability", "Analysis", "Misc"};

// The line check prints for each page, all "OK" except `page`, which shows `message`.
std::string ExpectedLines(const std::string& page, const std::string& message) {
  std::string lines;
  for (const std::string& name : kPages) lines += name + ": " + (name == page ? message : "OK") + "\n";
  return lines;
}

TEST_F(CheckCommand, SampleSimulationPassesEveryPage) {
  Result result = Run({"check", "--project", SampleProject(), "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, ExpectedLines("", ""));
  EXPECT_TRUE(result.err.empty()) << result.err;
}

TEST_F(CheckCommand, SimulationNameIsFoundWithCaseIgnored) {
  Result result = Run({"check", "--project", SampleProject(), "--simulation", "SAMPLE SIMULATION"});
  EXPECT_EQ(result.status, 0) << result.err;
}

TEST_F(CheckCommand, ReadsTheDefinitionFromStandardInput) {
  const std::string definition = SampleDefinition();
  Result result = Run({"check", "--project", SampleProject(), "--definition", "-"}, definition);
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, ExpectedLines("", ""));
}

// One invalid value per page, given as an entry appended to the sample's definition (a later entry
// overrides an earlier one of the same key).
struct InvalidValue {
  std::string page;
  std::string entry;
  std::string message;
};

void PrintTo(const InvalidValue& invalid, std::ostream* out) {
  *out << invalid.page << ": " << invalid.entry;
}

class CheckInvalidValue : public CliFixture, public ::testing::WithParamInterface<InvalidValue> {};

TEST_P(CheckInvalidValue, PrintsThatPagesExactMessageAndFails) {
  const InvalidValue& invalid = GetParam();
  const std::string file = PathIn("definition.txt");
  WriteFile(file, SampleDefinition() + invalid.entry);
  Result result = Run({"check", "--project", SampleProject(), "--definition", file});
  EXPECT_EQ(result.status, 1) << result.err;
  // The pages' lines come first; the findings (here at least the repeated entry) follow them.
  const std::string pages = ExpectedLines(invalid.page, invalid.message);
  EXPECT_EQ(result.out.substr(0, pages.size()), pages);
  EXPECT_NE(result.out.find("ZR105 warning", pages.size()), std::string::npos) << result.out;
  EXPECT_TRUE(result.err.empty()) << result.err;
}

INSTANTIATE_TEST_SUITE_P(
    EveryPage, CheckInvalidValue,
    ::testing::Values(
        InvalidValue{"Simulation", "Reps=0;", "The number of repetitions must be greater than 0."},
        InvalidValue{"Density", "Density=Simple /Formula=0.5*x /GridSpace=10;",
                     "The density formula must begin with an equals sign (=)."},
        InvalidValue{"General", "Clusters=True /Distribution=Poisson /Params=0.5;",
                     "The value provided for lambda is less than 1.  Please ammend this value."},
        InvalidValue{"Covariates", "ContinuousCov=size /Distribution=Normal /Params=0,0;",
                     "The value provided for sigma should be greater than 0.  Please ammend this value."},
        InvalidValue{
            "Detectability", "DetFuncParam=\"\" /Scale=wide;",
            "The value supplied for parameter Scale for strata 'Study Area' is not numeric.  Please ammend "
            "the value in this cell."},
        InvalidValue{"Misc", "ParallelProcessing=True /cores=2.5;",
                     "The maximum number of cores must either be an integer or left blank."}),
    [](const ::testing::TestParamInfo<InvalidValue>& param_info) { return param_info.param.page; });

TEST_F(CheckCommand, EveryFailingPageIsReportedInOneRun) {
  Result result = Run({"check", "--project", SampleProject(), "--definition", "-"},
                      SampleDefinition() + "Reps=abc; ParallelProcessing=True /cores=x;");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.out.find("Simulation: The number of repetitions must be numeric.\n"), std::string::npos);
  EXPECT_NE(result.out.find("Misc: The maximum number of cores must either be an integer or left blank.\n"),
            std::string::npos);
  EXPECT_NE(result.out.find("Analysis: OK\n"), std::string::npos);
}

TEST_F(CheckCommand, UnreadableEntryIsReportedAsAnInternalErrorAndFails) {
  Result result = Run({"check", "--project", SampleProject(), "--definition", "-"},
                      SampleDefinition() + "ParallelProcessing=maybe /cores=2;");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(
      result.err.find("Pellunar Internal Error:\nThe following internal error has occured in Pellunar:"),
      std::string::npos)
      << result.err;
  EXPECT_NE(result.err.find("(Error raised from: ZrSIMPrp.SIM.ReadDefinition)"), std::string::npos)
      << result.err;
}

TEST_F(CheckCommand, MalformedDefinitionIsStatusTwoWithWhereItBreaks) {
  for (const std::string text :
       {"\"unterminated", "key without equals", "=;=;=", ";;;;", "a=\"b\"\"", "\x01\xff=1;\r\nb"}) {
    Result result = Run({"check", "--project", SampleProject(), "--definition", "-"}, text);
    EXPECT_EQ(result.status, 2) << text;
    EXPECT_EQ(result.out.find("Misc:"), std::string::npos) << text;
    EXPECT_EQ(result.err.rfind("zrsim check: The text is not a definition from line ", 0), 0u) << result.err;
  }
}

TEST_F(CheckCommand, CheckDoesNotChangeTheProjectFile) {
  const std::string project = SampleProject();
  const std::string before = Run({"project", "list", project}).out;
  const auto size = std::filesystem::file_size(project);
  const auto time = std::filesystem::last_write_time(project);
  Result result = Run({"check", "--project", project, "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(std::filesystem::file_size(project), size);
  EXPECT_EQ(std::filesystem::last_write_time(project), time);
  EXPECT_EQ(Run({"project", "list", project}).out, before);
}

}  // namespace

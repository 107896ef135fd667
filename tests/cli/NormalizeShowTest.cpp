#include <gtest/gtest.h>

#include <string>

#include "CliFixture.h"

namespace {

using NormalizeCommand = CliFixture;
using ShowCommand = CliFixture;

TEST_F(NormalizeCommand, PrintsTheRebuiltDefinitionStartingWithTheEngine) {
  Result result = Run({"normalize", "--project", SampleProject(), "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out.rfind("Engine=SIM;", 0), 0u) << result.out;
  EXPECT_NE(result.out.find("Reps="), std::string::npos);
  EXPECT_NE(result.out.find("ParallelProcessing="), std::string::npos);
}

TEST_F(NormalizeCommand, OutputReadBackGivesTheSameText) {
  const std::string first = SampleDefinition();
  const std::string file = PathIn("normalized.txt");
  WriteFile(file, first);
  Result second = Run({"normalize", "--project", SampleProject(), "--definition", file});
  EXPECT_EQ(second.status, 0) << second.err;
  EXPECT_EQ(second.out, first);
}

TEST_F(NormalizeCommand, ChangedValueIsWrittenBack) {
  Result result =
      Run({"normalize", "--project", SampleProject(), "--definition", "-"}, SampleDefinition() + "Reps=250;");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("Reps=250;"), std::string::npos) << result.out;
}

TEST_F(NormalizeCommand, EmptyDefinitionGivesTheControlsOwnDefaults) {
  Result result = Run({"normalize", "--project", SampleProject(), "--definition", "-"}, "");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out.rfind("Engine=SIM;", 0), 0u);
}

TEST_F(ShowCommand, SummarisesEveryPage) {
  Result result = Run({"show", "--project", SampleProject(), "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 0) << result.err;
  for (const char* heading : {"Simulation\n", "Density\n", "Population\n", "Covariates\n", "Detectability\n",
                              "Analysis\n", "Misc\n"}) {
    EXPECT_NE(result.out.find(heading), std::string::npos) << heading;
  }
  EXPECT_NE(result.out.find("  Repetitions: "), std::string::npos);
  EXPECT_NE(result.out.find("  Detection function: "), std::string::npos);
  EXPECT_EQ(result.out.find("cannot be read"), std::string::npos) << result.out;
}

TEST_F(ShowCommand, ShowsAChangedValue) {
  Result result = Run({"show", "--project", SampleProject(), "--definition", "-"},
                      SampleDefinition() + "Reps=77; ParallelProcessing=True /cores=3;");
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find("  Repetitions: 77\n"), std::string::npos) << result.out;
  EXPECT_NE(result.out.find("  Run in parallel: True\n  Max cores: 3\n"), std::string::npos) << result.out;
}

}  // namespace

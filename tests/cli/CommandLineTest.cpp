#include <gtest/gtest.h>

#include <filesystem>

#include "CliFixture.h"

namespace {

using Cli = CliFixture;

TEST_F(Cli, NoCommandIsAUsageError) {
  Result result = Run({});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.err.find("zrsim: missing command"), std::string::npos);
  EXPECT_NE(result.err.find("Usage: zrsim COMMAND"), std::string::npos);
}

TEST_F(Cli, UnknownCommandIsAUsageError) {
  Result result = Run({"frobnicate"});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.err.find("zrsim: unknown command 'frobnicate'"), std::string::npos);
}

TEST_F(Cli, HelpOnEveryCommandPrintsItsUsageAndSucceeds) {
  const std::vector<std::vector<std::string>> commands = {
      {"--help"},
      {"check", "--help"},
      {"normalize", "--help"},
      {"show", "-h"},
      {"project", "--help"},
      {"project", "sample", "--help"},
      {"project", "list", "--help"},
      {"project", "import-layer", "--help"},
      {"project", "add-design", "--help"},
      {"project", "add-survey", "--help"},
      {"project", "add-filter", "--help"},
      {"project", "add-model", "--help"},
      {"project", "add-simulation", "--help"},
  };
  for (const auto& words : commands) {
    Result result = Run(words);
    EXPECT_EQ(result.status, 0) << words[0];
    EXPECT_NE(result.out.find("Usage: zrsim"), std::string::npos) << words.back();
    EXPECT_TRUE(result.err.empty());
  }
  EXPECT_NE(Run({"check", "--help"}).out.find("--simulation NAME"), std::string::npos);
  EXPECT_NE(Run({"project", "add-survey", "--help"}).out.find("--design D [--status S]"), std::string::npos);
}

TEST_F(Cli, HelpWinsOverOtherMistakes) { EXPECT_EQ(Run({"check", "--bogus", "--help"}).status, 0); }

TEST_F(Cli, CheckWithoutProjectIsAUsageError) {
  Result result = Run({"check", "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim check: --project FILE is required\n");
}

TEST_F(Cli, CheckNeedsExactlyOneSource) {
  const std::string project = SampleProject();
  Result neither = Run({"check", "--project", project});
  EXPECT_EQ(neither.status, 2);
  EXPECT_EQ(neither.err, "zrsim check: give exactly one of --simulation NAME, --definition FILE and --all\n");
  Result both = Run({"show", "--project", project, "--simulation", "x", "--definition", "-"});
  EXPECT_EQ(both.status, 2);
  EXPECT_EQ(both.err, "zrsim show: give exactly one of --simulation NAME and --definition FILE\n");
}

TEST_F(Cli, UnknownOptionOfCheckIsAUsageError) {
  Result result = Run({"check", "--project", SampleProject(), "--simulation", "Sample simulation", "--fast"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim check: unknown option '--fast'\n");
  EXPECT_TRUE(result.out.empty());
}

TEST_F(Cli, MissingProjectFileIsAFileError) {
  Result result = Run({"check", "--project", PathIn("nowhere.gpkg"), "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("zrsim check: cannot open the project '" + PathIn("nowhere.gpkg") + "': ", 0),
            0u)
      << result.err;
  EXPECT_FALSE(std::filesystem::exists(PathIn("nowhere.gpkg")));
}

TEST_F(Cli, TextFileAsProjectIsAFileError) {
  WriteFile(PathIn("notes.gpkg"), "these are not the droids");
  Result result = Run({"normalize", "--project", PathIn("notes.gpkg"), "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("zrsim normalize: cannot open the project '" + PathIn("notes.gpkg") + "': ", 0),
            0u);
}

TEST_F(Cli, EmptyFileAsProjectIsAFileError) {
  WriteFile(PathIn("empty.gpkg"), "");
  Result result = Run({"show", "--project", PathIn("empty.gpkg"), "--definition", "-"}, "Reps=3;");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("zrsim show: cannot open the project '", 0), 0u);
}

TEST_F(Cli, FolderAsProjectIsAFileError) {
  Result result = Run({"check", "--project", PathIn(""), "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("zrsim check: cannot open the project '", 0), 0u);
}

TEST_F(Cli, UnknownSimulationIsAFileError) {
  const std::string project = SampleProject();
  Result result = Run({"check", "--project", project, "--simulation", "Nonesuch"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim check: the project '" + project + "' has no simulation named 'Nonesuch'\n");
}

TEST_F(Cli, MissingDefinitionFileIsAFileError) {
  Result result = Run({"check", "--project", SampleProject(), "--definition", PathIn("missing.txt")});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim check: cannot read the file '" + PathIn("missing.txt") + "'\n");
}

TEST_F(Cli, FolderAsDefinitionFileIsAFileError) {
  Result result = Run({"normalize", "--project", SampleProject(), "--definition", PathIn("")});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim normalize: cannot read the file '" + PathIn("") + "'\n");
}

}  // namespace

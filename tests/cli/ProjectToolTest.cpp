#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "CliFixture.h"

namespace {

using ProjectTool = CliFixture;

TEST_F(ProjectTool, SampleWritesAProjectWithTheSampleSimulation) {
  const std::string project = SampleProject();
  Result list = Run({"project", "list", project});
  EXPECT_EQ(list.status, 0) << list.err;
  EXPECT_NE(list.out.find("Simulations:\n  Sample simulation\n"), std::string::npos) << list.out;
  EXPECT_NE(list.out.find("Layers:\n"), std::string::npos);
  EXPECT_NE(list.out.find("Surveys:\n"), std::string::npos);
}

TEST_F(ProjectTool, SampleRefusesToReplaceAFileWithoutForce) {
  const std::string path = PathIn("keep.gpkg");
  WriteFile(path, "precious");
  Result refused = Run({"project", "sample", path});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err, "zrsim project sample: '" + path + "' already exists; add --force to replace it\n");
  EXPECT_EQ(std::filesystem::file_size(path), 8u);
  Result forced = Run({"project", "sample", path, "--force"});
  EXPECT_EQ(forced.status, 0) << forced.err;
  EXPECT_EQ(Run({"project", "list", path}).status, 0);
}

TEST_F(ProjectTool, ProjectWithoutCommandOrWithAnUnknownOneIsAUsageError) {
  Result missing = Run({"project"});
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.err.rfind("zrsim project: missing command\n", 0), 0u);
  Result unknown = Run({"project", "erase", "x"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.err.rfind("zrsim project: unknown command 'erase'\n", 0), 0u);
}

TEST_F(ProjectTool, ListOfAFileThatIsNotAProjectIsAFileError) {
  WriteFile(PathIn("x.gpkg"), "not sqlite");
  Result result = Run({"project", "list", PathIn("x.gpkg")});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("zrsim project list: cannot open the project '", 0), 0u);
}

TEST_F(ProjectTool, AddsDesignSurveyFilterAndModelThatTheControlThenOffers) {
  const std::string project = SampleProject();
  Result list = Run({"project", "list", project});
  // The sample's first layer serves as the stratum layer of the new design.
  const std::size_t at = list.out.find("Layers:\n  ") + 10;
  const std::string layer = list.out.substr(at, list.out.find(" (kind", at) - at);
  EXPECT_EQ(
      Run({"project", "add-design", project, "--id", "901", "--name", "Zigzag", "--stratum-layer", layer})
          .status,
      0);
  EXPECT_EQ(
      Run({"project", "add-survey", project, "--id", "902", "--name", "Zigzag survey", "--design", "901"})
          .status,
      0);
  EXPECT_EQ(Run({"project", "add-filter", project, "--id", "903", "--name", "Truncated"}).status, 0);
  EXPECT_EQ(Run({"project", "add-model", project, "--id", "904", "--name", "HN ds", "--engine", "MRDS",
                 "--method", "ds"})
                .status,
            0);
  list = Run({"project", "list", project});
  EXPECT_NE(list.out.find("  901 Zigzag: stratum layer " + layer + "\n"), std::string::npos) << list.out;
  EXPECT_NE(list.out.find("  902 Zigzag survey (status 1, design 901)\n"), std::string::npos) << list.out;
  EXPECT_NE(list.out.find("  903 Truncated\n"), std::string::npos);
  EXPECT_NE(list.out.find("  904 HN ds (engine MRDS): method ds\n"), std::string::npos) << list.out;

  Result show = Run({"show", "--project", project, "--definition", "-"},
                    "Transects=Survey /ObjectID=902; DataFilter=903; ModelDef=904; Analyse=True;");
  EXPECT_EQ(show.status, 0) << show.err;
  EXPECT_NE(show.out.find("  Transects: Survey 902\n"), std::string::npos) << show.out;
  EXPECT_NE(show.out.find("  Data filter: 903 Truncated\n"), std::string::npos) << show.out;
  EXPECT_NE(show.out.find("  Model definition: 904 HN ds\n"), std::string::npos) << show.out;
}

TEST_F(ProjectTool, AddSimulationStoresTheDefinitionThatCheckThenReads) {
  const std::string project = SampleProject();
  const std::string file = PathIn("mine.txt");
  WriteFile(file, SampleDefinition() + "Reps=12;");
  Result added = Run({"project", "add-simulation", project, "--name", "Mine", "--definition", file});
  EXPECT_EQ(added.status, 0) << added.err;
  Result show = Run({"show", "--project", project, "--simulation", "Mine"});
  EXPECT_NE(show.out.find("  Repetitions: 12\n"), std::string::npos) << show.out;
  Result again = Run({"project", "add-simulation", project, "--name", "mine", "--definition", file});
  EXPECT_EQ(again.status, 2);
  EXPECT_EQ(again.err, "zrsim project add-simulation: the project already has a simulation named 'Mine'\n");
}

TEST_F(ProjectTool, AddSimulationWithoutDefinitionUsesTheProjectDefault) {
  const std::string project = SampleProject();
  Result added = Run({"project", "add-simulation", project, "--name", "Defaults"});
  EXPECT_EQ(added.status, 0) << added.err;
  EXPECT_EQ(Run({"check", "--project", project, "--simulation", "Defaults"}).status, 0);
}

TEST_F(ProjectTool, AddSimulationRefusesAnEmptyDefinition) {
  const std::string project = SampleProject();
  Result result = Run({"project", "add-simulation", project, "--name", "Blank", "--definition", "-"}, "  \n");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err,
            "zrsim project add-simulation: the definition is empty; a simulation needs at least one entry\n");
  EXPECT_EQ(Run({"project", "list", project}).out.find("  Blank\n"), std::string::npos);
}

TEST_F(ProjectTool, BadArgumentsGiveTheirMessagesAndStatusTwo) {
  const std::string project = SampleProject();
  struct Case {
    std::vector<std::string> words;
    std::string message;
  };
  const Case cases[] = {
      {{"project", "add-filter", project, "--name", "x"}, "zrsim project add-filter: --id is required\n"},
      {{"project", "add-filter", project, "--id", "7x", "--name", "x"},
       "zrsim project add-filter: --id must be a whole number, not '7x'\n"},
      {{"project", "add-filter", project, "--id", "99999999999", "--name", "x"},
       "zrsim project add-filter: --id must be a whole number, not '99999999999'\n"},
      {{"project", "add-survey", project, "--id", "5", "--name", "s", "--design", "1", "--status", "one"},
       "zrsim project add-survey: --status must be a whole number, not 'one'\n"},
      {{"project", "add-model", project, "--id", "5", "--name", "m"},
       "zrsim project add-model: --engine is required\n"},
      {{"project", "add-design", project, "--id", "5", "--name", "d"},
       "zrsim project add-design: --stratum-layer is required\n"},
      {{"project", "add-filter", "--id", "5", "--name", "f"}, "zrsim project add-filter: missing FILE\n"},
      {{"project", "list", project, "extra"}, "zrsim project list: unexpected argument 'extra'\n"},
      {{"project", "import-layer", project, "--table", "t", "--id-field", "id", "--name", "n", "--kind", "1"},
       "zrsim project import-layer: --from is required\n"},
      {{"project", "add-simulation", project, "--name", " "},
       "zrsim project add-simulation: the simulation name is blank\n"},
  };
  for (const Case& bad : cases) {
    Result result = Run(bad.words);
    EXPECT_EQ(result.status, 2) << bad.message;
    EXPECT_EQ(result.err, bad.message);
  }
}

TEST_F(ProjectTool, ChangesToAMissingProjectNeverCreateIt) {
  const std::string path = PathIn("absent.gpkg");
  Result result = Run({"project", "add-filter", path, "--id", "1", "--name", "f"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("zrsim project add-filter: cannot open the project '" + path + "': ", 0), 0u);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ProjectTool, ImportFromAMissingGeoPackageIsAFileError) {
  const std::string project = SampleProject();
  Result result = Run({"project", "import-layer", project, "--from", PathIn("none.gpkg"), "--table", "t",
                       "--id-field", "id", "--name", "n", "--kind", "1"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.rfind("zrsim project import-layer: ", 0), 0u);
}

}  // namespace

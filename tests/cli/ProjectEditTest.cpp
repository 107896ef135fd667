#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "CliFixture.h"
#include "projectdb/GeoPackageValidator.h"

namespace {

using ProjectEdit = CliFixture;

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::size_t Lines(const std::string& text) {
  std::size_t count = 0;
  for (const char c : text) count += c == '\n' ? 1 : 0;
  return count;
}

TEST_F(ProjectEdit, NewWritesAnEmptyProjectWhoseDefaultSimulationChecksClean) {
  const std::string path = PathIn("mine.gpkg");
  Result made = Run({"project", "new", path});
  ASSERT_EQ(made.status, 0) << made.err;
  Result list = Run({"project", "list", path});
  EXPECT_EQ(list.out, "Layers:\nDesigns:\nSurveys:\nData filters:\nModel definitions:\nSimulations:\n");
  ASSERT_EQ(Run({"project", "add-simulation", path, "--name", "First"}).status, 0);
  Result check = Run({"check", "--project", path, "--simulation", "First"});
  EXPECT_EQ(check.status, 0) << check.out << check.err;
}

TEST_F(ProjectEdit, NewNeverReplacesAFile) {
  const std::string path = PathIn("keep.gpkg");
  WriteFile(path, "precious");
  Result refused = Run({"project", "new", path});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.err,
            "zrsim project new: '" + path + "' already exists; a new project is never written over a file\n");
  EXPECT_EQ(Bytes(path), "precious");
}

TEST_F(ProjectEdit, CopiesRenamesReplacesAndRemovesSimulations) {
  const std::string project = SampleProject();
  ASSERT_EQ(
      Run({"project", "copy-simulation", project, "--name", "sample SIMULATION", "--to", "Copy"}).status, 0);
  Result original = Run({"normalize", "--project", project, "--simulation", "Sample simulation"});
  Result copy = Run({"normalize", "--project", project, "--simulation", "Copy"});
  EXPECT_EQ(copy.out, original.out);
  ASSERT_EQ(Run({"project", "rename-simulation", project, "--name", "copy", "--to", "Second"}).status, 0);
  WriteFile(PathIn("reps.txt"), "Engine=SIM; Reps=7;");
  Result set = Run(
      {"project", "set-definition", project, "--simulation", "Second", "--definition", PathIn("reps.txt")});
  ASSERT_EQ(set.status, 0) << set.err;
  Result shown = Run({"normalize", "--project", project, "--simulation", "Second"});
  EXPECT_NE(shown.out.find("Reps=7;"), std::string::npos) << shown.out;
  ASSERT_EQ(Run({"project", "remove-simulation", project, "--name", "SECOND"}).status, 0);
  Result list = Run({"project", "list", project});
  EXPECT_NE(list.out.find("Simulations:\n  Sample simulation\n"), std::string::npos) << list.out;
  EXPECT_EQ(list.out.find("Second"), std::string::npos) << list.out;
}

TEST_F(ProjectEdit, EveryRefusalIsOneSentenceWithStatusTwoAndLeavesTheFileAsItWas) {
  const std::string project = SampleProject();
  WriteFile(PathIn("empty.txt"), "  \n");
  WriteFile(PathIn("reps.txt"), "Engine=SIM; Reps=7;");
  const std::vector<std::pair<std::vector<std::string>, std::string>> refusals = {
      {{"copy-simulation", project, "--name", "Nothing", "--to", "X"},
       "The project has no simulation named 'Nothing'."},
      {{"copy-simulation", project, "--name", "Sample simulation", "--to", "SAMPLE simulation"},
       "The project already has a simulation named 'Sample simulation'."},
      {{"rename-simulation", project, "--name", "Nothing", "--to", "X"},
       "The project has no simulation named 'Nothing'."},
      {{"remove-simulation", project, "--name", "Nothing"}, "The project has no simulation named 'Nothing'."},
      {{"set-definition", project, "--simulation", "Nothing", "--definition", PathIn("reps.txt")},
       "The project has no simulation named 'Nothing'."},
      {{"rename-simulation", project, "--name", "Sample simulation", "--to", " "},
       "A simulation needs a name."},
      {{"set-definition", project, "--simulation", "Nothing", "--definition", PathIn("empty.txt")},
       "the definition is empty; a simulation needs at least one entry"},
      {{"remove-layer", project, "--name", "Study region"},
       "The layer 'Study region' is the parent of the layer 'Strata', so it is kept."},
      {{"remove-layer", project, "--name", "Strata"},
       "The design 1 takes its strata from the layer 'Strata', so it is kept."},
      {{"remove-layer", project, "--name", "Lakes"}, "The project has no layer named 'Lakes'."},
      {{"remove-design", project, "--id", "2"},
       "The survey 2 'Zigzag survey' is made with the design 2, so it is kept."},
      {{"remove-survey", project, "--id", "3"},
       "The simulation 'Sample simulation' takes its transects from the survey 3, so it is kept."},
      {{"remove-filter", project, "--id", "2"},
       "The simulation 'Sample simulation' analyses with the data filter 2, so it is kept."},
      {{"remove-model", project, "--id", "1"},
       "The simulation 'Sample simulation' analyses with the model definition 1, so it is kept."},
      {{"remove-model", project, "--id", "77"},
       "The project has no model definition with the identifier 77."},
      {{"add-design", project, "--id", "9", "--name", "D", "--stratum-layer", "Strata", "--type", "circle"},
       "--type must be parallel or zigzag, not 'circle'"},
      {{"add-design", project, "--id", "9", "--name", "D", "--stratum-layer", "Strata", "--type", "zigzag",
        "--spacing", "-4"},
       "--spacing must be a distance above 0, not '-4'"},
  };
  const std::string before = Bytes(project);
  for (const auto& [words, sentence] : refusals) {
    std::vector<std::string> command = {"project"};
    command.insert(command.end(), words.begin(), words.end());
    Result refused = Run(command);
    EXPECT_EQ(refused.status, 2) << words[0];
    EXPECT_EQ(refused.err, "zrsim project " + words[0] + ": " + sentence + "\n");
    EXPECT_EQ(Lines(refused.err), 1u) << refused.err;
    EXPECT_EQ(Bytes(project), before) << words[0] << " changed the file";
  }
}

TEST_F(ProjectEdit, RemovesRecordsAndLayersOnceNothingUsesThem) {
  const std::string project = SampleProject();
  ASSERT_EQ(Run({"project", "remove-simulation", project, "--name", "Sample simulation"}).status, 0);
  for (const char* survey : {"1", "2", "3", "4"}) {
    ASSERT_EQ(Run({"project", "remove-survey", project, "--id", survey}).status, 0) << survey;
  }
  for (const char* design : {"1", "2"}) {
    ASSERT_EQ(Run({"project", "remove-design", project, "--id", design}).status, 0) << design;
  }
  ASSERT_EQ(Run({"project", "remove-filter", project, "--id", "2"}).status, 0);
  ASSERT_EQ(Run({"project", "remove-model", project, "--id", "3"}).status, 0);
  ASSERT_EQ(Run({"project", "remove-layer", project, "--name", "strata"}).status, 0);
  ASSERT_EQ(Run({"project", "remove-layer", project, "--name", "Study region"}).status, 0);
  Result list = Run({"project", "list", project});
  EXPECT_NE(list.out.find("Layers:\nDesigns:\nSurveys:\nData filters:\n  1 Default data filter\n  3 Group"),
            std::string::npos)
      << list.out;
  EXPECT_EQ(list.out.find("MA hazard-rate"), std::string::npos) << list.out;
  // The layer's table is gone with it, so a layer of the same name can come back.
  EXPECT_EQ(Run({"project", "remove-layer", project, "--name", "Strata"}).err,
            "zrsim project remove-layer: The project has no layer named 'Strata'.\n");
  EXPECT_VALID_GEOPACKAGE(project);
}

TEST_F(ProjectEdit, DesignTypeSpacingAndTruncationAreWrittenAsTheSamplesAndListedAsWords) {
  const std::string project = SampleProject();
  Result added =
      Run({"project", "add-design", project, "--id", "5", "--name", "Wide zigzag", "--stratum-layer",
           "Strata", "--type", "ZIGZAG", "--spacing", "750", "--truncation", "120.5"});
  ASSERT_EQ(added.status, 0) << added.err;
  Result list = Run({"project", "list", project});
  EXPECT_NE(list.out.find("  1 Systematic parallel lines: type Parallel, spacing 500, stratum layer Strata, "
                          "truncation 200\n"),
            std::string::npos)
      << list.out;
  EXPECT_NE(
      list.out.find("  5 Wide zigzag: type Zigzag, spacing 750, stratum layer Strata, truncation 120.5\n"),
      std::string::npos)
      << list.out;
  EXPECT_EQ(list.out.find("\\r\\n"), std::string::npos) << list.out;
  EXPECT_NE(list.out.find("  1 MRDS half-normal (ds) (engine MRDS): method ds, key hn\n"), std::string::npos);
}

TEST_F(ProjectEdit, SurveyStatusIsExplainedInItsHelp) {
  Result help = Run({"project", "add-survey", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("transects have been generated"), std::string::npos) << help.out;
  Result usage = Run({"project", "--help"});
  for (const char* command :
       {"new FILE", "copy-simulation", "rename-simulation", "set-definition", "remove-simulation",
        "remove-layer", "remove-design", "remove-survey", "remove-filter", "remove-model"}) {
    EXPECT_NE(usage.out.find(command), std::string::npos) << command;
  }
}

}  // namespace

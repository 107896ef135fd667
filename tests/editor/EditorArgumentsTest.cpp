#include <gtest/gtest.h>

#include "zrsim-editor/EditorArguments.h"
#include "zrsim-editor/EditorError.h"

namespace {

using zrsim_editor::EditorArguments;
using zrsim_editor::EditorError;

std::string FailureOf(const std::vector<std::string>& words) {
  try {
    EditorArguments::Parse(words);
  } catch (const EditorError& error) {
    return error.what();
  }
  return "";
}

TEST(EditorArguments, NoArgumentsMeanTheDefaultProjectAndItsFirstSimulation) {
  auto options = EditorArguments::Parse({});
  EXPECT_FALSE(options.help);
  EXPECT_EQ(options.project, "");
  EXPECT_EQ(options.simulation, "");
  EXPECT_EQ(options.screenshot_dir, "");
}

TEST(EditorArguments, TakesProjectSimulationAndScreenshotFolder) {
  auto options =
      EditorArguments::Parse({"--project", "p.gpkg", "--simulation", "Night survey", "--screenshot=out"});
  EXPECT_EQ(options.project, "p.gpkg");
  EXPECT_EQ(options.simulation, "Night survey");
  EXPECT_EQ(options.screenshot_dir, "out");
}

TEST(EditorArguments, HelpIsRecognised) {
  EXPECT_TRUE(EditorArguments::Parse({"--project", "x", "--help"}).help);
  EXPECT_NE(EditorArguments::Usage().find("Usage: zrsim-editor [--project FILE]"), std::string::npos);
}

TEST(EditorArguments, MistakesHaveClearMessages) {
  EXPECT_EQ(FailureOf({"--projet", "x"}), "zrsim-editor: unknown option '--projet'");
  EXPECT_EQ(FailureOf({"--project"}), "zrsim-editor: option '--project' needs a value");
  EXPECT_EQ(FailureOf({"sample.gpkg"}), "zrsim-editor: unexpected argument 'sample.gpkg'");
  EXPECT_EQ(FailureOf({"--simulation", "a", "--simulation", "b"}),
            "zrsim-editor: option '--simulation' is given more than once");
  EXPECT_EQ(FailureOf({"--screenshot="}), "zrsim-editor: the value of --screenshot is empty");
}

TEST(EditorArguments, FirstExistingSkipsMissingFilesAndFolders) {
  EXPECT_EQ(EditorArguments::FirstExisting({"", "/no/such/file", "/tmp"}), "");
  EXPECT_EQ(EditorArguments::FirstExisting({"/no/such/file", "/proc/self/status"}), "/proc/self/status");
}

}  // namespace

#include <gtest/gtest.h>

#include <fstream>

#include "EditorFixture.h"
#include "projectdb/GeoPackageProject.h"
#include "zrsim-editor/EditorDocument.h"
#include "zrsim-editor/EditorError.h"

namespace {

using zrsim_editor::EditorDocument;
using zrsim_editor::EditorError;

using EditorDocumentTest = EditorFixture;

std::string OpenFailure(const std::string& path, const std::string& simulation) {
  try {
    EditorDocument::Open(path, simulation);
  } catch (const EditorError& error) {
    return error.what();
  }
  return "";
}

TEST_F(EditorDocumentTest, OpensTheFirstSimulationByDefault) {
  auto document = EditorDocument::Open(Sample(), "");
  EXPECT_EQ(document->SimulationName(), "Sample simulation");
  EXPECT_EQ(document->SavedDefinition(), StoredDefinition());
}

TEST_F(EditorDocumentTest, FindsASimulationWithCaseIgnored) {
  EXPECT_EQ(EditorDocument::Open(Sample(), "sample SIMULATION")->SimulationName(), "Sample simulation");
}

TEST_F(EditorDocumentTest, UnknownSimulationIsNamedInTheError) {
  EXPECT_EQ(OpenFailure(Sample(), "Nonesuch"),
            "The project '" + Sample() + "' has no simulation named 'Nonesuch'.");
}

TEST_F(EditorDocumentTest, MissingOrForeignFilesAreClearErrors) {
  const std::string missing = Folder() + "/missing.gpkg";
  EXPECT_EQ(OpenFailure(missing, "").rfind("Cannot open the project '" + missing + "': ", 0), 0u);
  const std::string text = Folder() + "/text.gpkg";
  std::ofstream(text) << "plain text, not a project";
  EXPECT_EQ(OpenFailure(text, "").rfind("Cannot open the project '" + text + "': ", 0), 0u);
}

TEST_F(EditorDocumentTest, ProjectWithoutSimulationsHasNothingToEdit) {
  const std::string empty = Folder() + "/empty.gpkg";
  zrsimprp::GeoPackageProject::Create(empty);
  EXPECT_EQ(OpenFailure(empty, ""), "The project '" + empty + "' holds no simulation to edit.");
}

TEST_F(EditorDocumentTest, SavesANonEmptyDefinition) {
  auto document = EditorDocument::Open(Sample(), "");
  auto outcome = document->Save("Engine=SIM;Reps=9;");
  EXPECT_TRUE(outcome.saved);
  EXPECT_EQ(StoredDefinition(), "Engine=SIM;Reps=9;");
  EXPECT_EQ(document->SavedDefinition(), "Engine=SIM;Reps=9;");
}

// Someone saves between this document's load and its save: the save refuses in its own transaction,
// keeps their text and says so; only a save told to overwrite replaces it.
TEST_F(EditorDocumentTest, ASaveByAnotherWindowSinceLoadingIsNotOverwrittenUnlessAsked) {
  auto mine = EditorDocument::Open(Sample(), "");
  auto theirs = EditorDocument::Open(Sample(), "");
  ASSERT_TRUE(theirs->Save("Engine=SIM;Reps=7;").saved);
  const auto refused = mine->Save("Engine=SIM;Reps=9;");
  EXPECT_FALSE(refused.saved);
  EXPECT_EQ(refused.message,
            "Someone else saved this simulation just now, so nothing was saved and your changes are kept. "
            "Save again to choose whether to overwrite their version.");
  EXPECT_EQ(StoredDefinition(), "Engine=SIM;Reps=7;");
  EXPECT_TRUE(mine->ChangedElsewhere());
  ASSERT_TRUE(mine->Save("Engine=SIM;Reps=9;", true).saved);
  EXPECT_EQ(StoredDefinition(), "Engine=SIM;Reps=9;");
  EXPECT_FALSE(mine->ChangedElsewhere());
}

TEST_F(EditorDocumentTest, NeverSavesAnEmptyDefinition) {
  const std::string before = StoredDefinition();
  auto document = EditorDocument::Open(Sample(), "");
  for (const std::string empty : {"", "  ", "\r\n"}) {
    auto outcome = document->Save(empty);
    EXPECT_FALSE(outcome.saved);
    EXPECT_EQ(outcome.message, EditorDocument::kNotWrittenMessage);
  }
  EXPECT_EQ(StoredDefinition(), before);
  EXPECT_EQ(document->SavedDefinition(), before);
}

}  // namespace

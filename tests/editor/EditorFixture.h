#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "zrsim-editor/EditorDocument.h"
#include "zrsim-editor/EditorWindow.h"

class QLineEdit;
class QString;

// A copy of the sample project in a fresh folder per test, and an empty store of the person's
// settings.
class EditorFixture : public ::testing::Test {
 protected:
  struct Shown {
    std::string text;
    std::string title;
  };
  struct Asked {
    std::string text;
    std::vector<zrsim_editor::EditorWindow::Choice> choices;
  };

  void SetUp() override;
  void TearDown() override;

  std::string Folder() const { return folder_.string(); }
  const std::string& Sample() const { return sample_; }
  // The definition stored in the project file now, read afresh.
  std::string StoredDefinition(const std::string& simulation = "Sample simulation") const;

  // Opens the sample in a window whose messages and questions are recorded instead of shown; the
  // questions are answered from `answers_` (Go back when it runs out).
  void OpenWindow(bool read_only = false);
  void CloseWindow();
  // The line edit a person knows by its accessible name.
  QLineEdit* EditNamed(const QString& name);
  // The repetitions box as a person sees it.
  QLineEdit* RepsEdit();
  void TypeReps(const QString& text);

  std::vector<Shown> shown_;
  std::vector<Asked> asked_;
  std::deque<zrsim_editor::EditorWindow::Choice> answers_;
  std::unique_ptr<zrsim_editor::EditorDocument> document_;
  std::unique_ptr<zrsim_editor::EditorWindow> window_;

 private:
  std::filesystem::path folder_;
  std::string sample_;
};

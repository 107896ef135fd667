#include "EditorFixture.h"

#include <unistd.h>

#include <QLineEdit>
#include <QSettings>
#include <QTest>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/AccessibleText.h"

void EditorFixture::SetUp() {
  static int counter = 0;
  folder_ = std::filesystem::temp_directory_path() /
            ("zrsim-editor-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
  std::filesystem::remove_all(folder_);
  std::filesystem::create_directories(folder_);
  sample_ = (folder_ / "sample.gpkg").string();
  zrsimprp::SampleProject::Create(sample_);
  QSettings().clear();
}

void EditorFixture::TearDown() {
  CloseWindow();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

std::string EditorFixture::StoredDefinition(const std::string& simulation) const {
  return zrsimprp::GeoPackageProject::Open(sample_)->SimulationDefinition(simulation);
}

void EditorFixture::OpenWindow(bool read_only) {
  using zrsim_editor::EditorWindow;
  document_ = zrsim_editor::EditorDocument::Open(Sample(), "", read_only);
  window_ = std::make_unique<EditorWindow>(*document_);
  window_->SetMessageSink([this](const std::string& text, const std::string& title) {
    shown_.push_back(Shown{text, title});
  });
  window_->SetQuestionSink([this](const std::string& text, const std::vector<EditorWindow::Choice>& choices) {
    asked_.push_back(Asked{text, choices});
    if (answers_.empty()) return EditorWindow::Choice::kGoBack;
    const EditorWindow::Choice answer = answers_.front();
    answers_.pop_front();
    return answer;
  });
  ASSERT_TRUE(window_->Load());
}

void EditorFixture::CloseWindow() {
  window_.reset();
  document_.reset();
}

QLineEdit* EditorFixture::EditNamed(const QString& name) {
  for (QLineEdit* edit : window_->findChildren<QLineEdit*>()) {
    if (edit->accessibleName() == name) return edit;
  }
  return nullptr;
}

QLineEdit* EditorFixture::RepsEdit() {
  return EditNamed(
      zrsimprp::AccessibleText::FromCaption(window_->Properties().Control().pagSimulation.labReps.Caption()));
}

void EditorFixture::TypeReps(const QString& text) {
  window_->Properties().ShowOuterTab(0);
  QLineEdit* edit = RepsEdit();
  ASSERT_NE(edit, nullptr);
  edit->selectAll();
  QTest::keyClicks(edit, text);
  window_->Properties().RefreshNow();
}

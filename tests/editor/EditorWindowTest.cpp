#include <gtest/gtest.h>

#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "EditorFixture.h"
#include "projectdb/GeoPackageProject.h"
#include "zrsim-editor/EditorDocument.h"
#include "zrsim-editor/EditorError.h"
#include "zrsim-editor/EditorWindow.h"
#include "zrsim-editor/ScreenshotWriter.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/AccessibleText.h"

namespace {

using zrsim_editor::EditorDocument;
using zrsim_editor::EditorWindow;

class EditorWindowTest : public EditorFixture {};

TEST_F(EditorWindowTest, ValueTypedInTheFormIsThereAfterOkAndReopening) {
  OpenWindow();
  EXPECT_EQ(window_->Properties().Control().pagSimulation.Reps(), "25");
  TypeReps("250");
  EXPECT_EQ(window_->Properties().Control().pagSimulation.Reps(), "250");
  QTest::mouseClick(window_->OkButton(), Qt::LeftButton);
  EXPECT_EQ(window_->result(), QDialog::Accepted);
  EXPECT_TRUE(shown_.empty());
  CloseWindow();

  EXPECT_NE(StoredDefinition().find("Reps=250;"), std::string::npos) << StoredDefinition();
  OpenWindow();
  EXPECT_EQ(window_->Properties().Control().pagSimulation.Reps(), "250");
  window_->Properties().RefreshNow();
  EXPECT_EQ(RepsEdit()->text(), "250");
}

TEST_F(EditorWindowTest, ApplySavesAndKeepsTheWindowOpen) {
  OpenWindow();
  window_->show();
  TypeReps("40");
  QTest::mouseClick(window_->ApplyButton(), Qt::LeftButton);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_NE(StoredDefinition().find("Reps=40;"), std::string::npos);
}

TEST_F(EditorWindowTest, CancelSavesNothing) {
  const std::string before = StoredDefinition();
  OpenWindow();
  TypeReps("41");
  answers_.push_back(EditorWindow::Choice::kDiscard);
  QTest::mouseClick(window_->CancelButton(), Qt::LeftButton);
  EXPECT_EQ(window_->result(), QDialog::Rejected);
  EXPECT_EQ(StoredDefinition(), before);
}

TEST_F(EditorWindowTest, InvalidPageIsShownWithItsMessageAndNothingIsSaved) {
  const std::string before = StoredDefinition();
  OpenWindow();
  TypeReps("0");
  QTest::mouseClick(window_->OkButton(), Qt::LeftButton);
  EXPECT_NE(window_->result(), QDialog::Accepted);
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].text, "The number of repetitions must be greater than 0.");
  EXPECT_EQ(shown_[0].title, "Error in options on Simulation Page");
  EXPECT_EQ(StoredDefinition(), before);
}

TEST_F(EditorWindowTest, DefinitionThatCannotBeWrittenIsNotSavedAndTheOldOneStays) {
  // A setting the control cannot read as a Boolean makes writing the definition fail.
  zrsimprp::GeoPackageProject::Open(Sample())->Settings()->WriteSetting(
      1, 3, "Properties", "InsertCrLf", zrsimprp::Variant(std::string("perhaps")));
  const std::string before = StoredDefinition();
  OpenWindow();
  TypeReps("99");
  QTest::mouseClick(window_->OkButton(), Qt::LeftButton);
  EXPECT_NE(window_->result(), QDialog::Accepted);
  ASSERT_FALSE(shown_.empty());
  EXPECT_EQ(shown_.front().title, "Pellunar Internal Error");  // the control's own report
  EXPECT_EQ(shown_.back().text, EditorDocument::kNotWrittenMessage);
  EXPECT_EQ(StoredDefinition(), before);
}

TEST_F(EditorWindowTest, ResetLoadsTheDefaultsWithoutSaving) {
  const std::string before = StoredDefinition();
  OpenWindow();
  QTest::mouseClick(window_->ResetButton(), Qt::LeftButton);
  EXPECT_TRUE(shown_.empty());
  std::string defaults = zrsimprp::VariantToText(
      zrsimprp::GeoPackageProject::Open(Sample())->EngineDefaults()->DefaultDefinition("SIM"));
  const std::size_t reps = defaults.find("Reps=");
  if (reps != std::string::npos) {
    const std::size_t end = defaults.find(';', reps);
    EXPECT_EQ(window_->Properties().Control().pagSimulation.Reps(),
              defaults.substr(reps + 5, end - reps - 5));
  }
  EXPECT_EQ(StoredDefinition(), before);
}

TEST_F(EditorWindowTest, ScreenshotsOfEveryTabAreWritten) {
  OpenWindow();
  std::vector<std::string> problems;
  auto paths = zrsim_editor::ScreenshotWriter::WriteAll(*window_, Folder() + "/shots", problems);
  EXPECT_TRUE(problems.empty());
  ASSERT_EQ(paths.size(), 7u);
  EXPECT_EQ(paths.front(), Folder() + "/shots/1-simulation.png");
  EXPECT_EQ(paths[3], Folder() + "/shots/3b-covariates.png");
  for (const std::string& path : paths) {
    QImage image(QString::fromStdString(path));
    EXPECT_FALSE(image.isNull()) << path;
    EXPECT_GT(image.width(), 300) << path;
  }
  EXPECT_TRUE(shown_.empty());
}

TEST_F(EditorWindowTest, ScreenshotFolderThatCannotBeMadeIsAnError) {
  OpenWindow();
  std::vector<std::string> problems;
  EXPECT_THROW(zrsim_editor::ScreenshotWriter::WriteAll(*window_, Sample() + "/inside-a-file", problems),
               zrsim_editor::EditorError);
}

}  // namespace

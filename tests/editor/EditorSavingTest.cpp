#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "EditorFixture.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SqliteConnection.h"
#include "zrsimprp/control/SIMProperties.h"

namespace {

using zrsim_editor::EditorDocument;
using zrsim_editor::EditorWindow;
using Choice = EditorWindow::Choice;

class EditorSavingTest : public EditorFixture {
 protected:
  bool Modified() { return window_->IsModified(); }
};

TEST_F(EditorSavingTest, TitleNamesTheSimulationAndTheProjectFileAndCarriesTheModifiedMarker) {
  OpenWindow();
  const QString title = window_->windowTitle();
  EXPECT_TRUE(title.contains(QStringLiteral("Sample simulation"))) << title.toStdString();
  EXPECT_TRUE(title.contains(QString::fromStdString(Sample()))) << title.toStdString();
  EXPECT_TRUE(title.contains(QStringLiteral("[*]"))) << title.toStdString();
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(EditorSavingTest, TypingAValueMarksTheWindowModifiedAndEnablesApply) {
  OpenWindow();
  EXPECT_FALSE(Modified());
  EXPECT_FALSE(window_->ApplyButton()->isEnabled());
  TypeReps("250");
  EXPECT_TRUE(Modified());
  EXPECT_TRUE(window_->isWindowModified());
  EXPECT_TRUE(window_->ApplyButton()->isEnabled());
}

TEST_F(EditorSavingTest, TypingTheOldValueBackIsNotAChange) {
  OpenWindow();
  TypeReps("250");
  ASSERT_TRUE(Modified());
  TypeReps("25");
  EXPECT_FALSE(Modified());
  EXPECT_FALSE(window_->isWindowModified());
  EXPECT_FALSE(window_->ApplyButton()->isEnabled());
}

TEST_F(EditorSavingTest, LookingAtEveryTabIsNotAChange) {
  OpenWindow();
  for (int tab : {1, 2, 3, 4, 5, 0}) window_->Properties().ShowOuterTab(tab);
  EXPECT_FALSE(Modified());
  // An edit made after looking is still one.
  TypeReps("26");
  window_->Properties().ShowOuterTab(3);
  EXPECT_TRUE(Modified());
}

TEST_F(EditorSavingTest, TheModifiedCheckWaitsForTypingToPause) {
  OpenWindow();
  window_->Properties().ShowOuterTab(0);
  const int before = window_->ModifiedChecks();
  QLineEdit* reps = RepsEdit();
  reps->selectAll();
  QTest::keyClicks(reps, "12345");
  EXPECT_EQ(window_->ModifiedChecks(), before);  // five key strokes, no definition written yet
  QTest::qWait(400);
  EXPECT_EQ(window_->ModifiedChecks(), before + 1);
  EXPECT_TRUE(window_->isWindowModified());
}

TEST_F(EditorSavingTest, ApplySavesAndClearsTheModifiedMarker) {
  OpenWindow();
  TypeReps("40");
  QTest::mouseClick(window_->ApplyButton(), Qt::LeftButton);
  EXPECT_NE(StoredDefinition().find("Reps=40;"), std::string::npos);
  EXPECT_FALSE(Modified());
  EXPECT_FALSE(window_->ApplyButton()->isEnabled());
}

TEST_F(EditorSavingTest, CancelWithoutChangesClosesWithoutAsking) {
  OpenWindow();
  QTest::mouseClick(window_->CancelButton(), Qt::LeftButton);
  EXPECT_EQ(window_->result(), QDialog::Rejected);
  EXPECT_TRUE(asked_.empty());
}

TEST_F(EditorSavingTest, CancelWithChangesAsksAndGoBackKeepsTheWindowAndTheEdits) {
  const std::string before = StoredDefinition();
  OpenWindow();
  window_->show();
  TypeReps("41");
  answers_.push_back(Choice::kGoBack);
  QTest::mouseClick(window_->CancelButton(), Qt::LeftButton);
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_EQ(asked_[0].text, EditorWindow::kUnsavedQuestion);
  EXPECT_EQ(asked_[0].choices, (std::vector<Choice>{Choice::kSave, Choice::kDiscard, Choice::kGoBack}));
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(RepsEdit()->text(), "41");
  EXPECT_EQ(StoredDefinition(), before);
}

TEST_F(EditorSavingTest, EscapeWithChangesAsksAndDiscardClosesWithoutSaving) {
  const std::string before = StoredDefinition();
  OpenWindow();
  window_->show();
  TypeReps("42");
  answers_.push_back(Choice::kDiscard);
  QTest::keyClick(window_.get(), Qt::Key_Escape);
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(window_->result(), QDialog::Rejected);
  EXPECT_EQ(StoredDefinition(), before);
}

TEST_F(EditorSavingTest, ClosingWithChangesAndChoosingSaveSavesAndCloses) {
  OpenWindow();
  window_->show();
  TypeReps("43");
  answers_.push_back(Choice::kSave);
  EXPECT_TRUE(window_->close());
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_EQ(window_->result(), QDialog::Accepted);
  EXPECT_NE(StoredDefinition().find("Reps=43;"), std::string::npos);
}

TEST_F(EditorSavingTest, ClosingWithARefusedPageAndChoosingSaveKeepsTheWindowOpen) {
  const std::string before = StoredDefinition();
  OpenWindow();
  window_->show();
  TypeReps("0");
  answers_.push_back(Choice::kSave);
  EXPECT_FALSE(window_->close());
  EXPECT_TRUE(window_->isVisible());
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].text, "The number of repetitions must be greater than 0.");
  EXPECT_EQ(shown_[0].title, "Error in options on Simulation Page");
  EXPECT_EQ(StoredDefinition(), before);
}

TEST_F(EditorSavingTest, ResetWithChangesAsksFirstAndGoBackKeepsTheEdits) {
  OpenWindow();
  TypeReps("44");
  answers_.push_back(Choice::kGoBack);
  QTest::mouseClick(window_->ResetButton(), Qt::LeftButton);
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_EQ(asked_[0].text, EditorWindow::kResetQuestion);
  EXPECT_EQ(window_->Properties().Control().pagSimulation.Reps(), "44");
}

TEST_F(EditorSavingTest, ResetWithChangesAndDiscardLoadsTheDefaults) {
  OpenWindow();
  TypeReps("44");
  answers_.push_back(Choice::kDiscard);
  QTest::mouseClick(window_->ResetButton(), Qt::LeftButton);
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_NE(window_->Properties().Control().pagSimulation.Reps(), "44");
}

TEST_F(EditorSavingTest, SaveThatFailsHalfWayKeepsTheWindowTheEditsAndTheOldDefinition) {
  const std::string before = StoredDefinition();
  OpenWindow();
  window_->show();
  TypeReps("250");
  // The definition row is written, then the contents register refuses its update: the save fails
  // in the middle of its transaction.
  document_->Project()->Connection().Execute(
      "CREATE TEMP TRIGGER refuse_touch BEFORE UPDATE ON main.gpkg_contents "
      "BEGIN SELECT RAISE(ABORT, 'database or disk is full'); END;");
  QTest::mouseClick(window_->OkButton(), Qt::LeftButton);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_NE(window_->result(), QDialog::Accepted);
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].title, EditorWindow::kTitle);
  EXPECT_EQ(shown_[0].text.rfind("The simulation could not be saved: ", 0), 0u) << shown_[0].text;
  EXPECT_NE(shown_[0].text.find("database or disk is full"), std::string::npos) << shown_[0].text;
  EXPECT_NE(shown_[0].text.find("The definition saved before is kept."), std::string::npos);
  EXPECT_EQ(RepsEdit()->text(), "250");
  EXPECT_TRUE(window_->IsModified());
  EXPECT_EQ(StoredDefinition(), before);
}

TEST_F(EditorSavingTest, DefinitionChangedByAnotherWindowIsNotOverwrittenWithoutAsking) {
  OpenWindow();
  TypeReps("61");
  // Another editor saves the same simulation meanwhile.
  std::string theirs = StoredDefinition();
  theirs.replace(theirs.find("Reps=25;"), 8, "Reps=99;");
  zrsimprp::GeoPackageProject::Open(Sample())->SaveSimulationDefinition("Sample simulation", theirs);

  answers_.push_back(Choice::kGoBack);
  QTest::mouseClick(window_->ApplyButton(), Qt::LeftButton);
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_EQ(asked_[0].text, EditorWindow::kChangedElsewhereQuestion);
  EXPECT_EQ(asked_[0].choices, (std::vector<Choice>{Choice::kOverwrite, Choice::kGoBack}));
  EXPECT_EQ(StoredDefinition(), theirs);
  EXPECT_TRUE(window_->IsModified());

  answers_.push_back(Choice::kOverwrite);
  QTest::mouseClick(window_->ApplyButton(), Qt::LeftButton);
  EXPECT_NE(StoredDefinition().find("Reps=61;"), std::string::npos);
  // Saved: the next save is this window's own change and asks nothing.
  TypeReps("62");
  QTest::mouseClick(window_->ApplyButton(), Qt::LeftButton);
  EXPECT_EQ(asked_.size(), 2u);
  EXPECT_NE(StoredDefinition().find("Reps=62;"), std::string::npos);
}

}  // namespace

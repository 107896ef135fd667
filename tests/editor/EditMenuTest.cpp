#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QUndoStack>

#include "EditorFixture.h"
#include "zrsim-editor/EditMenu.h"
#include "zrsimprp/control/SIMProperties.h"

namespace {

using EditMenuTest = EditorFixture;

TEST_F(EditMenuTest, TheEditMenuNamesTheStepItUndoesAndRedoes) {
  OpenWindow();
  window_->show();
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  zrsim_editor::EditMenu* edit = window_->Edit();
  ASSERT_NE(edit, nullptr);
  auto* bar = window_->findChild<QMenuBar*>();
  ASSERT_NE(bar, nullptr);
  EXPECT_TRUE(bar->actions().contains(edit->Menu()->menuAction()));
  EXPECT_EQ(edit->Menu()->title(), "&Edit");
  ASSERT_EQ(edit->Menu()->actions().size(), 8);  // undo, redo, a separator, five grid actions
  EXPECT_FALSE(edit->UndoAction()->isEnabled());

  const std::string reps = window_->Properties().Control().pagSimulation.txtReps.Text();
  TypeReps("77");
  EXPECT_TRUE(edit->UndoAction()->isEnabled());
  EXPECT_TRUE(edit->UndoAction()->text().startsWith("Undo typing in"))
      << edit->UndoAction()->text().toStdString();
  EXPECT_EQ(edit->UndoAction()->shortcut(), QKeySequence(QKeySequence::Undo));

  edit->UndoAction()->trigger();
  EXPECT_EQ(window_->Properties().Control().pagSimulation.txtReps.Text(), reps);
  EXPECT_TRUE(edit->RedoAction()->text().startsWith("Redo typing in"));
  edit->RedoAction()->trigger();
  EXPECT_EQ(window_->Properties().Control().pagSimulation.txtReps.Text(), "77");
}

}  // namespace

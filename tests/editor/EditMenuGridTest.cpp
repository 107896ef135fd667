#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QUndoStack>
#include <string>
#include <vector>

#include "EditorFixture.h"
#include "zrsim-editor/EditMenu.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/grid/GridView.h"

namespace {

using Texts = std::vector<std::string>;

class EditMenuGridTest : public EditorFixture {
 protected:
  // The window shown on the Density tab, with the density row's first cell current in its grid.
  void OpenOnDensities() {
    OpenWindow();
    window_->resize(1000, 700);
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    window_->Properties().ShowOuterTab(1);
    QApplication::processEvents();
    grid_ = window_->findChild<zrsimprp::GridView*>(QStringLiteral("flxConstantDensity"));
    ASSERT_NE(grid_, nullptr);
    ASSERT_GE(Densities().Cols(), 3);
    grid_->setFocus();
    QApplication::processEvents();
    grid_->setCurrentIndex(grid_->model()->index(1, 1));
  }
  const zrsimprp::Grid& Densities() { return window_->Properties().Control().pagDensity.flxConstantDensity; }
  Texts DensityRow() {
    Texts texts;
    for (int c = 1; c < Densities().Cols(); ++c) texts.push_back(Densities().TextMatrix(1, c));
    return texts;
  }
  void SelectDensityRow() {
    const QModelIndex first = grid_->model()->index(1, 1);
    const QModelIndex last = grid_->model()->index(1, Densities().Cols() - 1);
    grid_->setCurrentIndex(first);
    grid_->selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
  }
  zrsim_editor::EditMenu& Edit() { return *window_->Edit(); }

  zrsimprp::GridView* grid_ = nullptr;
};

TEST_F(EditMenuGridTest, TheMenuOffersTheGridsActionsWithTheirKeys) {
  OpenOnDensities();
  const QList<QAction*> actions = Edit().Menu()->actions();
  ASSERT_EQ(actions.size(), 8);
  EXPECT_EQ(actions[0], Edit().UndoAction());
  EXPECT_EQ(actions[1], Edit().RedoAction());
  EXPECT_TRUE(actions[2]->isSeparator());
  EXPECT_EQ(actions[3], Edit().CopyAction());
  EXPECT_EQ(Edit().CopyAction()->text(), "&Copy");
  EXPECT_EQ(Edit().CopyAction()->shortcut(), QKeySequence(QKeySequence::Copy));
  EXPECT_EQ(Edit().PasteAction()->text(), "&Paste");
  EXPECT_EQ(Edit().PasteAction()->shortcut(), QKeySequence(QKeySequence::Paste));
  EXPECT_EQ(Edit().DeleteAction()->text(), "&Delete");
  EXPECT_EQ(Edit().DeleteAction()->shortcut(), QKeySequence(Qt::Key_Delete));
  EXPECT_EQ(Edit().FillDownAction()->text(), "Fill D&own");
  EXPECT_EQ(Edit().FillDownAction()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
  EXPECT_EQ(Edit().FillRightAction()->text(), "Fill &Right");
  EXPECT_EQ(Edit().FillRightAction()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
  // The keys are the grid's: the menu names them without claiming them in the window a second time.
  for (QAction* action : {Edit().CopyAction(), Edit().PasteAction(), Edit().DeleteAction(),
                          Edit().FillDownAction(), Edit().FillRightAction()}) {
    EXPECT_EQ(action->shortcutContext(), Qt::WidgetShortcut) << action->text().toStdString();
  }
}

TEST_F(EditMenuGridTest, TheGridActionsAreEnabledOnlyWhileAGridHasTheFocus) {
  OpenOnDensities();
  EXPECT_TRUE(Edit().PasteAction()->isEnabled());
  EXPECT_TRUE(Edit().FillDownAction()->isEnabled());
  window_->Properties().ShowOuterTab(0);
  QApplication::processEvents();
  RepsEdit()->setFocus();
  QApplication::processEvents();
  for (QAction* action : {Edit().CopyAction(), Edit().PasteAction(), Edit().DeleteAction(),
                          Edit().FillDownAction(), Edit().FillRightAction()}) {
    EXPECT_FALSE(action->isEnabled()) << action->text().toStdString();
  }
}

TEST_F(EditMenuGridTest, TheMenusActionsPasteCopyFillAndClearTheFocusedGridAsItsKeysDo) {
  OpenOnDensities();
  const int strata = Densities().Cols() - 1;
  QApplication::clipboard()->setText(QStringLiteral("0.5\t1\r\n"));
  Edit().PasteAction()->trigger();
  Texts expected(strata, Densities().TextMatrix(1, 3));
  expected[0] = "0.5";
  expected[1] = "1";
  EXPECT_EQ(DensityRow(), expected);
  EXPECT_EQ(window_->Properties().UndoAction()->text(), "Undo paste of 2 cells");

  SelectDensityRow();
  Edit().CopyAction()->trigger();
  QString copied;
  for (int i = 0; i < strata; ++i) copied += (i > 0 ? "\t" : "") + QString::fromStdString(expected[i]);
  EXPECT_EQ(QApplication::clipboard()->text(), copied + "\r\n");

  Edit().FillRightAction()->trigger();
  EXPECT_EQ(DensityRow(), Texts(strata, "0.5"));
  EXPECT_EQ(window_->Properties().UndoAction()->text(),
            QStringLiteral("Undo fill right of %1 cells").arg(strata - 1));

  SelectDensityRow();
  Edit().DeleteAction()->trigger();
  EXPECT_EQ(DensityRow(), Texts(strata, ""));
  EXPECT_EQ(window_->Properties().UndoAction()->text(), QStringLiteral("Undo clear of %1 cells").arg(strata));

  Edit().UndoAction()->trigger();
  EXPECT_EQ(DensityRow(), Texts(strata, "0.5"));
}

TEST_F(EditMenuGridTest, AKeyOfAMenuActionRunsTheGridsOperationOnceAndOnlyOnce) {
  OpenOnDensities();
  QApplication::clipboard()->setText(QStringLiteral("2.5\r\n"));
  QTest::keyClick(grid_, Qt::Key_V, Qt::ControlModifier);
  SelectDensityRow();
  const int steps = window_->Properties().UndoStack()->count();
  QTest::keyClick(grid_, Qt::Key_R, Qt::ControlModifier);
  const int strata = Densities().Cols() - 1;
  EXPECT_EQ(DensityRow(), Texts(strata, "2.5"));
  EXPECT_EQ(window_->Properties().UndoStack()->count(), steps + 1);
  SelectDensityRow();
  QTest::keyClick(grid_, Qt::Key_Delete);
  EXPECT_EQ(DensityRow(), Texts(strata, ""));
  EXPECT_EQ(window_->Properties().UndoStack()->count(), steps + 2);
}

}  // namespace

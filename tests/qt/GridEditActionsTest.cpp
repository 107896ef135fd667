#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

#include "QtTestSupport.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/grid/GridEditActions.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

// A strata table as the pages build it: a heading row of names, a label column, two value rows, and a
// column the page greys (its cells refused by the before-edit handler, as the Detectability page does).
class GridEditActionsTest : public ::testing::Test {
 protected:
  GridEditActionsTest() : grid(3, 5, 1, 1) {
    const char* names[] = {"Strata:", "North", "South", "East", "West"};
    for (int c = 0; c < 5; ++c) grid.SetTextMatrix(0, c, names[c]);
    grid.SetTextMatrix(1, 0, "Density:");
    grid.SetTextMatrix(2, 0, "Size:");
    for (int r = 1; r < 3; ++r) {
      for (int c = 1; c < 5; ++c) grid.SetTextMatrix(r, c, "0");
    }
    grid.SetEditable(true);
    grid.SetCellBackColor(1, 3, 2, 3, grid.BackColorFixed());
    grid.SetBeforeEditHandler([this](int row, int col, bool& cancel) {
      if (grid.CellBackColor(row, col) != grid.BackColor()) cancel = true;
    });
    form.resize(600, 200);
    view = new GridView(&form);
    view->resize(580, 150);
    binder = new GridBinder(grid, view);
    form.show();
    form.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    view->setFocus();
  }
  void Select(int top, int left, int bottom, int right) {
    view->setCurrentIndex(view->model()->index(top, left));
    view->selectionModel()->select(
        QItemSelection(view->model()->index(top, left), view->model()->index(bottom, right)),
        QItemSelectionModel::ClearAndSelect);
  }
  std::vector<std::string> Row(int row) {
    std::vector<std::string> texts;
    for (int c = 0; c < grid.Cols(); ++c) texts.push_back(grid.TextMatrix(row, c));
    return texts;
  }
  void PasteAt(int row, int col, const QString& text) {
    QApplication::clipboard()->setText(text);
    Select(row, col, row, col);
    QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
    RunEventLoopTurn();
  }
  QString Shown(int row, int col) { return view->model()->index(row, col).data().toString(); }

  Grid grid;
  QWidget form;
  GridView* view;
  GridBinder* binder;
};

using Texts = std::vector<std::string>;

TEST_F(GridEditActionsTest, CtrlVPastesATabSeparatedBlockFromTheCurrentCellSkippingGreyedCells) {
  PasteAt(1, 1, QStringLiteral("1.5\t2\t3\t4\r\n5\t6\t7\t8\r\n"));
  EXPECT_EQ(Row(0), (Texts{"Strata:", "North", "South", "East", "West"}));
  EXPECT_EQ(Row(1), (Texts{"Density:", "1.5", "2", "0", "4"}));
  EXPECT_EQ(Row(2), (Texts{"Size:", "5", "6", "0", "8"}));
  EXPECT_EQ(binder->EditActions()->LastMessage(), "Pasted 6 cells, skipped 2 that cannot be changed here.");
  EXPECT_EQ(Shown(1, 4), "4");
}

TEST_F(GridEditActionsTest, SemicolonsCommasAndBareLineFeedsAreCellAndRowBreaksToo) {
  PasteAt(1, 1, QStringLiteral("0,5;0,25\n7;8"));
  EXPECT_EQ(Row(1), (Texts{"Density:", "0,5", "0,25", "0", "0"}));
  EXPECT_EQ(Row(2), (Texts{"Size:", "7", "8", "0", "0"}));
  PasteAt(1, 1, QStringLiteral("9,10\n"));
  EXPECT_EQ(Row(1), (Texts{"Density:", "9", "10", "0", "0"}));
  EXPECT_EQ(Row(2), (Texts{"Size:", "7", "8", "0", "0"}));
}

TEST_F(GridEditActionsTest, ABlockLargerThanTheGridStopsAtItsEdgeAndAddsNoColumnOrRow) {
  PasteAt(2, 3, QStringLiteral("a\tb\tc\td\r\ne\tf\tg\th\r\n"));
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.Cols(), 5);
  EXPECT_EQ(Row(2), (Texts{"Size:", "0", "0", "0", "b"}));
  EXPECT_EQ(binder->EditActions()->LastMessage(), "Pasted 1 cell, skipped 1 that cannot be changed here.");
}

TEST_F(GridEditActionsTest, APasteFromAHeadingStartsBelowAndRightOfTheHeadings) {
  PasteAt(0, 0, QStringLiteral("x\ty\r\nz\tw"));
  EXPECT_EQ(Row(0), (Texts{"Strata:", "North", "South", "East", "West"}));
  EXPECT_EQ(Row(1), (Texts{"Density:", "x", "y", "0", "0"}));
  EXPECT_EQ(Row(2), (Texts{"Size:", "z", "w", "0", "0"}));
  EXPECT_EQ(binder->EditActions()->LastMessage(), "Pasted 4 cells.");
}

TEST_F(GridEditActionsTest, PastingABlockWhileACellEditorIsOpenPastesTheBlockNotOneCell) {
  view->setCurrentIndex(view->model()->index(1, 1));
  QTest::keyClick(view, Qt::Key_F2);
  auto* editor = view->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  ASSERT_TRUE(view->Editing());
  QApplication::clipboard()->setText(QStringLiteral("11\r\n12\r\n"));
  QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier);
  RunEventLoopTurn();
  EXPECT_FALSE(view->Editing());
  EXPECT_EQ(Row(1), (Texts{"Density:", "11", "0", "0", "0"}));
  EXPECT_EQ(Row(2), (Texts{"Size:", "12", "0", "0", "0"}));
}

TEST_F(GridEditActionsTest, OneValuePastedIntoAnOpenEditorIsTypedThere) {
  view->setCurrentIndex(view->model()->index(1, 2));
  QTest::keyClick(view, Qt::Key_F2);
  auto* editor = view->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  editor->selectAll();
  QApplication::clipboard()->setText(QStringLiteral("42"));
  QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(editor->text(), "42");
  QTest::keyClick(editor, Qt::Key_Return);
  RunEventLoopTurn();
  EXPECT_EQ(grid.TextMatrix(1, 2), "42");
}

TEST_F(GridEditActionsTest, CtrlCCopiesTheSelectedBlockAsTabsAndCrLf) {
  grid.SetTextMatrix(1, 1, "1");
  grid.SetTextMatrix(1, 2, "2");
  grid.SetTextMatrix(2, 1, "3");
  grid.SetTextMatrix(2, 2, "4");
  Select(0, 1, 2, 2);
  QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "North\tSouth\r\n1\t2\r\n3\t4\r\n");
}

TEST_F(GridEditActionsTest, DeleteClearsTheSelectedEditableCellsOnly) {
  PasteAt(1, 1, QStringLiteral("1\t2\t3\t4\r\n5\t6\t7\t8"));
  Select(0, 1, 2, 4);
  QTest::keyClick(view, Qt::Key_Delete);
  RunEventLoopTurn();
  EXPECT_EQ(Row(0), (Texts{"Strata:", "North", "South", "East", "West"}));
  EXPECT_EQ(Row(1), (Texts{"Density:", "", "", "0", ""}));
  EXPECT_EQ(Row(2), (Texts{"Size:", "", "", "0", ""}));
  EXPECT_EQ(binder->EditActions()->LastMessage(), "Cleared 6 cells, skipped 2 that cannot be changed here.");
}

TEST_F(GridEditActionsTest, CtrlRFillsRightAndCtrlDFillsDownFromTheFirstSelectedCell) {
  grid.SetTextMatrix(1, 1, "2.5");
  Select(1, 1, 1, 4);
  QTest::keyClick(view, Qt::Key_R, Qt::ControlModifier);
  RunEventLoopTurn();
  EXPECT_EQ(Row(1), (Texts{"Density:", "2.5", "2.5", "0", "2.5"}));
  EXPECT_EQ(binder->EditActions()->LastMessage(), "Filled 2 cells, skipped 1 that cannot be changed here.");

  Select(1, 1, 2, 2);
  QTest::keyClick(view, Qt::Key_D, Qt::ControlModifier);
  RunEventLoopTurn();
  EXPECT_EQ(Row(2), (Texts{"Size:", "2.5", "2.5", "0", "0"}));
}

TEST_F(GridEditActionsTest, ADisabledGridTakesNoPaste) {
  grid.SetEnabled(false);
  RunEventLoopTurn();
  Select(1, 1, 1, 1);
  QApplication::clipboard()->setText(QStringLiteral("1\t2"));
  binder->EditActions()->Paste();
  EXPECT_EQ(Row(1), (Texts{"Density:", "0", "0", "0", "0"}));
  EXPECT_EQ(binder->EditActions()->LastMessage(), "Pasted 0 cells, skipped 2 that cannot be changed here.");
}

TEST_F(GridEditActionsTest, RowsBeyondTheLastAreAddedOnlyThroughTheRowAdder) {
  int added = 0;
  binder->EditActions()->SetRowAdder([&] {
    if (added == 1) return false;
    ++added;
    grid.AddItem("");
    return true;
  });
  PasteAt(2, 1, QStringLiteral("1\r\n2\r\n3\r\n"));
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(grid.TextMatrix(2, 1), "1");
  EXPECT_EQ(grid.TextMatrix(3, 1), "2");
  EXPECT_EQ(binder->EditActions()->LastMessage(), "Pasted 2 cells.");
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "QtTestSupport.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/grid/GridCellColors.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

class GridBinderTest : public ::testing::Test {
 protected:
  GridBinderTest() : grid(2, 3, 1, 1) {
    grid.SetTextMatrix(0, 0, "Strata:");
    grid.SetTextMatrix(0, 1, "North");
    grid.SetTextMatrix(0, 2, "South");
    grid.SetTextMatrix(1, 0, "Density:");
    grid.SetTextMatrix(1, 1, "0");
    grid.SetTextMatrix(1, 2, "0");
    grid.SetEditable(true);
    form.resize(400, 200);
    view = new GridView(&form);
    view->resize(380, 150);
    binder = new GridBinder(grid, view);
    form.show();
  }
  QVariant Cell(int row, int col, int role = Qt::DisplayRole) {
    return view->model()->data(view->model()->index(row, col), role);
  }
  // Types into cell (row, col) as a person does: select it, type, press the key that ends the edit.
  void TypeIntoCell(int row, int col, const QString& text, Qt::Key end_key) {
    view->setCurrentIndex(view->model()->index(row, col));
    view->setFocus();
    QTest::keyClick(view, Qt::Key_F2);
    auto* editor =
        view->focusWidget() != view ? qobject_cast<QLineEdit*>(QApplication::focusWidget()) : nullptr;
    if (editor == nullptr) editor = view->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr) << "no editor opened";
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, end_key);
    RunEventLoopTurn();  // the delegate commits on the next turn
  }

  Grid grid;
  QWidget form;
  GridView* view;
  GridBinder* binder;
};

TEST_F(GridBinderTest, CellsShowTheGridsText) {
  EXPECT_EQ(view->model()->rowCount(), 2);
  EXPECT_EQ(view->model()->columnCount(), 3);
  EXPECT_EQ(Cell(0, 1).toString(), "North");
  EXPECT_EQ(Cell(1, 0).toString(), "Density:");
}

TEST_F(GridBinderTest, FixedCellsAreHeadingsAndDataCellsUseBase) {
  const QPalette palette = view->palette();
  const QColor heading = GridCellColors::For(GridCellColors::Kind::kHeading, palette).background;
  EXPECT_EQ(Cell(0, 1, Qt::BackgroundRole).value<QColor>(), heading);
  EXPECT_EQ(Cell(1, 0, Qt::BackgroundRole).value<QColor>(), heading);
  EXPECT_EQ(Cell(1, 1, Qt::BackgroundRole).value<QColor>(), palette.color(QPalette::Base));
  EXPECT_GE(GridCellColors::ContrastRatio(heading, palette.color(QPalette::Base)), 1.5);
}

TEST_F(GridBinderTest, CellBackColorUnderADarkPaletteComesFromThatPalette) {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(25, 25, 25));
  dark.setColor(QPalette::Button, QColor(53, 53, 53));
  dark.setColor(QPalette::Text, QColor(240, 240, 240));
  view->setPalette(dark);
  grid.SetCellBackColor(1, 2, 1, 2, Color::System(SystemColorRole::kButtonFace));
  RunEventLoopTurn();
  EXPECT_EQ(Cell(1, 1, Qt::BackgroundRole).value<QColor>(), QColor(25, 25, 25));
  EXPECT_EQ(Cell(1, 1, Qt::ForegroundRole).value<QColor>(), QColor(240, 240, 240));
  // The greyed cell is lighter than the dark field, as far as it takes to tell them apart.
  const QColor greyed = Cell(1, 2, Qt::BackgroundRole).value<QColor>();
  EXPECT_EQ(greyed, GridCellColors::For(GridCellColors::Kind::kDisabled, dark).background);
  EXPECT_GT(greyed.lightness(), 25);
  EXPECT_GE(GridCellColors::ContrastRatio(greyed, QColor(25, 25, 25)), 1.5);
}

TEST_F(GridBinderTest, AlignmentFollowsTheGrid) {
  grid.SetCellAlignment(1, 1, 1, 2, CellAlignment::kCenterCenter);
  RunEventLoopTurn();
  EXPECT_EQ(Cell(1, 1, Qt::TextAlignmentRole).toInt(), static_cast<int>(Qt::AlignCenter));
  // General alignment: words left.
  EXPECT_EQ(Cell(0, 1, Qt::TextAlignmentRole).toInt(), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter));
}

TEST_F(GridBinderTest, GrowingTheGridShowsNewColumns) {
  grid.SetCols(5);
  grid.SetTextMatrix(0, 4, "East");
  RunEventLoopTurn();
  EXPECT_EQ(view->model()->columnCount(), 5);
  EXPECT_EQ(Cell(0, 4).toString(), "East");
}

TEST_F(GridBinderTest, ColumnWidthsAreTwipsInPixels) {
  grid.SetColWidth(0, 1500);
  RunEventLoopTurn();
  EXPECT_EQ(view->columnWidth(0), 100);
}

TEST_F(GridBinderTest, EnterCommitsTheEditToTheModel) {
  TypeIntoCell(1, 1, "12.5", Qt::Key_Return);
  EXPECT_EQ(grid.TextMatrix(1, 1), "12.5");
  EXPECT_EQ(Cell(1, 1).toString(), "12.5");
}

TEST_F(GridBinderTest, EscapeCancelsTheEdit) {
  TypeIntoCell(1, 1, "99", Qt::Key_Escape);
  EXPECT_EQ(grid.TextMatrix(1, 1), "0");
  EXPECT_EQ(Cell(1, 1).toString(), "0");
}

TEST_F(GridBinderTest, LeavingTheEditorCommits) {
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  view->setCurrentIndex(view->model()->index(1, 2));
  view->setFocus();
  QTest::keyClick(view, Qt::Key_F2);
  auto* editor = view->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  editor->selectAll();
  QTest::keyClicks(editor, "3");
  auto* elsewhere = new QLineEdit(&form);
  elsewhere->show();
  elsewhere->setFocus();
  RunEventLoopTurn();
  EXPECT_EQ(grid.TextMatrix(1, 2), "3");
}

TEST_F(GridBinderTest, NoEditorOpensWhereTheBeforeEditHandlerCancels) {
  grid.SetBeforeEditHandler([](int, int col, bool& cancel) { cancel = col == 2; });
  view->setCurrentIndex(view->model()->index(1, 2));
  view->setFocus();
  QTest::keyClick(view, Qt::Key_F2);
  EXPECT_FALSE(view->Editing());
  EXPECT_EQ(view->findChild<QLineEdit*>(), nullptr);
}

TEST_F(GridBinderTest, NoEditorOpensOnAFixedCellOrANonEditableGrid) {
  view->setCurrentIndex(view->model()->index(0, 1));
  view->setFocus();
  QTest::keyClick(view, Qt::Key_F2);
  EXPECT_FALSE(view->Editing());
  grid.SetEditable(false);
  RunEventLoopTurn();
  view->setCurrentIndex(view->model()->index(1, 1));
  QTest::keyClick(view, Qt::Key_F2);
  EXPECT_FALSE(view->Editing());
}

TEST_F(GridBinderTest, RefusedCommitLeavesTheCellShowingTheModelsText) {
  // The edit was allowed when it began; by the time it ends the grid refuses it.
  view->setCurrentIndex(view->model()->index(1, 1));
  view->setFocus();
  QTest::keyClick(view, Qt::Key_F2);
  auto* editor = view->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  QTest::keyClicks(editor, "77");
  grid.SetEditable(false);
  QTest::keyClick(editor, Qt::Key_Return);
  RunEventLoopTurn();
  EXPECT_FALSE(view->Editing());
  EXPECT_EQ(grid.TextMatrix(1, 1), "0");
  EXPECT_EQ(Cell(1, 1).toString(), "0");
}

TEST_F(GridBinderTest, ModelRefusesEditThroughSetData) {
  grid.SetBeforeEditHandler([](int, int, bool& cancel) { cancel = true; });
  EXPECT_FALSE(view->model()->setData(view->model()->index(1, 1), "5", Qt::EditRole));
  EXPECT_EQ(Cell(1, 1).toString(), "0");
}

TEST_F(GridBinderTest, ClickingACellMovesTheGridsCursor) {
  const QRect cell = view->visualRect(view->model()->index(1, 2));
  QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
  EXPECT_EQ(grid.Row(), 1);
  EXPECT_EQ(grid.Col(), 2);
}

TEST_F(GridBinderTest, GridsCursorShowsAsTheCurrentCell) {
  grid.SetRow(1);
  grid.SetCol(2);
  RunEventLoopTurn();
  EXPECT_EQ(view->currentIndex(), view->model()->index(1, 2));
}

TEST_F(GridBinderTest, DisabledGridDisablesTheView) {
  grid.SetEnabled(false);
  RunEventLoopTurn();
  EXPECT_FALSE(view->isEnabled());
}

TEST_F(GridBinderTest, ThousandStrataInOneTurnRefreshTheGridOnce) {
  RunEventLoopTurn();
  const int before = binder->RefreshCount();
  grid.SetCols(1);
  for (int stratum = 1; stratum <= 1000; ++stratum) {
    grid.SetCols(stratum + 1);
    grid.SetTextMatrix(0, stratum, "Stratum " + std::to_string(stratum));
    grid.SetTextMatrix(1, stratum, "0");
  }
  RunEventLoopTurn();
  RunEventLoopTurn();
  EXPECT_EQ(binder->RefreshCount() - before, 1);
  EXPECT_EQ(view->model()->columnCount(), 1001);
  EXPECT_EQ(Cell(0, 1000).toString(), "Stratum 1000");
}

}  // namespace
}  // namespace zrsimprp

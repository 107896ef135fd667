#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "zrsimprp/host/ClipboardBlock.h"
#include "zrsimprp/host/GridBlockEdit.h"

namespace zrsimprp {
namespace {

using Rows = ClipboardBlock::Rows;

TEST(ClipboardBlock, TabsSplitCellsAndCrLfSplitsRowsWithoutATrailingEmptyRow) {
  EXPECT_EQ(ClipboardBlock::Parse("1\t2\r\n3\t4\r\n"), (Rows{{"1", "2"}, {"3", "4"}}));
  EXPECT_EQ(ClipboardBlock::Parse("1\t2\n3\t4"), (Rows{{"1", "2"}, {"3", "4"}}));
  EXPECT_EQ(ClipboardBlock::Parse("1\t\t3\r"), (Rows{{"1", "", "3"}}));
}

TEST(ClipboardBlock, WithoutTabsSemicolonsThenCommasSplitCells) {
  EXPECT_EQ(ClipboardBlock::Parse("0,5;1,25\n"), (Rows{{"0,5", "1,25"}}));
  EXPECT_EQ(ClipboardBlock::Parse("0.5,1.25\n2,3"), (Rows{{"0.5", "1.25"}, {"2", "3"}}));
  EXPECT_EQ(ClipboardBlock::Parse("7"), (Rows{{"7"}}));
  EXPECT_TRUE(ClipboardBlock::Parse("").empty());
}

TEST(ClipboardBlock, AnEmptyLineInsideTheBlockIsARowOfOneEmptyCell) {
  EXPECT_EQ(ClipboardBlock::Parse("1\r\n\r\n2\r\n"), (Rows{{"1"}, {""}, {"2"}}));
}

TEST(ClipboardBlock, FormatJoinsWithTabsAndEndsEveryRowWithCrLf) {
  EXPECT_EQ(ClipboardBlock::Format(Rows{{"a", "b"}, {"", "d"}}), "a\tb\r\n\td\r\n");
  EXPECT_EQ(ClipboardBlock::Parse(ClipboardBlock::Format(Rows{{"a", "b"}, {"", "d"}})),
            (Rows{{"a", "b"}, {"", "d"}}));
}

class GridBlockEditTest : public ::testing::Test {
 protected:
  GridBlockEditTest() : grid(3, 4, 1, 1) {
    grid.SetEditable(true);
    grid.SetTextMatrix(0, 1, "North");
    grid.SetBeforeEditHandler([this](int row, int col, bool& cancel) {
      ++asked;
      if (row == 2 && col == 2) cancel = true;
    });
  }
  Grid grid;
  int asked = 0;
};

TEST_F(GridBlockEditTest, PasteGoesThroughTheBeforeEditHandlerForEveryCell) {
  const BlockEditCount count = GridBlockEdit::Paste(grid, 1, 1, Rows{{"1", "2", "3"}, {"4", "5", "6"}});
  EXPECT_EQ(count.applied, 5);
  EXPECT_EQ(count.skipped, 1);
  EXPECT_EQ(asked, 6);
  EXPECT_EQ(grid.TextMatrix(1, 3), "3");
  EXPECT_EQ(grid.TextMatrix(2, 2), "");
  EXPECT_EQ(grid.TextMatrix(2, 3), "6");
}

TEST_F(GridBlockEditTest, PasteStopsAtTheLastColumnAndTheLastRowWithoutARowAdder) {
  const BlockEditCount count = GridBlockEdit::Paste(grid, 2, 3, Rows{{"1", "2"}, {"3", "4"}});
  EXPECT_EQ(count.applied, 1);
  EXPECT_EQ(count.skipped, 0);
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.Cols(), 4);
}

TEST_F(GridBlockEditTest, ARowAdderThatAddsNothingEndsThePaste) {
  int calls = 0;
  const BlockEditCount count = GridBlockEdit::Paste(grid, 2, 1, Rows{{"1"}, {"2"}}, [&] {
    ++calls;
    return true;
  });
  EXPECT_EQ(count.applied, 1);
  EXPECT_EQ(calls, 1);
}

TEST_F(GridBlockEditTest, ClearLeavesHeadingsAndFillCopiesTheFirstCell) {
  grid.SetTextMatrix(1, 1, "9");
  BlockEditCount count = GridBlockEdit::FillRight(grid, CellRange{1, 1, 1, 3});
  EXPECT_EQ(count.applied, 2);
  EXPECT_EQ(grid.TextMatrix(1, 3), "9");
  count = GridBlockEdit::FillDown(grid, CellRange{1, 1, 2, 3});
  EXPECT_EQ(count.applied, 2);
  EXPECT_EQ(count.skipped, 1);
  EXPECT_EQ(grid.TextMatrix(2, 1), "9");
  count = GridBlockEdit::Clear(grid, CellRange{0, 0, 2, 3});
  EXPECT_EQ(count.applied, 5);
  EXPECT_EQ(count.skipped, 1);
  EXPECT_EQ(grid.TextMatrix(0, 1), "North");
  EXPECT_EQ(grid.TextMatrix(1, 1), "");
  EXPECT_EQ(grid.TextMatrix(2, 2), "");
  EXPECT_EQ(GridBlockEdit::Copy(grid, CellRange{0, 1, 1, 2}), (Rows{{"North", ""}, {"", ""}}));
}

TEST(GridState, SavedCellsGoBackExactlyAndTheCursorStaysInside) {
  Grid grid(2, 3, 1, 1);
  grid.SetTextMatrix(1, 1, "a");
  grid.SetCellBackColor(1, 2, 1, 2, grid.BackColorFixed());
  const auto saved = grid.SaveState();
  grid.SetCols(6);
  grid.SetTextMatrix(1, 1, "b");
  grid.SetCol(5);
  EXPECT_FALSE(saved->Equals(*grid.SaveState()));
  grid.RestoreState(*saved);
  EXPECT_EQ(grid.Cols(), 3);
  EXPECT_EQ(grid.TextMatrix(1, 1), "a");
  EXPECT_EQ(grid.CellBackColor(1, 2), grid.BackColorFixed());
  EXPECT_EQ(grid.Col(), 2);
  EXPECT_TRUE(saved->Equals(*grid.SaveState()));
}

}  // namespace
}  // namespace zrsimprp

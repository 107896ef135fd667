#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <cstdlib>
#include <string>
#include <vector>

#include "QtTestSupport.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/grid/GridCellColors.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

// The width Qt's own delegate asks for to show every text of the column whole.
int TextNeeds(QAbstractItemView* view, int col) { return view->sizeHintForColumn(col); }

// The style may shade a selection a little; the highlight is still recognisably the palette's.
bool Near(const QColor& painted, const QColor& expected) {
  return std::abs(painted.red() - expected.red()) <= 12 &&
         std::abs(painted.green() - expected.green()) <= 12 &&
         std::abs(painted.blue() - expected.blue()) <= 12;
}

// A grid laid out in a form the way the pages lay theirs out: a column of rows with room to spare.
class GridViewLookTest : public ::testing::Test {
 protected:
  GridViewLookTest() : grid(2, 3, 1, 1) {
    grid.SetTextMatrix(0, 0, "Strata:");
    grid.SetTextMatrix(0, 1, "North");
    grid.SetTextMatrix(0, 2, "South");
    grid.SetTextMatrix(1, 0, "Density:");
    grid.SetTextMatrix(1, 1, "0");
    grid.SetTextMatrix(1, 2, "0");
    grid.SetEditable(true);
    form.resize(600, 500);
    auto* layout = new QVBoxLayout(&form);
    view = new GridView(&form);
    binder = new GridBinder(grid, view);
    other = new QLineEdit(&form);
    layout->addWidget(view);
    layout->addWidget(other);
    layout->addStretch(1);
    form.show();
    RunEventLoopTurn();
  }

  void Activate() {
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  }
  // The colour drawn just inside the top left corner of a cell, clear of its text and grid lines.
  QColor PaintedBackground(int row, int col) {
    RunEventLoopTurn();
    const QImage image = view->viewport()->grab().toImage();
    const QRect cell = view->visualRect(view->model()->index(row, col));
    return image.pixelColor(cell.topLeft() + QPoint(2, 2));
  }
  QColor Role(QPalette::ColorRole role) const { return view->palette().color(QPalette::Active, role); }
  QColor Kind(GridCellColors::Kind kind) const {
    return GridCellColors::For(kind, view->palette()).background;
  }
  int RowHeight() const { return view->rowHeight(0); }
  void Relayout() {
    RunEventLoopTurn();
    form.layout()->activate();
    RunEventLoopTurn();
    form.layout()->activate();
  }

  Grid grid;
  QWidget form;
  GridView* view;
  GridBinder* binder;
  QLineEdit* other;
};

TEST_F(GridViewLookTest, CursorCellShowsItsOwnBackgroundWhileTheGridHasNoFocus) {
  grid.SetRow(1);
  grid.SetCol(1);
  Activate();
  other->setFocus();
  ASSERT_FALSE(view->hasFocus());
  EXPECT_EQ(PaintedBackground(1, 1), Role(QPalette::Base));
}

TEST_F(GridViewLookTest, CursorCellIsHighlightedWhileTheGridHasFocus) {
  grid.SetRow(1);
  grid.SetCol(1);
  Activate();
  view->setFocus();
  ASSERT_TRUE(view->hasFocus());
  EXPECT_TRUE(Near(PaintedBackground(1, 1), Role(QPalette::Highlight)));
}

TEST_F(GridViewLookTest, FixedCursorCellIsNeverPaintedSelected) {
  grid.SetRow(0);
  grid.SetCol(1);
  RunEventLoopTurn();
  Activate();
  view->setFocus();
  ASSERT_TRUE(view->hasFocus());
  ASSERT_EQ(view->currentIndex(), view->model()->index(0, 1));
  // Only a focus frame, drawn after keyboard navigation, may mark it.
  EXPECT_FALSE(Near(PaintedBackground(0, 1), Role(QPalette::Highlight)));
  other->setFocus();
  EXPECT_EQ(PaintedBackground(0, 1), Kind(GridCellColors::Kind::kHeading));
}

TEST_F(GridViewLookTest, FocusLeavingTheGridTakesTheHighlightAway) {
  grid.SetRow(1);
  grid.SetCol(2);
  Activate();
  view->setFocus();
  EXPECT_TRUE(Near(PaintedBackground(1, 2), Role(QPalette::Highlight)));
  other->setFocus();
  EXPECT_EQ(PaintedBackground(1, 2), Role(QPalette::Base));
}

TEST_F(GridViewLookTest, GreyedCursorCellStaysGreyWithoutFocus) {
  grid.SetCellBackColor(1, 2, 1, 2, Color::System(SystemColorRole::kButtonFace));
  grid.SetRow(1);
  grid.SetCol(2);
  Activate();
  other->setFocus();
  EXPECT_EQ(PaintedBackground(1, 2), Kind(GridCellColors::Kind::kDisabled));
  EXPECT_NE(Kind(GridCellColors::Kind::kDisabled), Role(QPalette::Base));
}

TEST_F(GridViewLookTest, ModelWidthIsAMinimumForACaptionThatNeedsMore) {
  grid.SetTextMatrix(1, 0, "Parameter Value");
  grid.SetColWidth(0, 1000);
  RunEventLoopTurn();
  EXPECT_GE(view->columnWidth(0), TextNeeds(view, 0));
  EXPECT_GT(view->columnWidth(0), 1000 / GridBinder::kTwipsPerPixel);
}

TEST_F(GridViewLookTest, ModelWidthWiderThanTheTextIsKept) {
  grid.SetColWidth(1, 3000);
  RunEventLoopTurn();
  EXPECT_EQ(view->columnWidth(1), 3000 / GridBinder::kTwipsPerPixel);
}

TEST_F(GridViewLookTest, DataColumnWidensForALongHeading) {
  grid.SetTextMatrix(0, 1, "Study Area of the whole region");
  RunEventLoopTurn();
  EXPECT_GE(view->columnWidth(1), TextNeeds(view, 1));
  // The other data column keeps its ordinary width.
  EXPECT_EQ(view->columnWidth(2), view->horizontalHeader()->defaultSectionSize());
}

TEST_F(GridViewLookTest, ColumnsFollowTheirTextsWhenTheyChangeAgain) {
  grid.SetTextMatrix(1, 0, "A much longer caption than before");
  RunEventLoopTurn();
  const int wide = view->columnWidth(0);
  EXPECT_GE(wide, TextNeeds(view, 0));
  grid.SetTextMatrix(1, 0, "Short");
  RunEventLoopTurn();
  EXPECT_LT(view->columnWidth(0), wide);
  EXPECT_GE(view->columnWidth(0), TextNeeds(view, 0));
}

TEST_F(GridViewLookTest, ColumnsOfAThousandStrataAreMeasuredOnceAndThenOnlyWhereTextChanged) {
  grid.SetCols(1001);
  for (int stratum = 1; stratum <= 1000; ++stratum) {
    grid.SetTextMatrix(0, stratum, "Stratum number " + std::to_string(stratum));
    grid.SetTextMatrix(1, stratum, "0");
  }
  RunEventLoopTurn();
  // The first column kept its texts.
  EXPECT_EQ(binder->ColumnsMeasured(), 1000);
  EXPECT_GE(view->columnWidth(1000), TextNeeds(view, 1000));
  grid.SetTextMatrix(1, 500, "123456789012345678901234567890");
  RunEventLoopTurn();
  EXPECT_EQ(binder->ColumnsMeasured(), 1);
  // A repaint with no text changed measures nothing.
  grid.SetCellBackColor(1, 3, 1, 3, Color::System(SystemColorRole::kButtonFace));
  RunEventLoopTurn();
  EXPECT_EQ(binder->ColumnsMeasured(), 0);
  EXPECT_GE(view->columnWidth(500), TextNeeds(view, 500));
}

TEST_F(GridViewLookTest, ShortValuesThatFitTheirColumnAreNotShaped) {
  grid.SetCols(1001);
  for (int stratum = 1; stratum <= 1000; ++stratum) {
    grid.SetTextMatrix(0, stratum, "S" + std::to_string(stratum));
    grid.SetTextMatrix(1, stratum, std::to_string(stratum) + ".5");
  }
  const int shaped_before = binder->TextsShaped();
  RunEventLoopTurn();
  EXPECT_EQ(binder->TextsShaped(), shaped_before);
  EXPECT_EQ(view->columnWidth(1000), view->horizontalHeader()->defaultSectionSize());
  // A value too long for the column is shaped, and widens it.
  grid.SetTextMatrix(1, 700, "123456789012345678901234567890");
  RunEventLoopTurn();
  EXPECT_EQ(binder->TextsShaped(), shaped_before + 1);
  EXPECT_GE(view->columnWidth(700), TextNeeds(view, 700));
}

TEST_F(GridViewLookTest, TheUnshapedBoundIsNeverNarrowerThanTheShapedWidth) {
  std::vector<std::string> texts = {"AV", "To", "WAVE", "1111", "Wy.", "ff", "fi", "LT", "7.", "-0.25"};
  std::string every;
  for (char c = 0x20; c <= 0x7e; ++c) {
    every += c;
    texts.push_back(std::string(3, c));
  }
  texts.push_back(every);
  for (const QFont& font : {form.font(), QFont(QStringLiteral("DejaVu Serif"), 13)}) {
    view->setFont(font);
    for (const std::string& text : texts) {
      EXPECT_GE(view->CellWidthBound(text), view->CellWidthFor(text)) << text;
    }
  }
  EXPECT_EQ(view->CellWidthBound("Zürich"), -1);
  EXPECT_EQ(view->CellWidthBound("a\tb"), -1);
}

TEST_F(GridViewLookTest, GrowingTheGridKeepsTheMeasuredWidths) {
  grid.SetTextMatrix(0, 1, "A long stratum name");
  RunEventLoopTurn();
  const int wide = view->columnWidth(1);
  grid.AddItem("Another\t1\t2");
  RunEventLoopTurn();
  EXPECT_EQ(view->columnWidth(1), wide);
}

TEST_F(GridViewLookTest, SevenRowsShowWithoutScrolling) {
  grid.SetRows(7);
  for (int row = 1; row < 7; ++row) grid.SetTextMatrix(row, 0, "row " + std::to_string(row));
  Relayout();
  EXPECT_EQ(view->verticalScrollBar()->maximum(), 0);
  EXPECT_GE(view->viewport()->height(), 7 * RowHeight());
}

TEST_F(GridViewLookTest, TwoRowsLeaveNoEmptyBandBelowThem) {
  Relayout();
  EXPECT_FALSE(view->horizontalScrollBar()->isVisible());
  EXPECT_EQ(view->viewport()->height(), 2 * RowHeight());
}

TEST_F(GridViewLookTest, MoreThanTwelveRowsScroll) {
  grid.SetRows(30);
  Relayout();
  EXPECT_EQ(view->viewport()->height(), 12 * RowHeight());
  EXPECT_GT(view->verticalScrollBar()->maximum(), 0);
}

TEST_F(GridViewLookTest, HorizontalScrollBarIsAddedToTheHeight) {
  grid.SetCols(40);
  Relayout();
  ASSERT_TRUE(view->horizontalScrollBar()->isVisible());
  EXPECT_EQ(view->verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(view->viewport()->height(), 2 * RowHeight());
}

TEST_F(GridViewLookTest, GridIsNoWiderThanItsColumns) {
  Relayout();
  EXPECT_LE(view->viewport()->width(), view->horizontalHeader()->length());
  EXPECT_FALSE(view->horizontalScrollBar()->isVisible());
}

TEST_F(GridViewLookTest, DarkPaletteGreysFixedAndGreyedCellsAndKeepsTextReadable) {
  QPalette dark(QColor(53, 53, 53), QColor(53, 53, 53));
  dark.setColor(QPalette::Base, QColor(35, 35, 35));
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::ButtonText, Qt::white);
  dark.setColor(QPalette::WindowText, Qt::white);
  form.setPalette(dark);
  grid.SetCellBackColor(1, 2, 1, 2, Color::System(SystemColorRole::kButtonFace));
  grid.SetRow(1);
  grid.SetCol(2);
  Activate();
  other->setFocus();
  const QColor heading = GridCellColors::For(GridCellColors::Kind::kHeading, dark).background;
  const QColor greyed = GridCellColors::For(GridCellColors::Kind::kDisabled, dark).background;
  EXPECT_EQ(PaintedBackground(0, 1), heading);
  EXPECT_EQ(PaintedBackground(1, 0), heading);
  EXPECT_EQ(PaintedBackground(1, 2), greyed);
  EXPECT_EQ(PaintedBackground(1, 1), QColor(35, 35, 35));
  // Dark stays dark: the cells that are not fields are lighter greys, not light ones.
  EXPECT_LT(heading.lightness(), 128);
  // The value "0" is drawn light on the dark cell.
  const QImage image = view->viewport()->grab().toImage();
  const QRect cell = view->visualRect(view->model()->index(1, 1));
  int light_pixels = 0;
  for (int y = cell.top(); y < cell.bottom(); ++y) {
    for (int x = cell.left(); x < cell.right(); ++x) light_pixels += image.pixelColor(x, y).lightness() > 150;
  }
  EXPECT_GT(light_pixels, 5);
}

TEST_F(GridViewLookTest, DisabledGridGreysItsText) {
  grid.SetEnabled(false);
  RunEventLoopTurn();
  const QVariant text = view->model()->data(view->model()->index(1, 1), Qt::ForegroundRole);
  const QVariant back = view->model()->data(view->model()->index(1, 1), Qt::BackgroundRole);
  EXPECT_EQ(text.value<QColor>(), GridCellColors::For(GridCellColors::Kind::kDisabled, view->palette()).text);
  EXPECT_NE(text.value<QColor>(), view->palette().color(QPalette::Active, QPalette::Text));
  // Dimmed, yet still readable.
  EXPECT_GE(GridCellColors::ContrastRatio(text.value<QColor>(), back.value<QColor>()), 4.5);
}

TEST_F(GridViewLookTest, LargerFontWidensTheColumnsAndRows) {
  grid.SetTextMatrix(1, 0, "Parameter Value");
  Relayout();
  const int narrow = view->columnWidth(0);
  QFont large = view->font();
  large.setPointSizeF(large.pointSizeF() * 2);
  view->setFont(large);
  Relayout();
  EXPECT_GT(view->columnWidth(0), narrow);
  EXPECT_GE(view->columnWidth(0), TextNeeds(view, 0));
  EXPECT_GE(RowHeight(), QFontMetrics(large).height());
  EXPECT_EQ(view->viewport()->height(), 2 * RowHeight());
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "EditorFixture.h"
#include "zrsim-editor/EditMenu.h"
#include "zrsim-editor/StatusLine.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/grid/GridView.h"

namespace {

using StatusLineTest = EditorFixture;

TEST_F(StatusLineTest, ThePageSaysWhatAPasteDidUntilTheNextStep) {
  OpenWindow();
  window_->resize(1000, 700);
  window_->show();
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  EXPECT_FALSE(window_->Status().isVisible());
  window_->Properties().ShowOuterTab(1);
  QApplication::processEvents();
  auto* grid = window_->findChild<zrsimprp::GridView*>(QStringLiteral("flxConstantDensity"));
  ASSERT_NE(grid, nullptr);
  grid->setFocus();
  grid->setCurrentIndex(grid->model()->index(1, 1));
  QApplication::clipboard()->setText(QStringLiteral("0.5\t1\r\n"));
  QTest::keyClick(grid, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(window_->Properties().Control().pagDensity.flxConstantDensity.TextMatrix(1, 1), "0.5");
  EXPECT_EQ(window_->Status().text(), "Pasted 2 cells.");
  EXPECT_TRUE(window_->Status().isVisible());

  window_->Edit()->UndoAction()->trigger();
  EXPECT_EQ(window_->Status().text(), "");
  EXPECT_FALSE(window_->Status().isVisible());
}

TEST_F(StatusLineTest, AMessageGoesAwayAfterAWhile) {
  zrsim_editor::StatusLine line;
  line.show();
  line.Show(QStringLiteral("Filled 3 cells."));
  EXPECT_TRUE(line.isVisible());
  EXPECT_EQ(line.text(), "Filled 3 cells.");
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return line.text().isEmpty(); }, zrsim_editor::StatusLine::kShownMs + 2000));
  EXPECT_FALSE(line.isVisible());
}

}  // namespace

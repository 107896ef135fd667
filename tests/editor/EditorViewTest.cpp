#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>
#include <QTextBrowser>

#include "EditorFixture.h"
#include "zrsim-editor/HelpBrowser.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/DarkPalette.h"
#include "zrsimprp/qt/InputToolTips.h"
#include "zrsimprp/qt/grid/GridCellColors.h"
#include "zrsimprp/qt/grid/GridTableModel.h"

namespace {

using zrsim_editor::EditorWindow;
using zrsim_editor::HelpBrowser;
using zrsimprp::GridCellColors;

class EditorViewTest : public EditorFixture {
 protected:
  void ShowActive() {
    window_->resize(window_->DefaultSize());
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  zrsimprp::SIMPropertiesWidget& Properties() { return window_->Properties(); }
  void PressOnFocus(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : window_.get();
    QTest::keyClick(target, key, modifiers);
    Properties().RefreshNow();
  }
  // The page shown now, inside its scroll area.
  QScrollArea* ShownArea() {
    auto* stack = Properties().findChild<QStackedWidget*>();
    return qobject_cast<QScrollArea*>(stack->currentWidget());
  }
};

// --- A refused page shows itself -----------------------------------------------------------------

TEST_F(EditorViewTest, TabBarStaysOnTheRefusingPageWhileItsMessageIsShown) {
  OpenWindow();
  ShowActive();
  TypeReps("0");
  std::vector<int> bar_during_message;
  window_->SetMessageSink([&](const std::string& text, const std::string&) {
    shown_.push_back(Shown{text, ""});
    bar_during_message.push_back(Properties().OuterTabBar()->currentIndex());
  });
  QTabBar* bar = Properties().OuterTabBar();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(1).center());
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].text, "The number of repetitions must be greater than 0.");
  EXPECT_EQ(bar_during_message, std::vector<int>{0});
  EXPECT_EQ(bar->currentIndex(), 0);
  EXPECT_EQ(Properties().CurrentOuterTab(), 0);
}

TEST_F(EditorViewTest, TheRefusedFieldIsFramedUntilItsValueChanges) {
  OpenWindow();
  ShowActive();
  TypeReps("0");
  QTabBar* bar = Properties().OuterTabBar();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(1).center());
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(Properties().MarkedField(), RepsEdit());
  QWidget* frame = nullptr;
  for (QWidget* widget : Properties().findChildren<QWidget*>()) {
    if (widget->accessibleName() == QStringLiteral("Invalid value")) frame = widget;
  }
  ASSERT_NE(frame, nullptr);
  EXPECT_TRUE(frame->isVisible());
  EXPECT_TRUE(frame->geometry().contains(RepsEdit()->geometry()));
  QTest::keyClicks(RepsEdit(), "5");
  Properties().RefreshNow();
  EXPECT_EQ(Properties().MarkedField(), nullptr);
}

TEST_F(EditorViewTest, TheRefusedGridCellIsFramedWithoutBecomingCurrent) {
  OpenWindow();
  ShowActive();
  Properties().ShowOuterTab(1);
  zrsimprp::CPagDensity& density = Properties().Control().pagDensity;
  density.flxHotspots.SetTextMatrix(2, 1, "");
  const int chosen_row = density.flxHotspots.Row();
  Properties().RefreshNow();
  QTabBar* bar = Properties().OuterTabBar();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(0).center());
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(
      shown_[0].text,
      "There is a missing value in row 2 of the Centre Y column in the hotspots table. Please complete this "
      "information.");
  EXPECT_EQ(bar->currentIndex(), 1);
  auto* grid = qobject_cast<QAbstractItemView*>(Properties().MarkedField());
  ASSERT_NE(grid, nullptr);
  EXPECT_EQ(grid->accessibleName(), QStringLiteral("Hotspots"));
  EXPECT_EQ(Properties().MarkedCell().row(), 2);
  EXPECT_EQ(Properties().MarkedCell().column(), 1);
  // The frame is the view's alone: the grid's cursor stays where the person left it.
  EXPECT_EQ(density.flxHotspots.Row(), chosen_row);
  EXPECT_EQ(grid->currentIndex().row(), chosen_row);
  // Typing the missing value takes the mark away.
  density.flxHotspots.SetTextMatrix(2, 1, "450");
  Properties().RefreshNow();
  EXPECT_EQ(Properties().MarkedField(), nullptr);
}

TEST_F(EditorViewTest, RemovingAHotspotAfterARefusalRemovesTheRowThePersonChose) {
  OpenWindow();
  ShowActive();
  Properties().ShowOuterTab(1);
  zrsimprp::CPagDensity& density = Properties().Control().pagDensity;
  ASSERT_EQ(density.flxHotspots.Rows(), 3);
  const std::string first_x = density.flxHotspots.TextMatrix(1, 0);
  const std::string second_x = density.flxHotspots.TextMatrix(2, 0);
  QAbstractItemView* grid = nullptr;
  for (auto* view : Properties().findChildren<QAbstractItemView*>()) {
    if (view->accessibleName() == QStringLiteral("Hotspots")) grid = view;
  }
  ASSERT_NE(grid, nullptr);
  ShownArea()->ensureWidgetVisible(grid);

  // The person chooses the first hotspot.
  const QModelIndex chosen = grid->model()->index(1, 0);
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, grid->visualRect(chosen).center());
  Properties().RefreshNow();
  ASSERT_EQ(density.flxHotspots.Row(), 1);

  // The second hotspot's sigma is refused when the person leaves the tab.
  density.flxHotspots.SetTextMatrix(2, 2, "0");
  Properties().RefreshNow();
  std::vector<int> rows_seen;
  const int subscription =
      density.flxHotspots.Subscribe([&] { rows_seen.push_back(density.flxHotspots.Row()); });
  QTabBar* bar = Properties().OuterTabBar();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(0).center());
  Properties().RefreshNow();
  density.flxHotspots.Unsubscribe(subscription);
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].text,
            "The value of sigma in row 2 of the hotspots table must be greater than zero. Please correct "
            "this information.");
  EXPECT_EQ(Properties().CurrentOuterTab(), 1);
  EXPECT_EQ(Properties().MarkedCell().row(), 2);
  EXPECT_EQ(Properties().MarkedCell().column(), 2);
  // Marking the cell never moved the control's cursor.
  EXPECT_EQ(density.flxHotspots.Row(), 1);
  for (const int row : rows_seen) EXPECT_EQ(row, 1);

  // "-" removes the row the person chose, not the refused one.
  QPushButton* remove = nullptr;
  for (auto* button : Properties().findChildren<QPushButton*>()) {
    if (button->accessibleName() == QStringLiteral("Remove hotspot")) remove = button;
  }
  ASSERT_NE(remove, nullptr);
  ASSERT_TRUE(remove->isEnabled());
  ShownArea()->ensureWidgetVisible(remove);
  QTest::mouseClick(remove, Qt::LeftButton);
  Properties().RefreshNow();
  ASSERT_EQ(density.flxHotspots.Rows(), 2);
  EXPECT_EQ(density.flxHotspots.TextMatrix(1, 0), second_x);
  EXPECT_NE(density.flxHotspots.TextMatrix(1, 0), first_x);
  EXPECT_EQ(density.flxHotspots.TextMatrix(1, 2), "0");
}

TEST_F(EditorViewTest, PagesNameTheControlAndCellTheirCheckRefused) {
  OpenWindow();
  zrsimprp::SIMProperties& control = Properties().Control();
  std::string message;
  control.pagPopulation.flxN.SetTextMatrix(1, 2, "");
  EXPECT_FALSE(control.pagPopulation.IsValid(message));
  EXPECT_EQ(control.pagPopulation.Invalid().control, &control.pagPopulation.flxN);
  EXPECT_EQ(control.pagPopulation.Invalid().row, 1);
  EXPECT_EQ(control.pagPopulation.Invalid().col, 2);
  control.pagPopulation.flxN.SetTextMatrix(1, 2, "10");
  EXPECT_TRUE(control.pagPopulation.IsValid(message));
  EXPECT_EQ(control.pagPopulation.Invalid().control, nullptr);

  control.pagCovariates.txtCategoricalCov.SetText("body size");
  message.clear();
  EXPECT_FALSE(control.pagCovariates.IsValid(message));
  EXPECT_EQ(
      message,
      "Spaces are not allowed in covariate or covariate value names.  Please change the values you have "
      "provided.");
  EXPECT_EQ(control.pagCovariates.Invalid().control, &control.pagCovariates.txtCategoricalCov);

  control.pagDetectability.flxDetect.SetTextMatrix(1, 1, "wide");
  message.clear();
  EXPECT_FALSE(control.pagDetectability.IsValid(message));
  EXPECT_EQ(control.pagDetectability.Invalid().control, &control.pagDetectability.flxDetect);
  EXPECT_EQ(control.pagDetectability.Invalid().row, 1);
  EXPECT_EQ(control.pagDetectability.Invalid().col, 1);
}

TEST_F(EditorViewTest, InnerTabBarStaysOnTheRefusingPageWhileItsMessageIsShown) {
  OpenWindow();
  ShowActive();
  Properties().ShowOuterTab(2);
  Properties().ShowInnerTab(1);
  Properties().Control().pagPopulation.flxN.SetTextMatrix(1, 1, "");
  Properties().RefreshNow();
  std::vector<int> bar_during_message;
  window_->SetMessageSink([&](const std::string& text, const std::string&) {
    shown_.push_back(Shown{text, ""});
    bar_during_message.push_back(Properties().InnerTabBar()->currentIndex());
  });
  QTabBar* inner = Properties().InnerTabBar();
  QTest::mouseClick(inner, Qt::LeftButton, Qt::NoModifier, inner->tabRect(1).center());
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(
      shown_[0].text,
      "There is a blank cell in the column of the population size table for strata 'North'.  Please enter a "
      "value in that cell.");
  EXPECT_EQ(bar_during_message, std::vector<int>{0});
  EXPECT_EQ(inner->currentIndex(), 0);
  EXPECT_EQ(Properties().CurrentInnerTab(), 1);
  EXPECT_EQ(Properties().MarkedCell().row(), 1);
  EXPECT_EQ(Properties().MarkedCell().column(), 1);
}

TEST_F(EditorViewTest, AnAcceptedClickStillMovesTheTabBar) {
  OpenWindow();
  ShowActive();
  QTabBar* bar = Properties().OuterTabBar();
  QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(4).center());
  EXPECT_EQ(bar->currentIndex(), 4);
  EXPECT_EQ(Properties().CurrentOuterTab(), 4);
  EXPECT_TRUE(shown_.empty());
}

// --- Keyboard ------------------------------------------------------------------------------------

TEST_F(EditorViewTest, CtrlTabAndCtrlPageDownWalkTheTabsInnerTabFirstOnPopulation) {
  OpenWindow();
  ShowActive();
  Properties().ShowOuterTab(0);
  RepsEdit()->setFocus();
  PressOnFocus(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Properties().CurrentOuterTab(), 1);
  PressOnFocus(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Properties().CurrentOuterTab(), 2);
  EXPECT_EQ(Properties().CurrentInnerTab(), 1);
  PressOnFocus(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Properties().CurrentOuterTab(), 2);
  EXPECT_EQ(Properties().CurrentInnerTab(), 2);
  PressOnFocus(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Properties().CurrentOuterTab(), 3);
  PressOnFocus(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Properties().CurrentOuterTab(), 2);
  EXPECT_EQ(Properties().CurrentInnerTab(), 2);
  PressOnFocus(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(Properties().CurrentInnerTab(), 1);
  PressOnFocus(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(Properties().CurrentOuterTab(), 1);
  EXPECT_TRUE(shown_.empty());
}

TEST_F(EditorViewTest, CtrlTabGoesThroughTheSameRefusalAsAClick) {
  OpenWindow();
  ShowActive();
  TypeReps("0");
  RepsEdit()->setFocus();
  PressOnFocus(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Properties().CurrentOuterTab(), 0);
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].title, "Error in options on Simulation Page");
}

TEST_F(EditorViewTest, CtrlShiftTabWrapsFromTheFirstTabToTheLast) {
  OpenWindow();
  ShowActive();
  Properties().ShowOuterTab(0);
  Properties().OuterTabBar()->setFocus();
  PressOnFocus(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Properties().CurrentOuterTab(), 5);
}

TEST_F(EditorViewTest, EveryTabPressLandsOnAVisibleControlThatShowsFocus) {
  OpenWindow();
  ShowActive();
  for (int tab = 0; tab < 6; ++tab) {
    Properties().ShowOuterTab(tab);
    ASSERT_EQ(Properties().CurrentOuterTab(), tab);
    Properties().OuterTabBar()->setFocus();
    QWidget* start = QApplication::focusWidget();
    for (int press = 0; press < 60; ++press) {
      PressOnFocus(Qt::Key_Tab);
      QWidget* focused = QApplication::focusWidget();
      ASSERT_NE(focused, nullptr) << "tab " << tab << ", press " << press;
      EXPECT_TRUE(focused->isVisible()) << focused->metaObject()->className() << " "
                                        << focused->accessibleName().toStdString() << " on tab " << tab;
      EXPECT_TRUE(focused->isEnabled()) << focused->accessibleName().toStdString();
      EXPECT_GT(focused->width(), 0);
      EXPECT_NE(focused->focusPolicy() & Qt::TabFocus, 0) << focused->accessibleName().toStdString();
      // A container (a scroll area round a page) draws no focus: only fields, lists, grids, buttons
      // and tab bars may hold it.
      const bool shows_focus = qobject_cast<QAbstractItemView*>(focused) != nullptr ||
                               qobject_cast<QAbstractScrollArea*>(focused) == nullptr;
      EXPECT_TRUE(shows_focus) << focused->metaObject()->className() << " on tab " << tab;
      if (focused == start) break;
    }
  }
}

TEST_F(EditorViewTest, CaptionsAreBuddiesOfTheFieldsTheyName) {
  OpenWindow();
  for (QLabel* label : window_->findChildren<QLabel*>()) {
    const QString text = label->text().trimmed();
    if (!text.endsWith(QLatin1Char(':'))) continue;
    // A caption ending in a colon names the field beside it.
    EXPECT_NE(label->buddy(), nullptr) << text.toStdString();
  }
  EXPECT_NE(RepsEdit(), nullptr);
  bool reps_has_buddy = false;
  for (QLabel* label : window_->findChildren<QLabel*>()) reps_has_buddy |= label->buddy() == RepsEdit();
  EXPECT_TRUE(reps_has_buddy);
}

TEST_F(EditorViewTest, F1OpensTheGuideAtTheShownTab) {
  OpenWindow();
  ShowActive();
  Properties().ShowOuterTab(1);
  QTest::keyClick(window_.get(), Qt::Key_F1);
  ASSERT_NE(window_->Help(), nullptr);
  EXPECT_TRUE(window_->Help()->isVisible());
  EXPECT_EQ(window_->Help()->ShownSection(), QStringLiteral("The Density tab"));
}

TEST_F(EditorViewTest, HelpButtonOpensTheGuideAtTheShownInnerTab) {
  OpenWindow();
  ShowActive();
  Properties().ShowOuterTab(2);
  Properties().ShowInnerTab(2);
  QTest::mouseClick(window_->HelpButton(), Qt::LeftButton);
  ASSERT_NE(window_->Help(), nullptr);
  EXPECT_EQ(window_->Help()->ShownSection(), QStringLiteral("The Population tab: Covariates"));
}

TEST_F(EditorViewTest, TheGuideHasASectionForEveryTab) {
  HelpBrowser help;
  help.resize(600, 400);
  help.show();
  EXPECT_FALSE(help.Browser()->toPlainText().contains(QStringLiteral("missing from this build")));
  for (int tab = 0; tab < 6; ++tab) {
    for (int inner : {1, 2}) {
      const QString section = HelpBrowser::SectionFor(tab, inner);
      EXPECT_TRUE(help.ShowSection(section)) << section.toStdString();
    }
  }
  EXPECT_FALSE(help.ShowSection(QStringLiteral("No such tab")));
}

// --- Size --------------------------------------------------------------------------------------

TEST_F(EditorViewTest, TheDefaultWindowShowsEveryPageWithoutScrollBarsOrClippedControls) {
  OpenWindow();
  ShowActive();
  for (int tab = 0; tab < 6; ++tab) {
    for (int inner : {1, 2}) {
      if (inner == 2 && tab != 2) continue;
      Properties().ShowOuterTab(tab);
      if (tab == 2) Properties().ShowInnerTab(inner);
      QApplication::processEvents();
      QScrollArea* area = ShownArea();
      ASSERT_NE(area, nullptr);
      EXPECT_FALSE(area->verticalScrollBar()->isVisible()) << "tab " << tab << "/" << inner;
      EXPECT_FALSE(area->horizontalScrollBar()->isVisible()) << "tab " << tab << "/" << inner;
      for (QWidget* widget : area->widget()->findChildren<QWidget*>()) {
        if (!widget->isVisible() || qobject_cast<QAbstractItemView*>(widget) != nullptr) continue;
        if (qobject_cast<QLabel*>(widget) == nullptr && qobject_cast<QAbstractButton*>(widget) == nullptr &&
            qobject_cast<QComboBox*>(widget) == nullptr && qobject_cast<QLineEdit*>(widget) == nullptr) {
          continue;
        }
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
          // Buttons may be narrower than the style's usual minimum, but never than their text.
          const QString text = QString(button->text()).remove(QLatin1Char('&'));
          EXPECT_GE(widget->width(), widget->fontMetrics().horizontalAdvance(text))
              << text.toStdString() << " on tab " << tab;
          continue;
        }
        const QSize needs = widget->minimumSizeHint();
        EXPECT_GE(widget->width(), needs.width())
            << widget->accessibleName().toStdString() << " on tab " << tab;
        EXPECT_GE(widget->height(), needs.height()) << widget->accessibleName().toStdString();
      }
    }
  }
  QTabBar* bar = Properties().OuterTabBar();
  EXPECT_LE(bar->tabRect(bar->count() - 1).right(), bar->width());
}

// --- Tooltips ----------------------------------------------------------------------------------

TEST_F(EditorViewTest, EveryInputHasATooltipSayingWhatItHolds) {
  OpenWindow();
  int inputs = 0;
  for (QWidget* widget : Properties().findChildren<QWidget*>()) {
    if (!zrsimprp::InputToolTips::IsInput(widget)) continue;
    ++inputs;
    EXPECT_FALSE(widget->toolTip().isEmpty())
        << widget->metaObject()->className() << " '" << widget->accessibleName().toStdString() << "'";
  }
  EXPECT_GT(inputs, 40);
}

TEST_F(EditorViewTest, ADisabledInputsTooltipSaysWhatEnablesIt) {
  OpenWindow();
  zrsimprp::SIMProperties& control = Properties().Control();
  control.pagDensity.chkHotspots.SetValue(zrsimprp::CheckBox::kUnchecked);
  Properties().RefreshNow();
  QPushButton* hotspots = nullptr;
  for (auto* button : Properties().findChildren<QPushButton*>()) {
    if (button->accessibleName() == QStringLiteral("Add hotspot")) hotspots = button;
  }
  ASSERT_NE(hotspots, nullptr);
  ASSERT_FALSE(hotspots->isEnabled());
  EXPECT_TRUE(hotspots->toolTip().contains(QStringLiteral("enabled when Add Hotspots is ticked")))
      << hotspots->toolTip().toStdString();
  control.pagDensity.chkHotspots.SetValue(zrsimprp::CheckBox::kChecked);
  Properties().RefreshNow();
  ASSERT_TRUE(hotspots->isEnabled());
  EXPECT_FALSE(hotspots->toolTip().contains(QStringLiteral("enabled when")))
      << hotspots->toolTip().toStdString();
}

// --- Palettes ----------------------------------------------------------------------------------

// The colours the grids of the form paint, by kind of cell, read back from the views' models.
struct PaintedKinds {
  std::vector<std::pair<QColor, QColor>> heading, editable, disabled;  // background, text
};

PaintedKinds CollectPaintedCells(zrsimprp::SIMPropertiesWidget& properties) {
  PaintedKinds kinds;
  for (auto* view : properties.findChildren<QAbstractItemView*>()) {
    auto* model = qobject_cast<zrsimprp::GridTableModel*>(view->model());
    if (model == nullptr) continue;  // the pop-up of a list
    // The kinds as the page defines them: headings are fixed cells; a cell may be edited when it
    // has the grid's normal colour in a grid that takes edits.
    const zrsimprp::Grid& grid = model->Model();
    for (int row = 0; row < model->rowCount(); ++row) {
      for (int col = 0; col < model->columnCount(); ++col) {
        const QModelIndex index = model->index(row, col);
        const QColor back = index.data(Qt::BackgroundRole).value<QColor>();
        const QColor text = index.data(Qt::ForegroundRole).value<QColor>();
        const bool editable =
            grid.Enabled() && grid.Editable() && grid.CellBackColor(row, col) == grid.BackColor();
        auto& bucket =
            grid.IsFixedCell(row, col) ? kinds.heading : (editable ? kinds.editable : kinds.disabled);
        bucket.emplace_back(back, text);
      }
    }
  }
  return kinds;
}

void ExpectKindsToldApart(zrsimprp::SIMPropertiesWidget& properties, const char* palette_name) {
  const PaintedKinds kinds = CollectPaintedCells(properties);
  ASSERT_FALSE(kinds.heading.empty());
  ASSERT_FALSE(kinds.editable.empty());
  ASSERT_FALSE(kinds.disabled.empty());
  const auto check_pairs = [&](const auto& a, const auto& b, const char* what) {
    for (const auto& [back_a, text_a] : a) {
      for (const auto& [back_b, text_b] : b) {
        EXPECT_GE(GridCellColors::ContrastRatio(back_a, back_b), 1.5)
            << palette_name << " " << what << ": " << back_a.name().toStdString() << " vs "
            << back_b.name().toStdString();
      }
    }
  };
  check_pairs(kinds.heading, kinds.editable, "heading/editable");
  check_pairs(kinds.heading, kinds.disabled, "heading/disabled");
  check_pairs(kinds.editable, kinds.disabled, "editable/disabled");
  for (const auto* bucket : {&kinds.heading, &kinds.editable, &kinds.disabled}) {
    for (const auto& [back, text] : *bucket) {
      EXPECT_GE(GridCellColors::ContrastRatio(back, text), 4.5)
          << palette_name << " text " << text.name().toStdString() << " on " << back.name().toStdString();
    }
  }
}

TEST_F(EditorViewTest, GridCellKindsAreToldApartInTheLightAndTheDarkPalette) {
  OpenWindow();
  // Greyed cells: the Shape row while the key function is Half-Normal; a disabled grid's cells.
  zrsimprp::SIMProperties& control = Properties().Control();
  control.pagDetectability.SetDetFunction("Half-Normal");
  Properties().RefreshNow();
  const QPalette original = QApplication::palette();
  ExpectKindsToldApart(Properties(), "light");
  QApplication::setPalette(zrsimprp::DarkPalette::Make());
  ExpectKindsToldApart(Properties(), "dark");
  QApplication::setPalette(original);
}

TEST(GridCellColorsTest, ContrastRatioIsTheWcagMeasure) {
  EXPECT_NEAR(GridCellColors::ContrastRatio(Qt::black, Qt::white), 21.0, 1e-9);
  EXPECT_NEAR(GridCellColors::ContrastRatio(Qt::white, Qt::white), 1.0, 1e-9);
  EXPECT_NEAR(GridCellColors::ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

}  // namespace

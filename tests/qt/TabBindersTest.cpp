#include <gtest/gtest.h>

#include <QKeySequence>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>

#include "QtTestSupport.h"
#include "zrsimprp/host/TabControl.h"
#include "zrsimprp/host/TabStrip.h"
#include "zrsimprp/qt/binders/TabControlBinder.h"
#include "zrsimprp/qt/binders/TabStripBinder.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

std::vector<std::string> OuterCaptions() {
  return {"&Simulation", "&Density", "&Population", "D&etectability", "&Analysis", "&Misc."};
}

class TabControlBinderTest : public ::testing::Test {
 protected:
  TabControlBinderTest() : tabs(OuterCaptions()) {
    bar = new QTabBar(&form);
    pages = new QStackedWidget(&form);
    for (int i = 0; i < 6; ++i) pages->addWidget(new QWidget(pages));
    binder = new TabControlBinder(tabs, bar, pages);
  }
  TabControl tabs;
  QWidget form;
  QTabBar* bar;
  QStackedWidget* pages;
  TabControlBinder* binder;
};

TEST_F(TabControlBinderTest, CaptionsKeepTheirMnemonics) {
  ASSERT_EQ(bar->count(), 6);
  EXPECT_EQ(bar->tabText(0), "&Simulation");
  EXPECT_EQ(bar->tabText(3), "D&etectability");
  EXPECT_EQ(bar->tabText(5), "&Misc.");
  EXPECT_EQ(QKeySequence::mnemonic(bar->tabText(3)), QKeySequence(Qt::ALT | Qt::Key_E));
  EXPECT_EQ(QKeySequence::mnemonic(bar->tabText(1)), QKeySequence(Qt::ALT | Qt::Key_D));
}

TEST_F(TabControlBinderTest, TabsHaveAccessibleNamesWithoutAmpersands) {
  EXPECT_EQ(bar->accessibleTabName(3), "Detectability");
  EXPECT_EQ(bar->accessibleTabName(5), "Misc.");
}

TEST_F(TabControlBinderTest, ClickChangesTheModelsTabAndThePage) {
  std::vector<int> after;
  tabs.SetAfterChangeHandler([&after](int index) { after.push_back(index); });
  bar->setCurrentIndex(2);
  EXPECT_EQ(tabs.CurrentTab(), 2);
  EXPECT_EQ(pages->currentIndex(), 2);
  EXPECT_EQ(after, std::vector<int>{2});
}

TEST_F(TabControlBinderTest, RefusedChangeKeepsTheBarOnTheModelsTab) {
  tabs.SetBeforeChangeHandler([](int& new_index) { new_index = -1; });
  bar->setCurrentIndex(4);
  EXPECT_EQ(tabs.CurrentTab(), 0);
  EXPECT_EQ(bar->currentIndex(), 0);
  EXPECT_EQ(pages->currentIndex(), 0);
}

TEST_F(TabControlBinderTest, ChangeFromCodeShows) {
  tabs.SetCurrentTab(4);
  RunEventLoopTurn();
  EXPECT_EQ(bar->currentIndex(), 4);
  EXPECT_EQ(pages->currentIndex(), 4);
}

TEST_F(TabControlBinderTest, MnemonicKeySelectsTheTab) {
  form.show();
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  QTest::keyClick(&form, Qt::Key_E, Qt::AltModifier);
  EXPECT_EQ(tabs.CurrentTab(), 3);
  EXPECT_EQ(bar->currentIndex(), 3);
}

TEST(TabStripBinder, ClickRunsTheModelsClickWithTheKey) {
  TabStrip strip({{"General", "General"}, {"Covariates", "Covariates"}});
  std::string clicked;
  strip.SetClickHandler([&clicked](const std::string& key) { clicked = key; });
  QWidget form;
  auto* bar = new QTabBar(&form);
  new TabStripBinder(strip, bar);
  ASSERT_EQ(bar->count(), 2);
  EXPECT_EQ(bar->tabText(1), "Covariates");
  EXPECT_EQ(bar->accessibleTabName(0), "General");
  bar->setCurrentIndex(1);
  EXPECT_EQ(strip.SelectedIndex(), 2);
  EXPECT_EQ(clicked, "Covariates");
}

TEST(TabStripBinder, ClickHandlerThatSelectsBackIsShown) {
  TabStrip strip({{"General", "General"}, {"Covariates", "Covariates"}});
  strip.SetClickHandler([&strip](const std::string&) { strip.Select(1); });
  QWidget form;
  auto* bar = new QTabBar(&form);
  new TabStripBinder(strip, bar);
  bar->setCurrentIndex(1);
  EXPECT_EQ(strip.SelectedIndex(), 1);
  EXPECT_EQ(bar->currentIndex(), 0);
}

TEST(TabStripBinder, SelectFromCodeShows) {
  TabStrip strip({{"General", "General"}, {"Covariates", "Covariates"}});
  QWidget form;
  auto* bar = new QTabBar(&form);
  new TabStripBinder(strip, bar);
  strip.Select(2);
  RunEventLoopTurn();
  EXPECT_EQ(bar->currentIndex(), 1);
}

}  // namespace
}  // namespace zrsimprp

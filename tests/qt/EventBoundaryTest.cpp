#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "QtTestSupport.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/EventBoundary.h"
#include "zrsimprp/qt/QtPlatform.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/binders/ButtonBinder.h"
#include "zrsimprp/qt/binders/CheckBoxBinder.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/grid/GridView.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

struct Shown {
  std::string text;
  std::string title;
  MessageIcon icon;
};

// Forms whose actions report through a platform that records its messages instead of showing boxes.
// Each test makes its models before its form, so that the binders go before the models they watch.
class EventBoundaryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    platform_.SetMessageSink([this](const std::string& text, const std::string& title, MessageIcon icon) {
      shown_.push_back({text, title, icon});
    });
  }
  void ReportThroughThePlatform(QWidget& form) { EventBoundary::ReportThrough(&form, platform_); }

  static std::string Report(const char* event, const RuntimeError& error) {
    return CModErrorHandling::InternalErrorText("ZrSIMPrp", "SIM", event, error);
  }

  QtPlatform platform_;
  std::vector<Shown> shown_;
};

TEST_F(EventBoundaryTest, AClickWhoseHandlerThrowsShowsTheReportAndTheAppKeepsRunning) {
  Button failing("Go");
  int attempts = 0;
  failing.SetClickHandler([&attempts] {
    ++attempts;
    throw RuntimeError(11, "Model", "Division by zero");
  });
  CheckBox other("Other");
  QWidget form;
  ReportThroughThePlatform(form);
  auto* button = new QPushButton(&form);
  auto* box = new QCheckBox(&form);
  new ButtonBinder(failing, button);
  new CheckBoxBinder(other, box);

  EXPECT_NO_THROW(button->click());
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].title, "Pellunar Internal Error");
  EXPECT_EQ(shown_[0].icon, MessageIcon::Critical);
  EXPECT_EQ(shown_[0].text, Report("Button_Click", RuntimeError(11, "Model", "Division by zero")));
  EXPECT_EQ(platform_.Beeps(), 1);

  // The program goes on: the same button reports again, and other widgets still reach their model.
  EXPECT_NO_THROW(button->click());
  EXPECT_EQ(attempts, 2);
  EXPECT_EQ(shown_.size(), 2u);
  box->click();
  EXPECT_EQ(other.Value(), CheckBox::kChecked);
  EXPECT_EQ(shown_.size(), 2u);
}

TEST_F(EventBoundaryTest, ErrorsOtherThanRunTimeErrorsAreReportedAsApplicationDefined) {
  Button standard("Standard");
  standard.SetClickHandler([] { throw std::out_of_range("index past the end"); });
  Button foreign("Foreign");
  foreign.SetClickHandler([] { throw 42; });
  QWidget form;
  ReportThroughThePlatform(form);
  auto* standard_button = new QPushButton(&form);
  auto* foreign_button = new QPushButton(&form);
  new ButtonBinder(standard, standard_button);
  new ButtonBinder(foreign, foreign_button);

  EXPECT_NO_THROW(standard_button->click());
  EXPECT_NO_THROW(foreign_button->click());
  ASSERT_EQ(shown_.size(), 2u);
  EXPECT_EQ(shown_[0].text, Report("Button_Click", RuntimeError(51, "ZrSIMPrp", "index past the end")));
  EXPECT_EQ(shown_[1].text,
            Report("Button_Click", RuntimeError(51, "ZrSIMPrp", "An unknown error has occurred")));
}

TEST_F(EventBoundaryTest, AGridWhoseBeforeEditHandlerThrowsRefusesTheEditAndReportsIt) {
  Grid grid(2, 2, 1, 1);
  grid.SetEditable(true);
  grid.SetBeforeEditHandler(
      [](int, int, bool&) { throw RuntimeError(381, "Grid", "Invalid property array index"); });
  QWidget form;
  ReportThroughThePlatform(form);
  auto* view = new GridView(&form);
  new GridBinder(grid, view);
  const QModelIndex cell = view->model()->index(1, 1);

  EXPECT_FALSE(view->model()->setData(cell, QStringLiteral("5"), Qt::EditRole));
  EXPECT_EQ(grid.TextMatrix(1, 1), "");
  static_cast<QAbstractItemView*>(view)->edit(cell);
  EXPECT_FALSE(view->Editing());
  ASSERT_EQ(shown_.size(), 2u);
  const RuntimeError error(381, "Grid", "Invalid property array index");
  EXPECT_EQ(shown_[0].text, Report("Grid_AfterEdit", error));
  EXPECT_EQ(shown_[1].text, Report("Grid_BeforeEdit", error));
}

TEST_F(EventBoundaryTest, APlatformThatCannotShowTheReportStillLetsNothingEscape) {
  platform_.SetMessageSink([](const std::string&, const std::string&, MessageIcon) {
    throw RuntimeError(5, "Platform", "The message box could not be shown");
  });
  Button failing("Go");
  failing.SetClickHandler([] { throw RuntimeError(11, "Model", "Division by zero"); });
  QWidget form;
  ReportThroughThePlatform(form);
  auto* button = new QPushButton(&form);
  new ButtonBinder(failing, button);
  EXPECT_NO_THROW(button->click());
  EXPECT_FALSE(
      EventBoundary::Run(button, "Button_Click", [] { throw RuntimeError(6, "Model", "Overflow"); }));
}

TEST_F(EventBoundaryTest, TheNearestParentsPlatformReports) {
  QtPlatform inner_platform;
  QWidget form;
  ReportThroughThePlatform(form);
  auto* inner = new QWidget(&form);
  auto* button = new QPushButton(inner);
  EXPECT_EQ(&EventBoundary::PlatformFor(button), &platform_);
  EventBoundary::ReportThrough(inner, inner_platform);
  EXPECT_EQ(&EventBoundary::PlatformFor(button), &inner_platform);
  // A view outside any control still has a platform to report through.
  QWidget loose;
  EXPECT_NE(&EventBoundary::PlatformFor(&loose), &platform_);
  EXPECT_EQ(&EventBoundary::PlatformFor(&loose), &EventBoundary::PlatformFor(&loose));
  EXPECT_TRUE(EventBoundary::Run(button, "Button_Click", [] {}));
}

TEST(EventBoundaryBox, TheReportIsAModalCriticalBoxThatAPersonCloses) {
  QtPlatform platform;
  Button failing("Go");
  failing.SetClickHandler([] { throw RuntimeError(11, "Model", "Division by zero"); });
  QWidget form;
  EventBoundary::ReportThrough(&form, platform);
  auto* button = new QPushButton(&form);
  new ButtonBinder(failing, button);
  QString title;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    title = box->windowTitle();
    icon = box->icon();
    box->button(QMessageBox::Ok)->click();
  });
  EXPECT_NO_THROW(button->click());
  EXPECT_EQ(title, "Pellunar Internal Error");
  EXPECT_EQ(icon, QMessageBox::Critical);
  EXPECT_EQ(platform.MessagesShown(), 1);
}

// A project with one survey over a strata layer of three strata.
std::shared_ptr<MemoryProjectDatabase> MakeProject() {
  auto database = std::make_shared<MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.label_field = "Label";
  layer.ids = {Variant(int32_t{1}), Variant(int32_t{2}), Variant(int32_t{3})};
  layer.labels = {Variant(std::string("A")), Variant(std::string("B")), Variant(std::string("C"))};
  database->AddLayer(layer);
  return database;
}

class EventBoundaryWidgetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CModGlobal::Clear();
    widget_ = std::make_unique<SIMPropertiesWidget>();
    widget_->Platform().SetMessageSink(
        [this](const std::string& text, const std::string& title, MessageIcon) {
          shown_.push_back({text, title});
        });
  }
  void TearDown() override {
    widget_.reset();
    CModGlobal::Clear();
  }

  struct Message {
    std::string text;
    std::string title;
  };
  std::unique_ptr<SIMPropertiesWidget> widget_;
  std::vector<Message> shown_;
};

TEST_F(EventBoundaryWidgetTest, ATabClickThatFailsInTheModelIsReportedAndTheBarStaysWhereTheModelIs) {
  widget_->SetProjectDatabase(MakeProject());
  // p = 1 passes the page's check, but the mean cluster size then divides by zero on leaving the tab.
  widget_->SetDefinition(
      "Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;Density=Uniform /Densities=1,2,3 "
      "/GridSpace=10;"
      "Clusters=True /Distribution=Negative-Binomial /param=2,1;");
  widget_->Initialize();
  RunEventLoopTurn();
  QTabBar* bar = widget_->OuterTabBar();
  bar->setCurrentIndex(2);
  ASSERT_EQ(widget_->CurrentOuterTab(), 2);
  ASSERT_TRUE(shown_.empty());

  EXPECT_NO_THROW(bar->setCurrentIndex(3));
  EXPECT_EQ(widget_->CurrentOuterTab(), 2);
  EXPECT_EQ(bar->currentIndex(), 2);
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].title, "Pellunar Internal Error");
  EXPECT_NE(shown_[0].text.find("(Error raised from: ZrSIMPrp.SIM.TabControl_Click)\r\n"
                                "(Error source: ZrSIMPrp)\r\n(Error number: 11)"),
            std::string::npos)
      << shown_[0].text;

  // Once the value is put right the same click goes through.
  widget_->Control().pagPopulation.flxClusterParam.SetTextMatrix(1, 2, "0.5");
  bar->setCurrentIndex(3);
  EXPECT_EQ(widget_->CurrentOuterTab(), 3);
  EXPECT_EQ(bar->currentIndex(), 3);
  EXPECT_EQ(shown_.size(), 1u);
}

TEST_F(EventBoundaryWidgetTest, ShowOuterTabIsAPersonsClickAndNeverThrows) {
  widget_->SetProjectDatabase(MakeProject());
  widget_->SetDefinition(
      "Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;"
      "Clusters=True /Distribution=Negative-Binomial /param=2,1;");
  widget_->Initialize();
  widget_->ShowOuterTab(2);
  EXPECT_NO_THROW(widget_->ShowOuterTab(3));
  EXPECT_EQ(widget_->CurrentOuterTab(), 2);
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].title, "Pellunar Internal Error");
}

// A person's click on a page's own control is that page's action: its error report names the page's
// module, as the page's own reports do, and not the control.
TEST_F(EventBoundaryWidgetTest, AClickHandlerErrorOnAPageIsReportedUnderThatPagesModule) {
  widget_->SetProjectDatabase(MakeProject());
  widget_->SetDefinition("Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;");
  widget_->Initialize();
  widget_->Control().pagDensity.chkHotspots.SetClickHandler(
      [] { throw RuntimeError(error_number::kOverflow, "ZrSIMPrp", "Overflow"); });
  widget_->ShowOuterTab(1);
  RunEventLoopTurn();
  QCheckBox* hotspots = nullptr;
  for (QCheckBox* box : widget_->findChildren<QCheckBox*>()) {
    if (box->text().contains(QStringLiteral("otspot"))) hotspots = box;
  }
  ASSERT_NE(hotspots, nullptr);
  ASSERT_TRUE(shown_.empty());

  EXPECT_NO_THROW(hotspots->click());
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].title, "Pellunar Internal Error");
  EXPECT_NE(shown_[0].text.find("(Error raised from: ZrSIMPrp.PagDensity.CheckBox_Click)\r\n"),
            std::string::npos)
      << shown_[0].text;
  EXPECT_EQ(shown_[0].text.find("ZrSIMPrp.SIM."), std::string::npos) << shown_[0].text;
}

TEST_F(EventBoundaryWidgetTest, EveryPageViewReportsUnderItsPageTableModuleAndTheTabsUnderTheControl) {
  // The inner strip and the outer tab bar are the control's own.
  EXPECT_EQ(EventBoundary::ModuleFor(widget_->InnerTabBar()), "SIM");
  EXPECT_EQ(EventBoundary::ModuleFor(widget_->OuterTabBar()), "SIM");
  // Every page's fields, lists and checkboxes sit in a view that names its page.
  std::vector<std::string> modules;
  for (QWidget* field : widget_->findChildren<QWidget*>()) {
    if (!qobject_cast<QLineEdit*>(field) && !qobject_cast<QComboBox*>(field) &&
        !qobject_cast<QCheckBox*>(field)) {
      continue;
    }
    const std::string module = EventBoundary::ModuleFor(field);
    if (std::find(modules.begin(), modules.end(), module) == modules.end()) modules.push_back(module);
  }
  std::sort(modules.begin(), modules.end());
  EXPECT_EQ(modules, (std::vector<std::string>{"PagAnalyses", "PagDensity", "PagDetectability", "PagMisc",
                                               "PagPopulation", "PagPopulationCovars", "PagSimulation"}));
}

}  // namespace
}  // namespace zrsimprp

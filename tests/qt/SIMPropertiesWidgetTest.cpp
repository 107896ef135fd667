#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "QtTestSupport.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/pages/CPagPopulationCovarsView.h"
#include "zrsimprp/qt/pages/CPagPopulationDescriptionView.h"
#include "zrsimprp/qt/pages/PopulationTabView.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

const std::string kFullDefinition =
    "Engine=SIM;\r\n"
    "Transects=Survey /ObjectID=1;\r\n"
    "StrataLayer=Strata;\r\n"
    "Reps=100;\r\n"
    "Density=Uniform /Densities=1,2,3 /GridSpace=10;\r\n"
    "Hotspot=\"\" /X,Y,Sig,Amp=10,20,5,2;\r\n"
    "PopSize=\"Fixed N\" /Values=100,200,300;\r\n"
    "Clusters=True /Distribution=Poisson /param=3;\r\n"
    "CategoricalCov=sex /categories=m,f /prob=0.5,0.5;\r\n"
    "ContinuousCov=size /distribution=Normal /param=3,1;\r\n"
    "Detectability=\"Hazard Rate\" /ParamByStratum=True;\r\n"
    "DetFuncParam=\"\" /Scale=20,30,40;\r\n"
    "DetFuncParam=\"\" /Shape=2,3,4;\r\n"
    "Analyse=True;\r\n"
    "DataFilter=5;\r\n"
    "ModelDef=7;\r\n"
    "ModelSelection=AIC;\r\n"
    "ParallelProcessing=True /cores=3;\r\n";

// A project with one survey of design 10 over a strata layer "Strata" of `strata` strata.
std::shared_ptr<MemoryProjectDatabase> MakeProject(int strata) {
  auto database = std::make_shared<MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.label_field = "Label";
  for (int i = 1; i <= strata; ++i) {
    // Built in place: moving a temporary Variant here makes GCC 12 at -O3 warn (falsely) that the
    // string alternative may be read uninitialized.
    layer.ids.emplace_back(int32_t{i});
    layer.labels.emplace_back(std::string(1, static_cast<char>('A' + (i - 1) % 26)) + std::to_string(i));
  }
  database->AddLayer(layer);
  database->AddDataFilter(5, "All data");
  database->AddModelDefinition(7, "HN model", "MA", "");
  database->SetDefaultDefinition("SIM", Variant(std::string("Engine=SIM;\r\nReps=1;\r\n")));
  return database;
}

struct Shown {
  std::string text;
  std::string title;
  MessageIcon icon;
};

class SIMPropertiesWidgetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CModGlobal::Clear();
    widget_ = std::make_unique<SIMPropertiesWidget>();
    widget_->Platform().SetMessageSink(
        [this](const std::string& text, const std::string& title, MessageIcon icon) {
          shown_.push_back({text, title, icon});
        });
    widget_->resize(800, 640);
  }
  void TearDown() override {
    widget_.reset();
    CModGlobal::Clear();
  }
  void Load(const std::string& definition, int strata = 3) {
    widget_->SetProjectDatabase(MakeProject(strata));
    widget_->SetDefinition(definition);
    widget_->Initialize();
    RunEventLoopTurn();
  }
  template <class W>
  W* Named(const QString& name) {
    for (W* candidate : widget_->findChildren<W*>()) {
      if (candidate->accessibleName() == name) return candidate;
    }
    ADD_FAILURE() << "no widget named " << name.toStdString();
    return nullptr;
  }

  std::string AllTitles() const {
    std::string all;
    for (const Shown& message : shown_) all += message.title + ": " + message.text + "\n";
    return all;
  }

  std::unique_ptr<SIMPropertiesWidget> widget_;
  std::vector<Shown> shown_;
};

TEST_F(SIMPropertiesWidgetTest, OuterTabsCarryTheCaptionsWithMnemonics) {
  QTabBar* bar = widget_->OuterTabBar();
  ASSERT_EQ(bar->count(), 6);
  const std::vector<QString> captions{"&Simulation",    "&Density",  "&Population",
                                      "D&etectability", "&Analysis", "&Misc."};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(bar->tabText(i), captions[static_cast<size_t>(i)]);
  ASSERT_EQ(widget_->InnerTabBar()->count(), 2);
  EXPECT_EQ(widget_->InnerTabBar()->tabText(0), "General");
  EXPECT_EQ(widget_->InnerTabBar()->tabText(1), "Covariates");
}

TEST_F(SIMPropertiesWidgetTest, LoadedDefinitionShowsInTheWidgets) {
  Load(kFullDefinition);
  QLineEdit* reps = Named<QLineEdit>("Repeat the simulation times");
  ASSERT_NE(reps, nullptr);
  EXPECT_EQ(reps->text(), "100");
  auto* region = Named<QComboBox>("Region / strata layer");
  ASSERT_NE(region, nullptr);
  EXPECT_EQ(region->currentText(), "Strata");
  auto* densities = Named<GridView>("Uniform density (within strata where applicable)");
  ASSERT_NE(densities, nullptr);
  EXPECT_EQ(densities->model()->columnCount(), 4);
  EXPECT_EQ(densities->model()->data(densities->model()->index(1, 3)).toString(), "3");
}

TEST_F(SIMPropertiesWidgetTest, DefinitionRoundTripsThroughTheWidget) {
  Load(kFullDefinition);
  EXPECT_EQ(widget_->Definition(), kFullDefinition);
}

TEST_F(SIMPropertiesWidgetTest, TypedRepetitionsReachTheDefinition) {
  Load(kFullDefinition);
  QLineEdit* reps = Named<QLineEdit>("Repeat the simulation times");
  ASSERT_NE(reps, nullptr);
  reps->selectAll();
  QTest::keyClicks(reps, "250");
  EXPECT_NE(widget_->Definition().find("Reps=250;"), std::string::npos);
}

TEST_F(SIMPropertiesWidgetTest, RepetitionsBoxSitsBetweenTheTwoHalvesOfItsCaption) {
  Load(kFullDefinition);
  QLineEdit* reps = Named<QLineEdit>("Repeat the simulation times");
  ASSERT_NE(reps, nullptr);
  QLabel* before = nullptr;
  QLabel* after = nullptr;
  for (QLabel* label : widget_->findChildren<QLabel*>()) {
    if (label->text() == "Repeat the simulation") before = label;
    if (label->text() == "times") after = label;
  }
  ASSERT_NE(before, nullptr);
  ASSERT_NE(after, nullptr);
  widget_->ShowOuterTab(0);
  widget_->show();
  RunEventLoopTurn();
  const int box_x = reps->mapTo(widget_.get(), QPoint(0, 0)).x();
  EXPECT_LT(before->mapTo(widget_.get(), QPoint(0, 0)).x(), box_x);
  EXPECT_GT(after->mapTo(widget_.get(), QPoint(0, 0)).x(), box_x);
}

TEST_F(SIMPropertiesWidgetTest, ClickingThroughAllSixTabsAndBothInnerTabs) {
  Load(kFullDefinition);
  QTabBar* outer = widget_->OuterTabBar();
  for (int tab = 1; tab < 6; ++tab) {
    outer->setCurrentIndex(tab);
    EXPECT_EQ(widget_->CurrentOuterTab(), tab) << AllTitles();
    EXPECT_EQ(outer->currentIndex(), tab);
    if (tab == 2) {
      auto* population = widget_->findChild<PopulationTabView*>();
      ASSERT_NE(population, nullptr);
      widget_->InnerTabBar()->setCurrentIndex(1);
      RunEventLoopTurn();
      EXPECT_EQ(widget_->CurrentInnerTab(), 2);
      EXPECT_TRUE(population->PopulationView()->isHidden());
      EXPECT_FALSE(population->CovariatesView()->isHidden());
      widget_->InnerTabBar()->setCurrentIndex(0);
      RunEventLoopTurn();
      EXPECT_EQ(widget_->CurrentInnerTab(), 1);
      EXPECT_FALSE(population->PopulationView()->isHidden());
      EXPECT_TRUE(population->CovariatesView()->isHidden());
    }
    EXPECT_FALSE(widget_->Render().isNull());
  }
  outer->setCurrentIndex(0);
  EXPECT_EQ(widget_->CurrentOuterTab(), 0);
  EXPECT_TRUE(shown_.empty()) << AllTitles();
}

TEST_F(SIMPropertiesWidgetTest, InvalidPageKeepsTheTabAndShowsItsMessage) {
  Load(kFullDefinition);
  QLineEdit* reps = Named<QLineEdit>("Repeat the simulation times");
  ASSERT_NE(reps, nullptr);
  reps->selectAll();
  QTest::keyClicks(reps, "0");
  widget_->OuterTabBar()->setCurrentIndex(1);
  EXPECT_EQ(widget_->CurrentOuterTab(), 0);
  EXPECT_EQ(widget_->OuterTabBar()->currentIndex(), 0);
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].text, "The number of repetitions must be greater than 0.");
  EXPECT_EQ(shown_[0].title, "Error in options on Simulation Page");
  EXPECT_EQ(shown_[0].icon, MessageIcon::Exclamation);
}

TEST_F(SIMPropertiesWidgetTest, ValidationMessageBoxIsShownModallyAndClosedWithoutBlocking) {
  Load(kFullDefinition);
  widget_->Platform().SetMessageSink(nullptr);
  widget_->Control().pagSimulation.txtReps.SetText("-4");
  QString title;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    title = box->windowTitle();
    icon = box->icon();
    box->button(QMessageBox::Ok)->click();
  });
  EXPECT_FALSE(widget_->IsValid());
  EXPECT_EQ(title, "Error in options on Simulation Page");
  EXPECT_EQ(icon, QMessageBox::Warning);
}

TEST_F(SIMPropertiesWidgetTest, EveryControlHasAnAccessibleName) {
  Load(kFullDefinition);
  std::vector<QWidget*> controls;
  for (auto* w : widget_->findChildren<QLineEdit*>()) {
    if (qobject_cast<QComboBox*>(w->parentWidget()) == nullptr && w->parentWidget() != nullptr &&
        qobject_cast<QAbstractItemView*>(w->parentWidget()->parentWidget()) == nullptr) {
      controls.push_back(w);
    }
  }
  for (auto* w : widget_->findChildren<QComboBox*>()) controls.push_back(w);
  for (auto* w : widget_->findChildren<GridView*>()) controls.push_back(w);
  for (auto* w : widget_->findChildren<QAbstractButton*>()) {
    // Tab bar scroll arrows and table corner buttons are parts of other widgets, not controls.
    if (qobject_cast<QTabBar*>(w->parentWidget()) == nullptr &&
        qobject_cast<QAbstractItemView*>(w->parentWidget()) == nullptr) {
      controls.push_back(w);
    }
  }
  EXPECT_GT(controls.size(), 40u);
  for (QWidget* control : controls) {
    EXPECT_FALSE(control->accessibleName().isEmpty()) << control->metaObject()->className();
  }
}

TEST_F(SIMPropertiesWidgetTest, TabWalksTheSimulationPageInFormOrder) {
  Load(kFullDefinition);
  auto radios = widget_->findChildren<QRadioButton*>();
  QRadioButton* design_option = nullptr;
  for (QRadioButton* radio : radios) {
    if (radio->text() == "Select design (generate multiple surveys)") design_option = radio;
  }
  ASSERT_NE(design_option, nullptr);
  EXPECT_EQ(widget_->OuterTabBar()->nextInFocusChain(), design_option);
  EXPECT_EQ(design_option->nextInFocusChain(), Named<QComboBox>("Design"));
  QComboBox* design = Named<QComboBox>("Design");
  ASSERT_NE(design, nullptr);
  // The editable list's own line edit follows it in the chain; the next control comes after that.
  QWidget* next = design->nextInFocusChain();
  while (next != nullptr && design->isAncestorOf(next)) next = next->nextInFocusChain();
  EXPECT_TRUE(qobject_cast<QRadioButton*>(next) != nullptr &&
              static_cast<QRadioButton*>(next)->text() == "Select single survey");
}

TEST_F(SIMPropertiesWidgetTest, DesignModeGivesAnEmptyDefinition) {
  Load(kFullDefinition);
  widget_->Platform().SetUserMode(false);
  EXPECT_EQ(widget_->Definition(), "");
  EXPECT_FALSE(widget_->IsValid());
}

TEST_F(SIMPropertiesWidgetTest, ResetDefinitionLoadsTheProjectDefault) {
  Load(kFullDefinition);
  widget_->ResetDefinition();
  RunEventLoopTurn();
  EXPECT_EQ(Named<QLineEdit>("Repeat the simulation times")->text(), "1");
}

TEST_F(SIMPropertiesWidgetTest, ThousandStrataRedrawTheDensityGridOnce) {
  auto* densities = Named<GridView>("Uniform density (within strata where applicable)");
  ASSERT_NE(densities, nullptr);
  auto* binder = densities->findChild<GridBinder*>();
  ASSERT_NE(binder, nullptr);
  RunEventLoopTurn();
  const int before = binder->RefreshCount();
  Load("Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n", 1000);
  RunEventLoopTurn();
  EXPECT_EQ(binder->RefreshCount() - before, 1);
  EXPECT_EQ(densities->model()->columnCount(), 1001);
}

TEST_F(SIMPropertiesWidgetTest, DisabledListsArePaintedGreyFromThePalette) {
  Load(kFullDefinition);
  // The design option is disabled after loading, and so is its list.
  QComboBox* design = Named<QComboBox>("Design");
  ASSERT_NE(design, nullptr);
  if (!widget_->Control().pagSimulation.cboDesign.Enabled()) {
    EXPECT_FALSE(design->isEnabled());
    EXPECT_EQ(design->palette().color(QPalette::Disabled, QPalette::Base),
              design->parentWidget()->palette().color(QPalette::Button));
  }
  EXPECT_EQ(Named<QComboBox>("Region / strata layer")->palette().color(QPalette::Active, QPalette::Base),
            widget_->palette().color(QPalette::Base));
}

// Walks every tab and inner tab and checks each grid shown there.
TEST_F(SIMPropertiesWidgetTest, EveryShownGridFitsItsTextsAndRows) {
  Load(kFullDefinition);
  widget_->show();
  int checked = 0;
  const auto check_shown_grids = [&](const std::string& where) {
    widget_->RefreshNow();
    RunEventLoopTurn();
    for (GridView* grid : widget_->findChildren<GridView*>()) {
      if (!grid->isVisible()) continue;
      ++checked;
      const std::string name = where + ": " + grid->accessibleName().toStdString();
      for (int col = 0; col < grid->model()->columnCount(); ++col) {
        EXPECT_GE(grid->columnWidth(col), static_cast<QAbstractItemView*>(grid)->sizeHintForColumn(col))
            << name << " column " << col;
      }
      const int rows = grid->model()->rowCount();
      EXPECT_EQ(grid->verticalScrollBar()->maximum(), 0) << name;
      EXPECT_EQ(grid->viewport()->height(), rows * grid->rowHeight(0)) << name;
    }
  };
  for (int tab = 0; tab < 6; ++tab) {
    widget_->ShowOuterTab(tab);
    if (tab == 2) {
      widget_->ShowInnerTab(1);
      check_shown_grids("Population");
      widget_->ShowInnerTab(2);
      check_shown_grids("Covariates");
    } else {
      check_shown_grids("tab " + std::to_string(tab));
    }
  }
  EXPECT_GE(checked, 8);
  EXPECT_TRUE(shown_.empty()) << AllTitles();
}

TEST_F(SIMPropertiesWidgetTest, CovariateCaptionsAreNotCutShort) {
  Load(kFullDefinition);
  widget_->show();
  widget_->ShowOuterTab(2);
  widget_->ShowInnerTab(2);
  RunEventLoopTurn();
  for (const char* name : {"Continuous covariate parameters", "Categorical covariate levels"}) {
    GridView* grid = Named<GridView>(name);
    ASSERT_NE(grid, nullptr);
    const QFontMetrics metrics(grid->font());
    for (int row = 0; row < grid->model()->rowCount(); ++row) {
      const QString caption = grid->model()->data(grid->model()->index(row, 0)).toString();
      EXPECT_GT(grid->columnWidth(0), metrics.horizontalAdvance(caption)) << caption.toStdString();
    }
  }
}

}  // namespace
}  // namespace zrsimprp

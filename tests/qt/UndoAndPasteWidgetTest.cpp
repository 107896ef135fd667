#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>
#include <memory>
#include <string>
#include <vector>

#include "QtTestSupport.h"
#include "StrataInRegionProject.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/grid/StrataRowFillMenu.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;
using Texts = std::vector<std::string>;

// A design over `strata` strata inside a region, with a data filter and a model to analyse with.
std::shared_ptr<MemoryProjectDatabase> MakeProject(int strata) {
  auto database = testing::StrataInRegionProject(strata, "S");
  database->AddDataFilter(5, "All data");
  database->AddModelDefinition(7, "HN model", "MA", "");
  return database;
}

class UndoAndPasteWidgetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CModGlobal::Clear();
    widget_ = std::make_unique<SIMPropertiesWidget>();
    widget_->Platform().SetMessageSink(
        [this](const std::string& text, const std::string&, MessageIcon) { shown_.push_back(text); });
    widget_->resize(900, 700);
    widget_->show();
    widget_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(widget_.get()));
  }
  void TearDown() override {
    widget_.reset();
    CModGlobal::Clear();
  }
  void Load(int strata = 3, const std::string& more = "") {
    widget_->SetProjectDatabase(MakeProject(strata));
    widget_->SetDefinition("Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n" + more);
    widget_->Initialize();
    RunEventLoopTurn();
  }
  GridView* GridNamed(const char* name) {
    auto* view = widget_->findChild<GridView*>(QString::fromLatin1(name));
    EXPECT_NE(view, nullptr) << name;
    return view;
  }
  void PasteInto(GridView* view, int row, int col, const QString& text) {
    QApplication::clipboard()->setText(text);
    view->setFocus();
    view->setCurrentIndex(view->model()->index(row, col));
    QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
    RunEventLoopTurn();
  }
  // The keys a person presses, sent to whatever has the focus.
  void Press(int key, Qt::KeyboardModifiers modifiers) {
    QWidget* focus = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : widget_.get();
    QTest::keyClick(focus, static_cast<Qt::Key>(key), modifiers);
    RunEventLoopTurn();
  }
  static Texts RowOf(const Grid& grid, int row) {
    Texts texts;
    for (int c = 0; c < grid.Cols(); ++c) texts.push_back(grid.TextMatrix(row, c));
    return texts;
  }

  std::unique_ptr<SIMPropertiesWidget> widget_;
  std::vector<std::string> shown_;
};

TEST_F(UndoAndPasteWidgetTest, EveryGridsViewCarriesItsControlsName) {
  for (const char* name : {"flxConstantDensity", "flxHotspots", "flxN", "flxClusterParam", "flxClusterSize",
                           "flxContinuousCov", "flxCategoricalCov", "flxDetect", "flxModels"}) {
    GridView* view = GridNamed(name);
    ASSERT_NE(view, nullptr);
    auto* binder = view->findChild<GridBinder*>();
    ASSERT_NE(binder, nullptr) << name;
  }
  EXPECT_EQ(&GridNamed("flxN")->findChild<GridBinder*>()->Model()->Model(),
            &widget_->Control().pagPopulation.flxN);
}

TEST_F(UndoAndPasteWidgetTest, AfterInitializeThereIsNothingToUndo) {
  Load();
  EXPECT_EQ(widget_->UndoStack()->count(), 0);
  EXPECT_FALSE(widget_->UndoAction()->isEnabled());
}

TEST_F(UndoAndPasteWidgetTest, APasteIsOneStepThatCtrlZUndoesAndCtrlShiftZAndCtrlYRedo) {
  Load();
  widget_->ShowOuterTab(1);
  const Grid& densities = widget_->Control().pagDensity.flxConstantDensity;
  const Texts before = RowOf(densities, 1);
  EXPECT_EQ(before, (Texts{"Density:", "0", "0", "0"}));

  PasteInto(GridNamed("flxConstantDensity"), 1, 1, QStringLiteral("0.5\t1\t2.25\r\n"));
  EXPECT_EQ(RowOf(densities, 1), (Texts{"Density:", "0.5", "1", "2.25"}));
  EXPECT_EQ(widget_->UndoStack()->count(), 1);
  EXPECT_EQ(widget_->UndoAction()->text(), "Undo paste of 3 cells");

  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowOf(densities, 1), before);
  EXPECT_EQ(GridNamed("flxConstantDensity")->model()->index(1, 2).data().toString(), "0");
  EXPECT_EQ(widget_->RedoAction()->text(), "Redo paste of 3 cells");

  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(RowOf(densities, 1), (Texts{"Density:", "0.5", "1", "2.25"}));
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowOf(densities, 1), before);
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(RowOf(densities, 1), (Texts{"Density:", "0.5", "1", "2.25"}));
  EXPECT_TRUE(shown_.empty());
}

TEST_F(UndoAndPasteWidgetTest, UndoingAPasteOverGreyedCellsPutsBackExactlyWhatWasThere) {
  Load(3, "Detectability=\"Half-normal\" /ParamByStratum=True;\r\nDetFuncParam=\"\" /Scale=20,30,40;\r\n");
  widget_->ShowOuterTab(3);
  RunEventLoopTurn();
  const Grid& detect = widget_->Control().pagDetectability.flxDetect;
  const Texts scale = RowOf(detect, 1);
  const Texts shape = RowOf(detect, 2);
  PasteInto(GridNamed("flxDetect"), 1, 1, QStringLiteral("7\t8\t9\r\n1\t2\t3\r\n"));
  const Texts pasted_scale = RowOf(detect, 1);
  EXPECT_EQ(pasted_scale, (Texts{"Scale", "7", "8", "9"}));
  EXPECT_EQ(RowOf(detect, 2), shape) << "the shape row is greyed for this model";
  EXPECT_EQ(GridNamed("flxDetect")->findChild<GridBinder*>()->EditActions()->LastMessage(),
            "Pasted 3 cells, skipped 3 that cannot be changed here.");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowOf(detect, 1), scale);
  EXPECT_EQ(RowOf(detect, 2), shape);
  EXPECT_EQ(detect.CellBackColor(2, 1), detect.BackColorFixed());
}

TEST_F(UndoAndPasteWidgetTest, UndoOfAChangeOfRegionLayerBringsBackTheStrataColumnsWithTheirValues) {
  Load(3, "Density=Uniform /Densities=0,0,0 /GridSpace=10;\r\n");
  widget_->ShowOuterTab(1);
  PasteInto(GridNamed("flxConstantDensity"), 1, 1, QStringLiteral("4\t5\t6"));
  widget_->ShowOuterTab(0);
  RunEventLoopTurn();
  ASSERT_TRUE(shown_.empty()) << shown_[0] << CModErrorHandling::TakeLastCheckError()->description;
  QComboBox* region = nullptr;
  for (QComboBox* combo : widget_->findChildren<QComboBox*>()) {
    if (combo->findText(QStringLiteral("Region")) >= 0) region = combo;
  }
  ASSERT_NE(region, nullptr);
  ASSERT_EQ(region->currentText(), "Strata");
  emit region->activated(region->findText(QStringLiteral("Region")));
  RunEventLoopTurn();
  widget_->ShowOuterTab(1);
  const Grid& densities = widget_->Control().pagDensity.flxConstantDensity;
  const Texts after_switch = RowOf(densities, 1);
  ASSERT_NE(after_switch, (Texts{"Density:", "4", "5", "6"}))
      << widget_->Control().pagSimulation.cboRegionLayer.Text() << " "
      << widget_->Control().pagSimulation.StrataNum() << " " << densities.Cols() << " "
      << (shown_.empty() ? "" : shown_[0]);
  EXPECT_EQ(widget_->UndoAction()->text(), "Undo choice in " + region->accessibleName());

  GridNamed("flxConstantDensity")->setFocus();
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(widget_->Control().pagSimulation.cboRegionLayer.Text(), "Strata");
  EXPECT_EQ(RowOf(densities, 0), (Texts{"Strata:", "S1", "S2", "S3"}));
  EXPECT_EQ(RowOf(densities, 1), (Texts{"Density:", "4", "5", "6"}));
  EXPECT_EQ(widget_->Control().pagSimulation.StrataNum(), 3);

  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(widget_->Control().pagSimulation.cboRegionLayer.Text(), "Region");
  EXPECT_EQ(RowOf(densities, 1), after_switch);

  Press(Qt::Key_Z, Qt::ControlModifier);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(RowOf(densities, 1), (Texts{"Density:", "0", "0", "0"}));
  EXPECT_FALSE(widget_->UndoStack()->canUndo());
}

TEST_F(UndoAndPasteWidgetTest, TypingInAFieldIsOneStepAndItsUndoIsTheControls) {
  Load();
  QLineEdit* reps = nullptr;
  for (QLineEdit* edit : widget_->findChildren<QLineEdit*>()) {
    if (edit->text() == "10") reps = edit;
  }
  ASSERT_NE(reps, nullptr);
  reps->setFocus();
  reps->selectAll();
  QTest::keyClicks(reps, QStringLiteral("250"));
  RunEventLoopTurn();
  EXPECT_EQ(widget_->Control().pagSimulation.txtReps.Text(), "250");
  EXPECT_EQ(widget_->UndoStack()->count(), 1);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(widget_->Control().pagSimulation.txtReps.Text(), "10");
  EXPECT_EQ(reps->text(), "10");
  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(reps->text(), "250");
}

TEST_F(UndoAndPasteWidgetTest, TicksAndCellEditsAreStepsOfTheirOwn) {
  Load();
  widget_->ShowOuterTab(1);
  CPagDensity& density = widget_->Control().pagDensity;
  QCheckBox* hotspots = nullptr;
  for (QCheckBox* box : widget_->findChildren<QCheckBox*>()) {
    if (box->text().contains(QStringLiteral("otspot"))) hotspots = box;
  }
  ASSERT_NE(hotspots, nullptr);
  hotspots->click();
  RunEventLoopTurn();
  ASSERT_EQ(density.chkHotspots.Value(), CheckBox::kChecked);
  GridView* view = GridNamed("flxConstantDensity");
  view->model()->setData(view->model()->index(1, 2), QStringLiteral("3"), Qt::EditRole);
  EXPECT_EQ(widget_->UndoStack()->count(), 2);
  EXPECT_EQ(widget_->UndoAction()->text(), "Undo edit of a cell");
  widget_->UndoStack()->undo();
  EXPECT_EQ(density.flxConstantDensity.TextMatrix(1, 2), "0");
  EXPECT_EQ(density.chkHotspots.Value(), CheckBox::kChecked);
  widget_->UndoStack()->undo();
  EXPECT_EQ(density.chkHotspots.Value(), CheckBox::kUnchecked);
  EXPECT_FALSE(density.cmdAddHotspot.Enabled());
}

TEST_F(UndoAndPasteWidgetTest, PastingMoreHotspotRowsThanThereAreAddsHotspotsWhenTheyAreTicked) {
  Load();
  widget_->ShowOuterTab(1);
  CPagDensity& density = widget_->Control().pagDensity;
  const QString block = QStringLiteral("1\t2\t3\t4\r\n5\t6\t7\t8\r\n9\t10\t11\t12\r\n");
  // The table has only its heading row: the paste starts below it.
  PasteInto(GridNamed("flxHotspots"), 0, 0, block);
  EXPECT_EQ(density.flxHotspots.Rows(), 1) << "hotspots are not ticked: no row is added";

  density.chkHotspots.UserClick();
  RunEventLoopTurn();
  const int rows = density.flxHotspots.Rows();
  PasteInto(GridNamed("flxHotspots"), 0, 0, block);
  EXPECT_EQ(density.flxHotspots.Rows(), 4);
  EXPECT_EQ(RowOf(density.flxHotspots, 1), (Texts{"1", "2", "3", "4"}));
  EXPECT_EQ(RowOf(density.flxHotspots, 3), (Texts{"9", "10", "11", "12"}));
  EXPECT_EQ(density.NumHotspots(), 3);
  widget_->UndoStack()->undo();
  EXPECT_EQ(density.flxHotspots.Rows(), rows);
}

}  // namespace
}  // namespace zrsimprp

namespace zrsimprp {
namespace {

// 281 census tracts as a person meets them: 18 share one name, 83 have none, ids are not places.
std::shared_ptr<MemoryProjectDatabase> MakeTracts() {
  auto database = std::make_shared<MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Tracts;");
  database->AddSurvey(1, "Line survey", 1, 10);
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Tracts";
  layer.kind = 1;
  layer.label_field = "Name";
  for (int i = 1; i <= 281; ++i) {
    layer.ids.emplace_back(int32_t{i + 25});
    std::string label;
    if (i <= 18) {
      label = "Binghamton city";
    } else if (i > 198) {
      label = "";
    } else {
      label = "Tract " + std::to_string(i);
    }
    layer.labels.emplace_back(label);
  }
  database->AddLayer(layer);
  return database;
}

TEST(StrataHeadingsWidget, StrataColumnsShowTheirIdWhereLabelsRepeatOrAreBlankAndATooltipSaysWhichStratum) {
  CModGlobal::Clear();
  {
    SIMPropertiesWidget widget;
    widget.SetProjectDatabase(MakeTracts());
    widget.SetDefinition("Transects=Survey /ObjectID=1;\r\nStrataLayer=Tracts;\r\nReps=10;\r\n");
    widget.Initialize();
    widget.ShowOuterTab(1);
    RunEventLoopTurn();
    auto* view = widget.findChild<GridView*>(QStringLiteral("flxConstantDensity"));
    ASSERT_NE(view, nullptr);
    const Grid& grid = widget.Control().pagDensity.flxConstantDensity;
    ASSERT_EQ(grid.Cols(), 282);
    const auto cell = [&](int col, int role) { return view->model()->index(0, col).data(role).toString(); };
    EXPECT_EQ(cell(12, Qt::DisplayRole), "Binghamton city (37)");
    EXPECT_EQ(cell(12, Qt::ToolTipRole), "stratum 12 of 281, id 37, Binghamton city");
    EXPECT_EQ(cell(12, Qt::EditRole), "Binghamton city") << "the grid's cell keeps the page's text";
    EXPECT_EQ(cell(19, Qt::DisplayRole), "Tract 19");
    EXPECT_EQ(cell(250, Qt::DisplayRole), "id 275");
    EXPECT_EQ(cell(250, Qt::ToolTipRole), "stratum 250 of 281, id 275");
    EXPECT_EQ(grid.TextMatrix(0, 12), "Binghamton city");
    // The column is wide enough for the heading with its id.
    EXPECT_GE(view->columnWidth(12), view->CellWidthFor("Binghamton city (37)"));
    auto* population = widget.findChild<GridView*>(QStringLiteral("flxN"));
    ASSERT_NE(population, nullptr);
    EXPECT_EQ(population->model()->index(0, 12).data(Qt::ToolTipRole).toString(),
              "stratum 12 of 281, id 37, Binghamton city");
  }
  CModGlobal::Clear();
}

}  // namespace
}  // namespace zrsimprp

namespace zrsimprp {
namespace {

// Draws every outer tab over the 281 tracts; with ZRSIMPRP_RENDER_DIR set, the images are kept there
// to be looked at.
TEST(StrataHeadingsWidget, EveryTabDrawsOverTwoHundredEightyOneTracts) {
  CModGlobal::Clear();
  {
    SIMPropertiesWidget widget;
    widget.Platform().SetMessageSink([](const std::string&, const std::string&, MessageIcon) {});
    widget.SetProjectDatabase(MakeTracts());
    std::string densities;
    std::string sizes;
    for (int i = 1; i <= 281; ++i) {
      densities += (i > 1 ? "," : "") + std::to_string(i % 4 + 1);
      sizes += (i > 1 ? "," : "") + std::to_string(100 + i);
    }
    widget.SetDefinition(
        "Transects=Survey /ObjectID=1;\r\nStrataLayer=Tracts;\r\nReps=10;\r\nDensity=Uniform /Densities=" +
        densities + " /GridSpace=10;\r\nPopSize=\"Fixed N\" /Values=" + sizes + ";\r\n");
    widget.Initialize();
    widget.resize(1400, 900);
    const QString folder = qEnvironmentVariable("ZRSIMPRP_RENDER_DIR");
    for (int tab = 0; tab < 6; ++tab) {
      widget.ShowOuterTab(tab);
      ASSERT_EQ(widget.CurrentOuterTab(), tab);
      const QImage image = widget.Render();
      EXPECT_EQ(image.size(), QSize(1400, 900));
      if (!folder.isEmpty()) image.save(QStringLiteral("%1/tracts-tab%2.png").arg(folder).arg(tab));
    }
    // Scrolled half way, the population table keeps its row caption in view.
    widget.ShowOuterTab(2);
    auto* size_table = widget.findChild<GridView*>(QStringLiteral("flxN"));
    ASSERT_NE(size_table, nullptr);
    size_table->horizontalScrollBar()->setValue(size_table->horizontalScrollBar()->maximum() / 2);
    const QImage scrolled = widget.Render();
    ASSERT_NE(size_table->FrozenColumnView(), nullptr);
    EXPECT_FALSE(size_table->FrozenColumnView()->isHidden());
    if (!folder.isEmpty()) scrolled.save(QStringLiteral("%1/tracts-tab2-scrolled.png").arg(folder));
  }
  CModGlobal::Clear();
}

}  // namespace
}  // namespace zrsimprp

namespace zrsimprp {
namespace {

TEST_F(UndoAndPasteWidgetTest, FillingAStrataRowFromACsvFileIsOneUndoStepAndNamesTheUnmatchedStrata) {
  Load(3);
  widget_->ShowOuterTab(1);
  QTemporaryDir folder;
  ASSERT_TRUE(folder.isValid());
  const QString path = folder.filePath(QStringLiteral("densities.csv"));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("name,density\r\nS1,0.5\r\n3,2\r\n");
  file.close();
  auto* fill = GridNamed("flxConstantDensity")->findChild<StrataRowFillMenu*>();
  ASSERT_NE(fill, nullptr);
  fill->FillFromCsvFile(1, path, QStringLiteral("density"));
  const Grid& densities = widget_->Control().pagDensity.flxConstantDensity;
  EXPECT_EQ(RowOf(densities, 1), (Texts{"Density:", "0.5", "0", "2"}));
  EXPECT_EQ(fill->LastMessage(), "Filled 2 cells; no value for id 2.");
  EXPECT_EQ(widget_->UndoStack()->count(), 1);
  EXPECT_EQ(widget_->UndoAction()->text(), "Undo fill of 2 cells from a CSV file");
  widget_->UndoStack()->undo();
  EXPECT_EQ(RowOf(densities, 1), (Texts{"Density:", "0", "0", "0"}));
}

}  // namespace
}  // namespace zrsimprp

namespace zrsimprp {
namespace {

TEST(StrataHeadingsWidget, TheRowCaptionsStayInViewWhileAWideTableScrolls) {
  CModGlobal::Clear();
  {
    SIMPropertiesWidget widget;
    widget.SetProjectDatabase(MakeTracts());
    widget.SetDefinition("Transects=Survey /ObjectID=1;\r\nStrataLayer=Tracts;\r\nReps=10;\r\n");
    widget.Initialize();
    widget.resize(1200, 800);
    widget.show();
    widget.ShowOuterTab(2);
    RunEventLoopTurn();
    auto* view = widget.findChild<GridView*>(QStringLiteral("flxN"));
    ASSERT_NE(view, nullptr);
    view->horizontalScrollBar()->setValue(0);
    EXPECT_TRUE(view->FrozenColumnView() == nullptr || !view->FrozenColumnView()->isVisible())
        << "unscrolled, the table's own first column shows";
    view->horizontalScrollBar()->setValue(view->horizontalScrollBar()->maximum());
    RunEventLoopTurn();
    QTableView* frozen = view->FrozenColumnView();
    ASSERT_NE(frozen, nullptr);
    EXPECT_TRUE(frozen->isVisible());
    EXPECT_EQ(frozen->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(frozen->geometry().left(), view->frameWidth());
    EXPECT_EQ(frozen->width(), view->columnWidth(0) + 1);
    EXPECT_FALSE(frozen->isColumnHidden(0));
    EXPECT_TRUE(frozen->isColumnHidden(1));
    EXPECT_EQ(frozen->model()->index(1, 0).data().toString(), "N:");
    // What lies under the captions is the last strata, not the first.
    EXPECT_GT(view->columnAt(view->columnWidth(0) + 2), 1);
    view->horizontalScrollBar()->setValue(0);
    EXPECT_FALSE(frozen->isVisible());
  }
  CModGlobal::Clear();
}

}  // namespace
}  // namespace zrsimprp

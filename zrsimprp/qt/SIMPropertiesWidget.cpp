#include "zrsimprp/qt/SIMPropertiesWidget.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QUndoStack>
#include <QVBoxLayout>
#include <algorithm>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/EventBoundary.h"
#include "zrsimprp/qt/InputToolTips.h"
#include "zrsimprp/qt/UndoRecorder.h"
#include "zrsimprp/qt/binders/ModelBinder.h"
#include "zrsimprp/qt/binders/TabControlBinder.h"
#include "zrsimprp/qt/grid/GridEditActions.h"
#include "zrsimprp/qt/grid/GridTableModel.h"
#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/grid/StrataColumnHeadings.h"
#include "zrsimprp/qt/grid/StrataRowFillMenu.h"
#include "zrsimprp/qt/map/MapCanvas.h"
#include "zrsimprp/qt/pages/CPagAnalysesView.h"
#include "zrsimprp/qt/pages/CPagDensityView.h"
#include "zrsimprp/qt/pages/CPagDetectabilityView.h"
#include "zrsimprp/qt/pages/CPagMiscView.h"
#include "zrsimprp/qt/pages/CPagPopulationCovarsView.h"
#include "zrsimprp/qt/pages/CPagPopulationDescriptionView.h"
#include "zrsimprp/qt/pages/CPagSimulationView.h"
#include "zrsimprp/qt/pages/InvalidSpotMarker.h"
#include "zrsimprp/qt/pages/PopulationTabView.h"

namespace zrsimprp {
namespace {

// Every page scrolls on its own when the control is smaller than the page.
QScrollArea* Scrolling(QWidget* page, QWidget* parent) {
  auto* area = new QScrollArea(parent);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  // The area itself shows no focus: Tab passes on to the page's fields.
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(page);
  return area;
}

}  // namespace

SIMPropertiesWidget::SIMPropertiesWidget(QWidget* parent)
    : QWidget(parent), control_(std::make_unique<SIMProperties>(platform_)) {
  platform_.SetDialogParent(this);
  EventBoundary::ReportThrough(this, platform_);
  outer_tabs_ = new QTabBar(this);
  outer_tabs_->setAccessibleName(QStringLiteral("Simulation definition"));
  outer_tabs_->setDrawBase(true);
  pages_ = new QStackedWidget(this);
  BuildPages();
  connect(outer_tabs_, &QTabBar::currentChanged, this, [this](int index) {
    if (index != CurrentOuterTab()) emit TabSwitching();
  });
  outer_binder_ = new TabControlBinder(control_->tapSimulationDefinition, outer_tabs_, pages_);
  connect(outer_tabs_, &QTabBar::currentChanged, this, &SIMPropertiesWidget::TabSwitched);
  connect(population_view_, &PopulationTabView::TabSwitching, this, &SIMPropertiesWidget::TabSwitching);
  connect(population_view_, &PopulationTabView::TabSwitched, this, &SIMPropertiesWidget::TabSwitched);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(outer_tabs_);
  layout->addWidget(pages_, 1);
  SetUpTabOrder();
  SetUpTabKeys();
  ForwardModelChanges();
  InputToolTips::Install(this);
  MarkInvalidSpots();
  SetUpUndo();
  FollowStrataHeadings();
}

void SIMPropertiesWidget::FollowStrataHeadings() {
  std::vector<GridTableModel*> tables;
  SIMProperties& control = *control_;
  const std::pair<const char*, Grid*> strata_tables[] = {
      {"flxConstantDensity", &control.pagDensity.flxConstantDensity},
      {"flxN", &control.pagPopulation.flxN},
      {"flxDetect", &control.pagDetectability.flxDetect}};
  for (const auto& [name, grid] : strata_tables) {
    if (auto* view = findChild<GridView*>(QString::fromLatin1(name))) {
      if (auto* model = qobject_cast<GridTableModel*>(view->model())) tables.push_back(model);
      auto* fill = new StrataRowFillMenu(*grid, view, control.pagSimulation);
      connect(fill, &StrataRowFillMenu::Reported, this, &SIMPropertiesWidget::StatusMessage);
    }
  }
  strata_headings_ = new StrataColumnHeadings(control_->pagSimulation, std::move(tables), this);
  LinkMapToTable();
}

void SIMPropertiesWidget::LinkMapToTable() {
  auto* canvas = density_view_->findChild<MapCanvas*>();
  auto* table = density_view_->findChild<GridView*>(QStringLiteral("flxConstantDensity"));
  if (canvas == nullptr || table == nullptr) return;
  // A stratum clicked on the map is the column a person goes to in the table, and back.
  connect(canvas, &MapCanvas::StratumClicked, table, [table](int stratum) {
    const QModelIndex cell = table->model()->index(1, stratum + 1);
    if (!cell.isValid()) return;
    table->setCurrentIndex(cell);
    table->scrollTo(cell);
  });
  connect(table->selectionModel(), &QItemSelectionModel::currentChanged, canvas,
          [canvas](const QModelIndex& current) { canvas->HighlightStratum(current.column() - 1); });
}

void SIMPropertiesWidget::SetUpUndo() {
  undo_recorder_ = new UndoRecorder(*control_, this);
  QUndoStack* stack = undo_recorder_->Stack();
  undo_action_ = stack->createUndoAction(this);
  undo_action_->setShortcuts(QKeySequence::Undo);
  redo_action_ = stack->createRedoAction(this);
  redo_action_->setShortcuts(
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  for (QAction* action : {undo_action_, redo_action_}) {
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(action);
  }
  // A field's own undo knows only that field: the keys go to the control's history instead.
  for (QWidget* field : findChildren<QWidget*>()) {
    if (qobject_cast<QLineEdit*>(field) != nullptr) field->installEventFilter(this);
  }
  for (GridEditActions* grid : findChildren<GridEditActions*>()) {
    connect(grid, &GridEditActions::Reported, this, &SIMPropertiesWidget::StatusMessage);
  }
  // Shown pages refresh after a step goes back or forth, as after any other change.
  connect(stack, &QUndoStack::indexChanged, this, [this] { RefreshNow(); });
}

QUndoStack* SIMPropertiesWidget::UndoStack() const { return undo_recorder_->Stack(); }

bool SIMPropertiesWidget::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    const auto* key = static_cast<QKeyEvent*>(event);
    for (const QAction* action : {undo_action_, redo_action_}) {
      if (action->shortcuts().contains(QKeySequence(key->keyCombination()))) {
        // Not taken by the field: the shortcut of this widget gets the key.
        event->ignore();
        return true;
      }
    }
  }
  return QWidget::eventFilter(watched, event);
}

void SIMPropertiesWidget::MarkInvalidSpots() {
  SIMProperties& control = *control_;
  for (PageControl* page : std::initializer_list<PageControl*>{
           &control.pagSimulation, &control.pagDensity, &control.pagPopulation, &control.pagCovariates,
           &control.pagDetectability, &control.pagAnalyses, &control.pagMisc}) {
    markers_.push_back(new InvalidSpotMarker(*page, this));
  }
}

QWidget* SIMPropertiesWidget::MarkedField() const {
  for (const InvalidSpotMarker* marker : markers_) {
    if (marker->MarkedWidget() != nullptr) return marker->MarkedWidget();
  }
  return nullptr;
}

QModelIndex SIMPropertiesWidget::MarkedCell() const {
  for (const InvalidSpotMarker* marker : markers_) {
    if (marker->MarkedWidget() != nullptr) return marker->MarkedCell();
  }
  return QModelIndex();
}

void SIMPropertiesWidget::ForwardModelChanges() {
  const QList<ModelBinder*> binders = findChildren<ModelBinder*>();
  binders_.assign(binders.begin(), binders.end());
  for (ModelBinder* binder : binders_) {
    connect(binder, &ModelBinder::ModelChanged, this, &SIMPropertiesWidget::ModelChanged);
  }
}

void SIMPropertiesWidget::SetUpTabKeys() {
  const auto bind = [this](const QKeySequence& keys, int step) {
    auto* shortcut = new QShortcut(keys, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, [this, step] { StepTab(step); });
  };
  bind(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
  bind(QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
  bind(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), -1);
  bind(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1);
  bind(QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1);
}

void SIMPropertiesWidget::StepTab(int step) {
  const int outer = CurrentOuterTab();
  // On the tab whose pages share it, the keys step through the inner strip first.
  if (PageTable::HasInnerTabs(outer)) {
    const int inner = CurrentInnerTab() + step;
    if (inner >= 1 && inner <= control_->tabsPopulationDescription.TabCount()) {
      ShowInnerTab(inner);
      return;
    }
  }
  const int count = control_->tapSimulationDefinition.TabCount();
  ShowOuterTab((outer + step + count) % count);
}

SIMPropertiesWidget::~SIMPropertiesWidget() {
  binders_.clear();
  // The history goes first: clearing it must not refresh views that are going.
  disconnect(undo_recorder_->Stack(), nullptr, this, nullptr);
  delete undo_recorder_;
  delete strata_headings_;
  // The views watch the model: they go before it does.
  for (InvalidSpotMarker* marker : markers_) delete marker;
  delete outer_tabs_;
  delete pages_;
}

void SIMPropertiesWidget::BuildPages() {
  SIMProperties& control = *control_;
  simulation_view_ = new CPagSimulationView(control.pagSimulation);
  density_view_ = new CPagDensityView(control.pagDensity);
  population_view_ =
      new PopulationTabView(control.tabsPopulationDescription, control.pagPopulation, control.pagCovariates);
  detectability_view_ = new CPagDetectabilityView(control.pagDetectability);
  analyses_view_ = new CPagAnalysesView(control.pagAnalyses);
  misc_view_ = new CPagMiscView(control.pagMisc);
  // The maps beside the Simulation and Density pages.
  simulation_view_->ShowMap();
  density_view_->ShowMap(control.pagSimulation);
  // An error a person's action on a page raises is reported under that page's name.
  EventBoundary::ReportAsPage(simulation_view_, PageId::kSimulation);
  EventBoundary::ReportAsPage(density_view_, PageId::kDensity);
  EventBoundary::ReportAsPage(population_view_->PopulationView(), PageId::kGeneral);
  EventBoundary::ReportAsPage(population_view_->CovariatesView(), PageId::kCovariates);
  EventBoundary::ReportAsPage(detectability_view_, PageId::kDetectability);
  EventBoundary::ReportAsPage(analyses_view_, PageId::kAnalysis);
  EventBoundary::ReportAsPage(misc_view_, PageId::kMisc);
  for (QWidget* page : std::initializer_list<QWidget*>{simulation_view_, density_view_, population_view_,
                                                       detectability_view_, analyses_view_, misc_view_}) {
    pages_->addWidget(Scrolling(page, pages_));
  }
}

void SIMPropertiesWidget::SetUpTabOrder() {
  std::vector<QWidget*> chain{outer_tabs_};
  const auto append = [&chain](const std::vector<QWidget*>& widgets) {
    chain.insert(chain.end(), widgets.begin(), widgets.end());
  };
  append(simulation_view_->FocusChain());
  append(density_view_->FocusChain());
  append(population_view_->FocusChain());
  append(detectability_view_->FocusChain());
  append(analyses_view_->FocusChain());
  append(misc_view_->FocusChain());
  for (size_t i = 1; i < chain.size(); ++i) QWidget::setTabOrder(chain[i - 1], chain[i]);
}

std::string SIMPropertiesWidget::Definition() { return control_->Definition(); }
void SIMPropertiesWidget::SetDefinition(const std::string& text) { control_->SetDefinition(text); }
void SIMPropertiesWidget::SetProjectDatabase(std::shared_ptr<ProjectDatabase> database) {
  control_->SetProjectDatabase(std::move(database));
}
bool SIMPropertiesWidget::IsValid() { return control_->IsValid(); }
// Undo goes back no further than the state the host set up.
void SIMPropertiesWidget::Initialize() {
  strata_headings_->ReloadAfter([this] { control_->Initialize(); });
  undo_recorder_->Reset();
}
void SIMPropertiesWidget::ResetDefinition() {
  strata_headings_->ReloadAfter([this] { control_->ResetDefinition(); });
  undo_recorder_->Reset();
}

SIMProperties& SIMPropertiesWidget::Control() { return *control_; }
QtPlatform& SIMPropertiesWidget::Platform() { return platform_; }

void SIMPropertiesWidget::ShowOuterTab(int index) {
  emit TabSwitching();
  EventBoundary::Run(this, "TabControl_Click",
                     [this, index] { control_->tapSimulationDefinition.UserSelectTab(index); });
  RefreshNow();
  emit TabSwitched();
}

void SIMPropertiesWidget::ShowInnerTab(int index) {
  emit TabSwitching();
  EventBoundary::Run(this, "TabStrip_Click",
                     [this, index] { control_->tabsPopulationDescription.UserClickTab(index); });
  RefreshNow();
  emit TabSwitched();
}

QSize SIMPropertiesWidget::sizeHint() const {
  QSize pages(0, 0);
  for (int i = 0; i < pages_->count(); ++i) {
    const auto* area = qobject_cast<const QScrollArea*>(pages_->widget(i));
    const QWidget* page = area != nullptr ? area->widget() : pages_->widget(i);
    if (page != nullptr) pages = pages.expandedTo(page->sizeHint());
  }
  const QSize bar = outer_tabs_->sizeHint();
  return QSize(std::max(bar.width(), pages.width()), bar.height() + pages.height());
}

int SIMPropertiesWidget::CurrentOuterTab() const { return control_->tapSimulationDefinition.CurrentTab(); }
int SIMPropertiesWidget::CurrentInnerTab() const {
  return control_->tabsPopulationDescription.SelectedIndex();
}

QTabBar* SIMPropertiesWidget::InnerTabBar() const { return population_view_->InnerTabBar(); }

void SIMPropertiesWidget::RefreshNow() {
  for (ModelBinder* binder : binders_) {
    if (binder->RefreshPending()) binder->RefreshNow();
  }
}

QImage SIMPropertiesWidget::Render() {
  RefreshNow();
  if (layout() != nullptr) layout()->activate();
  if (!isVisible() && size().width() < 200) resize(sizeHint().expandedTo(QSize(640, 480)));
  return grab().toImage();
}

}  // namespace zrsimprp

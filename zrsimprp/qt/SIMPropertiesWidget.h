#pragma once

#include <QImage>
#include <QModelIndex>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/qt/QtPlatform.h"

class QAction;
class QScrollArea;
class QUndoStack;
class QStackedWidget;
class QTabBar;

namespace zrsimprp {

class ProjectDatabase;
class SIMProperties;
class TabControlBinder;
class InvalidSpotMarker;
class ModelBinder;
class UndoRecorder;
class StrataColumnHeadings;
class CPagSimulationView;
class CPagDensityView;
class PopulationTabView;
class CPagDetectabilityView;
class CPagAnalysesView;
class CPagMiscView;

// The embeddable control: the six outer tabs and their pages, drawn from a SIMProperties that this
// widget owns together with the platform it runs on. All behaviour is the model's; this widget only
// shows it and passes a person's actions on.
class SIMPropertiesWidget : public QWidget {
  Q_OBJECT

 public:
  explicit SIMPropertiesWidget(QWidget* parent = nullptr);
  ~SIMPropertiesWidget() override;

  // The public interface of the control (errors of Initialize and ResetDefinition reach the caller).
  std::string Definition();
  void SetDefinition(const std::string& text);
  void SetProjectDatabase(std::shared_ptr<ProjectDatabase> database);
  bool IsValid();
  void Initialize();
  void ResetDefinition();

  SIMProperties& Control();
  QtPlatform& Platform();

  // Every step a person takes on the pages, back to the state after Initialize: each cell edit, each
  // paste, clear or fill, each text typed into a field until it is left, each tick, option and list
  // choice. Ctrl+Z undoes, Ctrl+Shift+Z and Ctrl+Y redo.
  QUndoStack* UndoStack() const;
  // The undo and redo actions (with the step's name, "Undo paste of 281 cells") and their keys, for a
  // host's Edit menu.
  QAction* UndoAction() const { return undo_action_; }
  QAction* RedoAction() const { return redo_action_; }

  // A person's click on outer tab `index` (0-5) or inner tab `index` (1-2); the model may refuse.
  void ShowOuterTab(int index);
  void ShowInnerTab(int index);
  int CurrentOuterTab() const;
  int CurrentInnerTab() const;

  // Room for the tab bar and the largest page, so that no page needs its scroll bars.
  QSize sizeHint() const override;

  // Brings every view up to date with the model now instead of at the next turn of the event loop.
  void RefreshNow();
  // The control as it is drawn now, pending refreshes applied; for screenshots and documentation.
  QImage Render();

  // The field or grid the last refused check pointed at (null when none), and the grid cell.
  QWidget* MarkedField() const;
  QModelIndex MarkedCell() const;

  QTabBar* OuterTabBar() const { return outer_tabs_; }
  QTabBar* InnerTabBar() const;

  // Ctrl+Tab / Ctrl+PgDn (step +1) and Ctrl+Shift+Tab / Ctrl+PgUp (step -1): on the Population tab
  // the inner tab moves first, as in nested tab widgets; the outer tab moves through the same
  // checks as a click, wrapping round at the ends.
  void StepTab(int step);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  // Something in the model changed; sent at most once per turn of the event loop per control.
  void ModelChanged();
  // A person moves a tab (outer or inner): before the model hears of it, and after (whether the model
  // accepted the move or not). Entering a page may rebuild what the page derives from the others.
  void TabSwitching();
  void TabSwitched();
  // What a block action in a grid did ("Pasted 281 cells, skipped 2 that cannot be changed here."),
  // for a host's status bar.
  void StatusMessage(const QString& message);

 private:
  void BuildPages();
  void SetUpTabOrder();
  void SetUpTabKeys();
  void ForwardModelChanges();
  void MarkInvalidSpots();
  void SetUpUndo();
  void FollowStrataHeadings();
  void LinkMapToTable();

  QtPlatform platform_;
  std::unique_ptr<SIMProperties> control_;
  QTabBar* outer_tabs_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  TabControlBinder* outer_binder_ = nullptr;
  CPagSimulationView* simulation_view_ = nullptr;
  CPagDensityView* density_view_ = nullptr;
  PopulationTabView* population_view_ = nullptr;
  CPagDetectabilityView* detectability_view_ = nullptr;
  CPagAnalysesView* analyses_view_ = nullptr;
  CPagMiscView* misc_view_ = nullptr;
  std::vector<InvalidSpotMarker*> markers_;
  // Every binder of every page, made with the pages and living as long as they do; kept so that a
  // refresh need not search the widget tree for them.
  std::vector<ModelBinder*> binders_;
  UndoRecorder* undo_recorder_ = nullptr;
  StrataColumnHeadings* strata_headings_ = nullptr;
  QAction* undo_action_ = nullptr;
  QAction* redo_action_ = nullptr;
};

}  // namespace zrsimprp

#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/map/KeptMapLayers.h"
#include "zrsimprp/map/MapLayers.h"
#include "zrsimprp/map/MapModel.h"
#include "zrsimprp/qt/map/SettledWatch.h"

namespace zrsimprp {

class CPagDensity;
class CPagSimulation;
class MapCanvas;
class ProjectDatabase;

// The map beside the Density page: the chosen region layer's strata and the relative density surface
// as the page's controls stand. Every change to those controls (and to the Simulation page's layer)
// redraws it a moment later; a large grid is computed on a worker thread, and only the newest
// computation is shown, so typing never waits for the map.
class DensityMapPanel : public QWidget {
  Q_OBJECT

 public:
  // The pause after the last change before the map is recomputed.
  static constexpr int kSettleMs = 50;
  // Grids up to this many cells are computed at once on the GUI thread; larger ones on a worker.
  static constexpr double kInlineCells = 200'000;

  DensityMapPanel(CPagDensity& density, CPagSimulation& simulation, QWidget* parent = nullptr);
  ~DensityMapPanel() override;

  // Recomputes now (waiting for a worker if one is needed): for screenshots and tests.
  void RedrawNow();
  const std::shared_ptr<const MapModel>& Model() const { return model_; }
  // Completed recomputations, for tests: increases each time a new model is shown.
  int64_t Redraws() const { return redraws_; }

 protected:
  // A map about to be seen is brought up to date first, rather than a moment after.
  void showEvent(QShowEvent* event) override;

 private:
  void Recompute(bool wait);
  void Finished(std::shared_ptr<const MapModel> model, int64_t generation);
  void Show(std::shared_ptr<const MapModel> model, int64_t generation);

  CPagDensity& density_;
  CPagSimulation& simulation_;
  MapCanvas* canvas_;
  QLabel* status_;
  SettledWatch settle_;
  KeptMapLayers kept_;
  std::shared_ptr<const MapModel> model_;
  int64_t generation_ = 0;
  bool computing_ = false;  // a worker is computing
  bool again_ = false;      // an edit arrived meanwhile
  int64_t redraws_ = 0;
};

}  // namespace zrsimprp

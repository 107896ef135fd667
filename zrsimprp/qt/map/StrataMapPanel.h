#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <string>

#include "zrsimprp/map/MapLayers.h"
#include "zrsimprp/map/MapModel.h"
#include "zrsimprp/qt/map/SettledWatch.h"

namespace zrsimprp {

class CPagSimulation;
class MapCanvas;
class ProjectDatabase;

// The small map on the Simulation page: the chosen region / strata layer, each stratum in its own
// colour, so that a person sees which layer they picked.
class StrataMapPanel : public QWidget {
  Q_OBJECT

 public:
  explicit StrataMapPanel(CPagSimulation& simulation, QWidget* parent = nullptr);
  ~StrataMapPanel() override;

  void RedrawNow();
  const std::shared_ptr<const MapModel>& Model() const { return model_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Recompute();

  CPagSimulation& simulation_;
  MapCanvas* canvas_;
  QLabel* status_;
  SettledWatch settle_;
  std::shared_ptr<ProjectDatabase> database_;
  std::string layer_;
  std::shared_ptr<const MapModel> model_;
};

}  // namespace zrsimprp

#pragma once

#include <memory>

#include "zrsimprp/map/MapLayers.h"

namespace zrsimprp {

class CPagDensity;
class CPagSimulation;
class ProjectDatabase;

// The layers a map panel draws from, as the Density and Simulation pages choose them: read from the
// project again only when the project, the region layer or the DSM layer and field change, and then
// only the part that changed. Shared read-only with the computations that use them.
class KeptMapLayers {
 public:
  // Brings the layers up to date with `database` and the pages' choices; never null after this.
  void Follow(const std::shared_ptr<ProjectDatabase>& database, CPagDensity& density,
              CPagSimulation& simulation);

  // The project the layers were last read from; null when there is none.
  const std::shared_ptr<ProjectDatabase>& Database() const { return database_; }
  // Null until Follow is first called.
  const std::shared_ptr<const MapLayers>& Layers() const { return layers_; }

 private:
  std::shared_ptr<ProjectDatabase> database_;
  std::shared_ptr<const MapLayers> layers_;
};

}  // namespace zrsimprp

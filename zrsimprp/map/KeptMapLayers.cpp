#include "zrsimprp/map/KeptMapLayers.h"

#include <string>

#include "zrsimprp/pages/CPagDensity/CPagDensity.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"

namespace zrsimprp {

void KeptMapLayers::Follow(const std::shared_ptr<ProjectDatabase>& database, CPagDensity& density,
                           CPagSimulation& simulation) {
  const std::string region = simulation.cboRegionLayer.Text();
  const bool dsm = density.optDensity.Selected() == 2;
  const std::string dsm_layer = dsm ? density.cboLayer.Text() : "";
  const std::string dsm_field = dsm ? density.cboField.Text() : "";
  const bool same_project = layers_ && database == database_;
  const bool same_region = same_project && layers_->region_layer == region;
  const bool same_dsm = same_project && layers_->dsm_layer == dsm_layer && layers_->dsm_field == dsm_field;
  if (same_region && same_dsm) return;
  // The host's project is read here, on its own thread; the computations only see the copies.
  auto next = layers_ ? std::make_shared<MapLayers>(*layers_) : std::make_shared<MapLayers>();
  if (!same_region) MapLayers::LoadRegion(*next, database, region);
  if (!same_dsm) MapLayers::LoadDsm(*next, database, dsm_layer, dsm_field);
  database_ = database;
  layers_ = std::move(next);
}

}  // namespace zrsimprp

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/host/Variant.h"
#include "zrsimprp/map/MapExtent.h"

namespace zrsimprp {

class ProjectDatabase;

// The geometry a map is drawn from, read from the host once per chosen layer (on the thread that owns
// the project) and then shared read-only with the computations of the surface.
struct MapLayers {
  std::string region_layer;
  std::shared_ptr<const LayerShapes> region;  // null: nothing to draw, `region_notice` says why
  std::string region_notice;
  MapExtent region_extent;  // of every point of the region layer

  std::string dsm_layer;
  std::string dsm_field;
  std::shared_ptr<const LayerShapes> dsm;  // null: `dsm_notice` says why
  std::vector<Variant> dsm_values;         // the field's value per record of the DSM layer
  std::string dsm_notice;

  // The region layer's polygons; a host without the geometry interface, no layer, or a layer without
  // polygons each leave `region` null with a sentence in `region_notice`. Never throws.
  static void LoadRegion(MapLayers& layers, const std::shared_ptr<ProjectDatabase>& database,
                         const std::string& layer_name);
  // The DSM layer's polygons and the chosen field's values. Never throws.
  static void LoadDsm(MapLayers& layers, const std::shared_ptr<ProjectDatabase>& database,
                      const std::string& layer_name, const std::string& field);
};

// The host's geometry interface when its project database offers one, else null.
std::shared_ptr<LayerGeometrySource> GeometrySourceOf(const std::shared_ptr<ProjectDatabase>& database);

}  // namespace zrsimprp

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/map/DensityMapInputs.h"
#include "zrsimprp/map/MapLayers.h"

namespace zrsimprp::map_test {

inline std::vector<MapPoint> Box(double x0, double y0, double x1, double y1) {
  return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

// Two 10 by 10 strata side by side: West [0,10]x[0,10] and East [10,20]x[0,10]. West has a 2 by 2
// hole at [4,6]x[4,6].
inline std::vector<std::vector<MapPolygon>> TwoStrataShapes() {
  return {{MapPolygon{{Box(0, 0, 10, 10), Box(4, 4, 6, 6)}}}, {MapPolygon{{Box(10, 0, 20, 10)}}}};
}

// The layer "Blocks" of those strata (records only; the shapes are given separately).
inline MemoryProjectDatabase::LayerData TwoStrataLayer() {
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Blocks";
  layer.kind = 1;
  layer.id_field = "ID";
  layer.label_field = "Name";
  layer.ids = {Variant(int32_t{1}), Variant(int32_t{2})};
  layer.labels = {Variant(std::string("West")), Variant(std::string("East"))};
  return layer;
}

inline std::shared_ptr<MemoryProjectDatabase> TwoStrataProject() {
  auto project = std::make_shared<MemoryProjectDatabase>();
  project->AddLayer(TwoStrataLayer());
  project->SetLayerShapes("Blocks", TwoStrataShapes(), {"EPSG:32630", false});
  return project;
}

inline MapLayers LoadedLayers(const std::shared_ptr<ProjectDatabase>& project, const std::string& layer) {
  MapLayers layers;
  MapLayers::LoadRegion(layers, project, layer);
  return layers;
}

inline DensityMapInputs UniformInputs(const std::string& west, const std::string& east,
                                      const std::string& spacing = "1") {
  DensityMapInputs inputs;
  inputs.description = "Uniform";
  inputs.strata = {"West", "East"};
  inputs.densities = {west, east};
  inputs.grid_spacing = spacing;
  return inputs;
}

}  // namespace zrsimprp::map_test

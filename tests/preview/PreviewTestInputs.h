#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/preview/PreviewInputs.h"

namespace zrsimprp::preview_test {

inline std::vector<MapPoint> Box(double x0, double y0, double x1, double y1) {
  return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

// Two strata: West, a 1000 by 1000 square with a 200 by 200 hole in its middle, and East, a
// multipolygon of a 1000 by 1000 square and a detached 300 by 300 island with a 100 by 100 hole.
inline std::shared_ptr<LayerShapes> HolesAndParts() {
  auto shapes = std::make_shared<LayerShapes>();
  StratumGeometry west;
  west.id = "1";
  west.label = "West";
  west.polygons = {MapPolygon{{Box(0, 0, 1000, 1000), Box(400, 400, 600, 600)}}};
  StratumGeometry east;
  east.id = "2";
  east.label = "East";
  east.polygons = {MapPolygon{{Box(1000, 0, 2000, 1000)}},
                   MapPolygon{{Box(2100, 300, 2400, 600), Box(2200, 400, 2300, 500)}}};
  shapes->strata = {west, east};
  return shapes;
}

// A half-normal simulation of Fixed N on those strata, parallel lines 250 apart, truncation 50.
inline PreviewInputs HolesAndPartsInputs() {
  PreviewInputs inputs;
  inputs.strata = {"West", "East"};
  inputs.layers.region_layer = "Blocks";
  inputs.layers.region = HolesAndParts();
  for (const auto& stratum : inputs.layers.region->strata) {
    for (const auto& polygon : stratum.polygons) {
      for (const auto& point : polygon.rings.front()) inputs.layers.region_extent.Include(point.x, point.y);
    }
  }
  inputs.density.description = "Uniform";
  inputs.density.strata = {"West", "East"};
  inputs.density.densities = {"1", "1"};
  inputs.density.grid_spacing = "20";
  inputs.population_size = "Fixed N";
  inputs.population_values = {"300", "500"};
  inputs.key_function = "Half-Normal";
  inputs.detection_columns = {"Study Area"};
  inputs.parameter_names = {"Scale", "Shape"};
  inputs.parameters = {{"20"}, {""}};
  inputs.design.found = true;
  inputs.design.name = "Lines";
  inputs.design.type = "Parallel";
  inputs.design.spacing = "250";
  inputs.design.truncation = "50";
  return inputs;
}

}  // namespace zrsimprp::preview_test

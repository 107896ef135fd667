#pragma once

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/map/DensityMapInputs.h"
#include "zrsimprp/map/MapLayers.h"

namespace zrsimprp::map_bench {

// `count` strata tiling a 100 km wide region in rows of 100, each a 1 km cell drawn as a 16-sided
// ring with a slight wobble (so edges are not grid-aligned), every tenth with a hole.
inline MapLayers TiledLayers(int count) {
  auto shapes = std::make_shared<LayerShapes>();
  constexpr int kPerRow = 100;
  constexpr double kSize = 1000;
  for (int i = 0; i < count; ++i) {
    const double x0 = (i % kPerRow) * kSize;
    const double y0 = (i / kPerRow) * kSize;
    MapPolygon polygon;
    std::vector<MapPoint> ring;
    for (int k = 0; k < 16; ++k) {
      const double angle = 2 * M_PI * k / 16;
      const double radius = 0.5 * kSize * (1.0 + 0.02 * std::sin(3 * angle + i));
      ring.push_back({x0 + kSize / 2 + radius * std::cos(angle), y0 + kSize / 2 + radius * std::sin(angle)});
    }
    polygon.rings.push_back(ring);
    if (i % 10 == 0) {
      polygon.rings.push_back(
          {{x0 + 400, y0 + 400}, {x0 + 400, y0 + 600}, {x0 + 600, y0 + 600}, {x0 + 600, y0 + 400}});
    }
    shapes->strata.push_back({std::to_string(i + 1), "S" + std::to_string(i + 1), {polygon}});
  }
  MapLayers layers;
  layers.region_layer = "Tiles";
  for (const StratumGeometry& stratum : shapes->strata) {
    for (const MapPoint& point : stratum.polygons.front().rings.front())
      layers.region_extent.Include(point.x, point.y);
  }
  layers.region = shapes;
  return layers;
}

inline DensityMapInputs UniformFor(const MapLayers& layers, const std::string& spacing) {
  DensityMapInputs inputs;
  inputs.description = "Uniform";
  inputs.grid_spacing = spacing;
  for (size_t i = 0; i < layers.region->strata.size(); ++i) {
    inputs.strata.push_back(layers.region->strata[i].label);
    inputs.densities.push_back(std::to_string(1 + i % 7));
  }
  inputs.hotspots = {{"20000", "20000", "3000", "4"}, {"70000", "30000", "5000", "2"}};
  return inputs;
}

}  // namespace zrsimprp::map_bench

// Reads arbitrary bytes as a GeoPackage geometry blob and, when they give polygons, computes a density
// map over them. Refusal is fine; a crash, a hang or a sanitizer report is a bug.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "projectdb/GeoPackageGeometryReader.h"
#include "zrsimprp/map/DensityMapBuilder.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  // The first byte picks the grid spacing; the rest is the blob.
  const std::string spacing = std::to_string(1 + data[0]);
  const std::string blob(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::vector<zrsimprp::MapPolygon> polygons;
  std::string problem;
  if (!zrsimprp::GeoPackageGeometryReader::Read(blob, polygons, problem)) return 0;
  auto shapes = std::make_shared<zrsimprp::LayerShapes>();
  shapes->strata.push_back({"1", "Fuzzed", polygons});
  zrsimprp::MapLayers layers;
  layers.region_layer = "Fuzzed";
  for (const zrsimprp::MapPolygon& polygon : polygons) {
    for (const auto& ring : polygon.rings) {
      for (const zrsimprp::MapPoint& point : ring) layers.region_extent.Include(point.x, point.y);
    }
  }
  layers.region = shapes;
  zrsimprp::DensityMapInputs inputs;
  inputs.description = "Uniform";
  inputs.strata = {"Fuzzed"};
  inputs.densities = {"2"};
  inputs.grid_spacing = spacing;
  inputs.hotspots = {{"0", "0", "1", "1"}};
  const zrsimprp::MapModel model = zrsimprp::DensityMapBuilder::Build(layers, inputs);
  if (model.HasSurface()) (void)model.ValueAt(0, 0);
  return 0;
}

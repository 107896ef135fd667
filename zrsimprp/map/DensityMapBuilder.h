#pragma once

#include <array>
#include <string>
#include <vector>

#include "zrsimprp/map/DensityMapInputs.h"
#include "zrsimprp/map/MapLayers.h"
#include "zrsimprp/map/MapModel.h"
#include "zrsimprp/surface/DensitySurfaceReading.h"

namespace zrsimprp {

// Computes the map of a Density page from the loaded geometry and the page's values as typed. Pure and
// free of shared state, so it runs on any thread. A value it cannot use becomes a sentence in the
// model's notices; it never throws for anything typed.
class DensityMapBuilder {
 public:
  // More cells than this are not drawn: the grid spacing is then too small for the map.
  static constexpr double kMaxCells = 4'000'000;
  // Nor are outlines that cross the grid's rows more often than this (thousands of long zigzag
  // edges at a fine spacing): laying the grid over them would take seconds.
  static constexpr double kMaxCrossings = 16'000'000;

  // `previous` (may be null) is the last model built for this page: its grid is reused when the layer
  // and the spacing are the same, so editing a density or the formula does not rasterise again.
  static MapModel Build(const MapLayers& layers, const DensityMapInputs& inputs,
                        const MapModel* previous = nullptr);

  // The Simulation page's small map: the region layer's strata, each in its own colour.
  static MapModel StrataOnly(const MapLayers& layers);

 private:
  struct Hotspot {
    HotspotMark mark;
    bool usable = false;
  };

  static void AddOutlines(MapModel& model, const MapLayers& layers);
  static bool ReadSpacing(const std::string& text, const DensitySurfaceReading& reading, MapModel& model,
                          double& spacing);
  static std::vector<Hotspot> ReadHotspots(const DensityMapInputs& inputs,
                                           const DensitySurfaceReading& reading, MapModel& model);
  static bool UniformValues(const DensityMapInputs& inputs, const DensitySurfaceReading& reading,
                            MapModel& model);
  static bool FormulaValues(const DensityMapInputs& inputs, const DensitySurfaceReading& reading,
                            MapModel& model);
  static bool DsmValues(const MapLayers& layers, MapModel& model);
  static void AddBumps(const std::vector<Hotspot>& hotspots, MapModel& model);
  // False when the bumps pushed a value beyond what the surface holds.
  static bool FindRange(MapModel& model);
  static std::string StratumName(const DensityMapInputs& inputs, const MapModel& model, size_t index);
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/map/ColourStops.h"
#include "zrsimprp/map/MapExtent.h"
#include "zrsimprp/map/StrataRaster.h"

namespace zrsimprp {

// A stratum's name where the map writes it.
struct MapLabel {
  std::string text;
  MapPoint at;
};

// A hotspot as typed on the Density page: a mark at its centre and a circle of one sigma.
struct HotspotMark {
  int32_t row = 0;  // the hotspot grid's row, from 1
  MapPoint centre;
  double sigma = 0;
  double amplitude = 0;
  bool inside = true;  // the centre lies in a stratum
};

// Everything a view needs to draw the map, and nothing it has to compute: the strata outlines and
// labels, the relative density evaluated on the grid (NaN outside the strata or where it cannot be
// computed), the value range, the hotspot marks, and the sentences that say what cannot be drawn.
struct MapModel {
  std::string layer_name;
  std::shared_ptr<const LayerShapes> strata;  // null: nothing to draw (see notices)
  MapExtent extent;
  std::vector<MapLabel> labels;
  bool geographic = false;
  bool metres = false;  // projected in metres: the scale bar reads m or km
  std::string reference_name;
  // True on the Simulation page's small map: strata filled in distinct colours, no surface.
  bool colour_by_stratum = false;

  std::shared_ptr<const StrataRaster> raster;  // the grid of the typed spacing, when it is usable
  std::vector<float> values;                   // one per raster cell; empty without a surface
  double value_min = 0;
  double value_max = 0;
  ColourStops colour_stops;  // where each value sits on the colour scale
  std::string legend;        // how to read the colours

  std::vector<HotspotMark> hotspots;
  // Plain sentences, each naming the field it is about; shown on the map, never as a message box.
  std::vector<std::string> notices;

  bool Drawable() const { return strata != nullptr; }
  bool HasSurface() const { return raster != nullptr && !values.empty(); }
  // The surface value at a point, NaN off the surface.
  double ValueAt(double x, double y) const;
  // The index of the stratum under a point (exact, holes excluded), or -1.
  int32_t StratumAtPoint(double x, double y) const;
  // The status line for the cursor at a map point: its x, y and value.
  std::string Describe(double x, double y) const;
};

}  // namespace zrsimprp

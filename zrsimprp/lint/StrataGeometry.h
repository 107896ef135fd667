#pragma once

#include <cstddef>
#include <vector>

#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/map/MapExtent.h"

namespace zrsimprp {

// The polygons of a strata layer as the lint measures them: where the region is, whether a point lies
// in a stratum, how far it is from the region, and which strata a grid of some spacing leaves without
// a cell centre. The grid is the map's: cells from the lower-left corner of the layer's extent.
// Built once per layer; every question costs the layer's edges at most, never cells times edges.
class StrataGeometry {
 public:
  explicit StrataGeometry(LayerShapes shapes);

  const LayerShapes& Shapes() const { return shapes_; }
  // Of every finite point of the layer.
  const MapExtent& Extent() const { return extent_; }
  bool Geographic() const { return shapes_.reference.geographic; }
  std::size_t StratumCount() const { return shapes_.strata.size(); }

  // True when a stratum's polygons hold the point (holes are outside).
  bool InsideAStratum(double x, double y) const;
  // The shortest distance from the point to an edge of any stratum, in the layer's units.
  double DistanceToRegion(double x, double y) const;
  // The cells a grid of `spacing` lays over the extent (as a double, so that tiny spacings do not wrap).
  double CellCount(double spacing) const;
  // The strata (indices in layer order) that hold no cell centre of a grid of `spacing`.
  std::vector<std::size_t> StrataWithoutCellCentre(double spacing) const;

  // The most rows times edges one stratum is searched for a cell centre.
  static constexpr double kMaxRowEdgeWork = 50'000'000;

 private:
  bool HoldsCellCentre(std::size_t stratum, double spacing) const;

  LayerShapes shapes_;
  MapExtent extent_;
  std::vector<MapExtent> stratum_extents_;
};

}  // namespace zrsimprp

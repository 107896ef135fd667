#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zrsimprp {

// A point in the layer's own coordinates (map units, or degrees for a geographic reference).
struct MapPoint {
  double x = 0;
  double y = 0;
};

// One polygon: the outer ring first, then its holes. Rings need not repeat their first point.
struct MapPolygon {
  std::vector<std::vector<MapPoint>> rings;
};

// The shape of one stratum (one record of the layer): a polygon or a multipolygon.
struct StratumGeometry {
  std::string id;     // the record's identifier, as text
  std::string label;  // "" when the layer has no label field
  std::vector<MapPolygon> polygons;
};

// The coordinate reference of a layer, as far as the host knows it.
struct CoordinateReference {
  std::string name;         // e.g. "EPSG:32630" or "WGS 84"; "" when undefined
  bool geographic = false;  // coordinates are longitude and latitude in degrees
  bool metres = false;      // projected coordinates measured in metres
};

struct LayerShapes {
  CoordinateReference reference;
  // One entry per record, in the order the layer's GetRows gives its records, so entry i is the
  // stratum the Simulation page lists at position i.
  std::vector<StratumGeometry> strata;
};

// Optional host interface: the polygons of a layer, for drawing the strata and the density surface.
// A host offers it by having its ProjectDatabase object also derive from this class; the control finds
// it with std::dynamic_pointer_cast<LayerGeometrySource>(database). A host without it gets every page
// as before and a map that says there is nothing to draw.
class LayerGeometrySource {
 public:
  virtual ~LayerGeometrySource() = default;
  // The layer of that name (case ignored), or no value when the host knows no such layer. A failing
  // read throws RuntimeError with "LayerGeometrySource" as source.
  virtual std::optional<LayerShapes> LayerGeometry(const std::string& layer_name) = 0;
};

}  // namespace zrsimprp

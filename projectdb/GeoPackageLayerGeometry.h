#pragma once

#include <optional>
#include <string>

#include "zrsimprp/host/LayerGeometrySource.h"

namespace zrsimprp {

class SqliteConnection;

// The map geometry of a project layer: its feature table's polygons, one entry per record in the order
// the layer's GetRows gives them, with the identifier and label fields the layer names, and the layer's
// coordinate reference from gpkg_spatial_ref_sys.
class GeoPackageLayerGeometry {
 public:
  // No value when the project has no layer of that name (case ignored) or its table has no geometry
  // column. A damaged geometry raises RuntimeError (source "LayerGeometrySource") naming the feature.
  static std::optional<LayerShapes> Read(SqliteConnection& connection, const std::string& layer_name);

  // The coordinate reference of a spatial reference system identifier.
  static CoordinateReference Reference(SqliteConnection& connection, int32_t srs_id);
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "projectdb/GeoPackageGeometry.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/PolygonFeature.h"

namespace zrsimprp {

class SqliteConnection;

// The project's map layers: the layer table, the feature tables it names and their registration as
// GeoPackage contents. A writing call runs inside the caller's write transaction.
class ProjectLayerTables {
 public:
  // A feature table's registration in gpkg_contents and gpkg_geometry_columns.
  struct FeatureTable {
    std::string table;
    std::string identifier;
    std::string geometry_column;
    std::string geometry_type;
    int32_t srs_id = 0;
    GeoPackageGeometry::Envelope extent;
    int32_t z = 0;
    int32_t m = 0;
  };

  explicit ProjectLayerTables(SqliteConnection& connection) : connection_(connection) {}

  // In the order they were added.
  std::vector<GeoPackageProject::LayerInfo> Layers();
  // RuntimeError when the project has no layer of that name (case ignored).
  int64_t FeatureCount(const std::string& layer_name);
  // True when the spatial reference system measures in degrees.
  bool IsGeographic(int32_t srs_id);

  // Writes a new layer of `features`, encoded as GeoPackage polygons.
  void AddLayer(const GeoPackageProject::LayerInfo& layer, const std::vector<PolygonFeature>& features,
                int32_t srs_id);

  // The steps a new layer of any origin takes.
  // Refuses a layer name in use, or a parent the project does not have.
  void CheckPlacement(const std::string& name, const std::string& parent);
  // A table name derived from the layer name, unused in the file and clear of the reserved prefixes.
  std::string NewTableName(const std::string& layer_name);
  void Register(const FeatureTable& table);
  void InsertLayerRow(const GeoPackageProject::LayerInfo& info);

 private:
  static void CheckFields(const GeoPackageProject::LayerInfo& layer);
  static void CheckFeatures(const std::string& layer, const std::vector<PolygonFeature>& features,
                            bool id_is_fid);
  void CheckSpatialReference(int32_t srs_id);
  static std::string CreateFeatureTableSql(const GeoPackageProject::LayerInfo& layer,
                                           const std::string& geometry_type);
  static std::string InsertFeatureSql(const GeoPackageProject::LayerInfo& layer);

  SqliteConnection& connection_;
};

}  // namespace zrsimprp

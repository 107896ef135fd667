#include "projectdb/ProjectLayerTables.h"

#include <cctype>
#include <unordered_set>

#include "projectdb/ProjectChecks.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

std::string Quote(const std::string& identifier) { return SqliteConnection::QuoteIdentifier(identifier); }

bool StartsWith(const std::string& text, const char* prefix) { return text.rfind(prefix, 0) == 0; }

// Geographic systems measure in degrees: WKT 1 GEOGCS, WKT 2 GEOGCRS, or the undefined geographic one.
bool IsGeographicDefinition(int64_t srs_id, const std::string& definition) {
  if (srs_id == 0) return true;
  std::string upper;
  for (const char c : definition) {
    if (!std::isspace(static_cast<unsigned char>(c))) upper += static_cast<char>(std::toupper(c));
  }
  if (StartsWith(upper, "GEOGCS[") || StartsWith(upper, "GEOGCRS[") || StartsWith(upper, "GEOGRAPHICCRS[")) {
    return true;
  }
  return (StartsWith(upper, "GEODCRS[") || StartsWith(upper, "GEODETICCRS[")) &&
         upper.find("CS[ELLIPSOIDAL") != std::string::npos;
}

bool IsIdFid(const GeoPackageProject::LayerInfo& layer) { return TextEquals(layer.id_field, "fid"); }

}  // namespace

std::vector<GeoPackageProject::LayerInfo> ProjectLayerTables::Layers() {
  using LayerInfo = GeoPackageProject::LayerInfo;
  SqliteStatement rows = connection_.Prepare(std::string("SELECT ") + LayerInfo::kColumns + " FROM " +
                                             ProjectSchema::kLayersTable + " ORDER BY fid");
  std::vector<LayerInfo> layers;
  while (rows.Step()) layers.push_back(LayerInfo::FromRow(rows));
  return layers;
}

int64_t ProjectLayerTables::FeatureCount(const std::string& layer_name) {
  for (const GeoPackageProject::LayerInfo& layer : Layers()) {
    if (!TextEquals(layer.name, layer_name)) continue;
    SqliteStatement count = connection_.Prepare("SELECT count(*) FROM " + Quote(layer.table_name));
    return count.Step() ? count.Int64(0) : int64_t{0};
  }
  ProjectChecks::Refuse("The project has no layer named '" + layer_name + "'.");
}

bool ProjectLayerTables::IsGeographic(int32_t srs_id) {
  SqliteStatement srs = connection_.Prepare("SELECT definition FROM gpkg_spatial_ref_sys WHERE srs_id = ?1");
  srs.Bind(1, static_cast<int64_t>(srs_id));
  return IsGeographicDefinition(srs_id, srs.Step() ? srs.Text(0) : std::string());
}

void ProjectLayerTables::AddLayer(const GeoPackageProject::LayerInfo& layer,
                                  const std::vector<PolygonFeature>& features, int32_t srs_id) {
  CheckPlacement(layer.name, layer.parent);
  CheckFields(layer);
  const bool id_is_fid = IsIdFid(layer);
  CheckFeatures(layer.name, features, id_is_fid);
  CheckSpatialReference(srs_id);

  bool multi = false;
  for (const PolygonFeature& feature : features) multi = multi || feature.polygons.size() != 1;
  GeoPackageProject::LayerInfo written = layer;
  written.table_name = NewTableName(layer.name);
  FeatureTable table{written.table_name, layer.name, "geom", multi ? "MULTIPOLYGON" : "POLYGON", srs_id, {}};
  connection_.Execute(CreateFeatureTableSql(written, table.geometry_type));

  SqliteStatement insert = connection_.Prepare(InsertFeatureSql(written));
  int64_t fid = 0;
  for (const PolygonFeature& feature : features) {
    GeoPackageGeometry::Envelope envelope;
    const std::string blob = GeoPackageGeometry::EncodePolygons(feature, srs_id, multi, envelope);
    table.extent.Include(envelope);
    insert.Bind(1, id_is_fid ? static_cast<int64_t>(feature.id) : ++fid).BindBlob(2, blob);
    if (!id_is_fid) insert.Bind(3, static_cast<int64_t>(feature.id));
    if (!layer.label_field.empty()) insert.Bind(4, feature.label);
    insert.Run();
    insert.Reset();
  }
  Register(table);
  InsertLayerRow(written);
}

void ProjectLayerTables::CheckPlacement(const std::string& name, const std::string& parent) {
  ProjectChecks::CheckName(name, "layer");
  if (ProjectChecks::RowExists(connection_, ProjectSchema::kLayersTable, "name", name)) {
    ProjectChecks::Refuse("The project already has a layer named '" + name + "'.");
  }
  if (!parent.empty() &&
      !ProjectChecks::RowExists(connection_, ProjectSchema::kLayersTable, "name", parent)) {
    ProjectChecks::Refuse("The parent layer '" + parent + "' of the layer '" + name +
                          "' is not in the project.");
  }
}

void ProjectLayerTables::CheckFields(const GeoPackageProject::LayerInfo& layer) {
  ProjectChecks::CheckName(layer.id_field, "layer's identifier field");
  if (TextEquals(layer.id_field, "geom") || TextEquals(layer.label_field, "geom") ||
      TextEquals(layer.label_field, "fid") || TextEquals(layer.label_field, layer.id_field)) {
    ProjectChecks::Refuse("The fields of the layer '" + layer.name +
                          "' must differ from each other and from 'fid' and 'geom'.");
  }
}

void ProjectLayerTables::CheckFeatures(const std::string& layer, const std::vector<PolygonFeature>& features,
                                       bool id_is_fid) {
  std::unordered_set<int32_t> seen;
  for (const PolygonFeature& feature : features) {
    if (!seen.insert(feature.id).second) {
      ProjectChecks::Refuse("Two features of the layer '" + layer + "' have the identifier " +
                            std::to_string(feature.id) + ".");
    }
    if (id_is_fid && feature.id <= 0) {
      ProjectChecks::Refuse("The features of the layer '" + layer + "' need identifiers above 0.");
    }
  }
}

void ProjectLayerTables::CheckSpatialReference(int32_t srs_id) {
  SqliteStatement srs = connection_.Prepare("SELECT 1 FROM gpkg_spatial_ref_sys WHERE srs_id = ?1");
  if (!srs.Bind(1, static_cast<int64_t>(srs_id)).Step()) {
    ProjectChecks::Refuse("The project has no spatial reference system " + std::to_string(srs_id) + ".");
  }
}

std::string ProjectLayerTables::CreateFeatureTableSql(const GeoPackageProject::LayerInfo& layer,
                                                      const std::string& geometry_type) {
  std::string create = "CREATE TABLE " + Quote(layer.table_name) +
                       " (fid INTEGER PRIMARY KEY AUTOINCREMENT, geom " + geometry_type;
  if (!IsIdFid(layer)) create += ", " + Quote(layer.id_field) + " INTEGER NOT NULL UNIQUE";
  if (!layer.label_field.empty()) create += ", " + Quote(layer.label_field) + " TEXT";
  return create + ")";
}

std::string ProjectLayerTables::InsertFeatureSql(const GeoPackageProject::LayerInfo& layer) {
  const bool id_is_fid = IsIdFid(layer);
  std::string insert_sql = "INSERT INTO " + Quote(layer.table_name) + " (fid, geom";
  if (!id_is_fid) insert_sql += ", " + Quote(layer.id_field);
  if (!layer.label_field.empty()) insert_sql += ", " + Quote(layer.label_field);
  insert_sql += ") VALUES (?1, ?2" + std::string(id_is_fid ? "" : ", ?3") +
                (layer.label_field.empty() ? "" : ", ?4") + ")";
  return insert_sql;
}

std::string ProjectLayerTables::NewTableName(const std::string& layer_name) {
  std::string base;
  for (const char c : layer_name) {
    const unsigned char u = static_cast<unsigned char>(c);
    const bool keep = std::isalnum(u) && u < 128;
    const char mapped = keep ? static_cast<char>(std::tolower(u)) : '_';
    if (mapped != '_' || (!base.empty() && base.back() != '_')) base += mapped;
  }
  while (!base.empty() && base.back() == '_') base.pop_back();
  const std::string lower = ToLowerAscii(base);
  if (base.empty() || std::isdigit(static_cast<unsigned char>(base[0])) || lower.rfind("gpkg", 0) == 0 ||
      lower.rfind("zrsim", 0) == 0 || lower.rfind("sqlite", 0) == 0 || lower.rfind("rtree", 0) == 0) {
    base = "layer_" + base;
  }
  std::string name = base;
  for (int suffix = 2; connection_.TableExists(name); ++suffix) name = base + "_" + std::to_string(suffix);
  return name;
}

void ProjectLayerTables::Register(const FeatureTable& table) {
  SqliteStatement contents = connection_.Prepare(
      "INSERT INTO gpkg_contents (table_name, data_type, identifier, description, min_x, min_y, max_x, max_y,"
      " srs_id) VALUES (?1, 'features', ?2, '', ?3, ?4, ?5, ?6, ?7)");
  contents.Bind(1, table.table).Bind(2, table.identifier);
  if (table.extent.empty) {
    for (int i = 3; i <= 6; ++i) contents.BindNull(i);
  } else {
    contents.Bind(3, table.extent.min_x).Bind(4, table.extent.min_y);
    contents.Bind(5, table.extent.max_x).Bind(6, table.extent.max_y);
  }
  contents.Bind(7, static_cast<int64_t>(table.srs_id)).Run();
  SqliteStatement columns = connection_.Prepare(
      "INSERT INTO gpkg_geometry_columns (table_name, column_name, geometry_type_name, srs_id, z, m)"
      " VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
  columns.Bind(1, table.table).Bind(2, table.geometry_column).Bind(3, table.geometry_type);
  columns.Bind(4, static_cast<int64_t>(table.srs_id));
  columns.Bind(5, static_cast<int64_t>(table.z)).Bind(6, static_cast<int64_t>(table.m)).Run();
}

void ProjectLayerTables::InsertLayerRow(const GeoPackageProject::LayerInfo& info) {
  SqliteStatement insert = connection_.Prepare(std::string("INSERT INTO ") + ProjectSchema::kLayersTable +
                                               " (name, kind, parent, id_field, label_field, table_name)"
                                               " VALUES (?1, ?2, ?3, ?4, ?5, ?6)");
  insert.Bind(1, info.name).Bind(2, static_cast<int64_t>(info.kind)).Bind(3, info.parent);
  insert.Bind(4, info.id_field).Bind(5, info.label_field).Bind(6, info.table_name).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kLayersTable);
}

}  // namespace zrsimprp

#include "projectdb/GeoPackageLayerGeometry.h"

#include <vector>

#include "projectdb/FeatureTableInfo.h"
#include "projectdb/GeoPackageGeometryReader.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SourcedCall.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

constexpr const char* kSource = "LayerGeometrySource";

std::string Quote(const std::string& identifier) { return SqliteConnection::QuoteIdentifier(identifier); }

bool StartsWithWord(const std::string& text, const char* word) {
  const std::string_view trimmed = TrimBlanks(text);
  const std::string_view wanted(word);
  return trimmed.size() >= wanted.size() && TextEquals(trimmed.substr(0, wanted.size()), wanted);
}

std::string ColumnFor(const FeatureTableInfo& table, const std::string& field) {
  if (field.empty()) return "";
  const FeatureTableInfo::Column* column = table.Find(field);
  return column ? column->name : "";
}

// A projected system (WKT 1 PROJCS or WKT 2 PROJCRS) whose length unit is the metre, however spelt.
bool ProjectedInMetres(const std::string& definition) {
  if (!StartsWithWord(definition, "PROJCS") && !StartsWithWord(definition, "PROJCRS")) return false;
  const std::string text = ToLowerAscii(definition);
  for (const char* unit : {"unit[\"metre\"", "unit[\"meter\"", "lengthunit[\"metre\""}) {
    if (text.find(unit) != std::string::npos) return true;
  }
  return false;
}

}  // namespace

CoordinateReference GeoPackageLayerGeometry::Reference(SqliteConnection& connection, int32_t srs_id) {
  CoordinateReference reference;
  if (!connection.TableExists("gpkg_spatial_ref_sys")) return reference;
  SqliteStatement row = connection.Prepare(
      "SELECT srs_name, organization, organization_coordsys_id, definition FROM gpkg_spatial_ref_sys "
      "WHERE srs_id = ?1");
  row.Bind(1, static_cast<int64_t>(srs_id));
  if (!row.Step()) return reference;
  const std::string organization = row.Text(1);
  const std::string definition = row.Text(3);
  if (!organization.empty() && !TextEquals(organization, "NONE") && row.Int64(2) > 0) {
    reference.name = organization + ":" + std::to_string(row.Int64(2));
  } else {
    reference.name = row.Text(0);
  }
  // The GeoPackage's own "undefined geographic" system (srs_id 0) is in degrees as well.
  reference.geographic = srs_id == 0 || StartsWithWord(definition, "GEOGCS") ||
                         StartsWithWord(definition, "GEOGCRS") ||
                         (TextEquals(organization, "EPSG") && row.Int64(2) == 4326);
  reference.metres = !reference.geographic && ProjectedInMetres(definition);
  return reference;
}

std::optional<LayerShapes> GeoPackageLayerGeometry::Read(SqliteConnection& connection,
                                                         const std::string& layer_name) {
  return SourcedCall(kSource, [&]() -> std::optional<LayerShapes> {
    SqliteStatement layer =
        connection.Prepare(std::string("SELECT ") + GeoPackageProject::LayerInfo::kColumns + " FROM " +
                           ProjectSchema::kLayersTable + " WHERE name = ?1 COLLATE NOCASE");
    layer.Bind(1, layer_name);
    if (!layer.Step()) return std::nullopt;
    const GeoPackageProject::LayerInfo info = GeoPackageProject::LayerInfo::FromRow(layer);
    if (!connection.TableExists(info.table_name)) return std::nullopt;
    const FeatureTableInfo table = FeatureTableInfo::Inspect(connection, info.table_name);
    if (table.GeometryColumn().empty()) return std::nullopt;

    // The same columns and order as the layer's GetRows, so entry i is the page's stratum i.
    const std::string id_column =
        info.id_field.empty() ? table.PrimaryKey() : ColumnFor(table, info.id_field);
    const std::string label_column = ColumnFor(table, info.label_field);
    std::string sql = "SELECT " + (id_column.empty() ? std::string("NULL") : Quote(id_column)) + ", " +
                      (label_column.empty() ? std::string("NULL") : Quote(label_column)) + ", " +
                      Quote(table.GeometryColumn()) + " FROM " + Quote(table.Name());
    if (!table.PrimaryKey().empty()) {
      sql += " ORDER BY " + Quote(table.PrimaryKey());
    } else if (!table.IsView()) {
      sql += " ORDER BY rowid";
    }

    LayerShapes shapes;
    shapes.reference = Reference(connection, table.SrsId());
    SqliteStatement rows = connection.Prepare(sql);
    while (rows.Step()) {
      StratumGeometry stratum;
      stratum.id = rows.Text(0);
      stratum.label = rows.Text(1);
      if (!rows.IsNull(2)) {
        std::string problem;
        if (!GeoPackageGeometryReader::Read(rows.Text(2), stratum.polygons, problem)) {
          throw RuntimeError(error_number::kInvalidProcedureCall, kSource,
                             "The geometry of the feature " + stratum.id + " of the layer '" + info.name +
                                 "' cannot be read: " + problem + ".");
        }
      }
      shapes.strata.push_back(std::move(stratum));
    }
    return shapes;
  });
}

}  // namespace zrsimprp

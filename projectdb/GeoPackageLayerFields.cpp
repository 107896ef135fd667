#include "projectdb/GeoPackageLayerFields.h"

#include "projectdb/FeatureTableInfo.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SourcedCall.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

constexpr const char* kSource = "LayerFieldSource";

}  // namespace

bool GeoPackageLayerFields::IsNumericType(const std::string& declared_type) {
  const std::string type = ToLowerAscii(std::string(TrimBlanks(declared_type)));
  // A geometry type such as POINT holds "int" but no number.
  if (type.find("point") != std::string::npos) return false;
  for (const char* part : {"int", "real", "floa", "doub"}) {
    if (type.find(part) != std::string::npos) return true;
  }
  return type.rfind("numeric", 0) == 0 || type.rfind("decimal", 0) == 0;
}

std::vector<std::string> GeoPackageLayerFields::Numeric(SqliteConnection& connection,
                                                        const std::string& layer_name) {
  return SourcedCall(kSource, [&]() -> std::vector<std::string> {
    SqliteStatement layer =
        connection.Prepare(std::string("SELECT ") + GeoPackageProject::LayerInfo::kColumns + " FROM " +
                           ProjectSchema::kLayersTable + " WHERE name = ?1 COLLATE NOCASE");
    layer.Bind(1, layer_name);
    if (!layer.Step()) return {};
    const GeoPackageProject::LayerInfo info = GeoPackageProject::LayerInfo::FromRow(layer);
    if (!connection.TableExists(info.table_name)) return {};
    const FeatureTableInfo table = FeatureTableInfo::Inspect(connection, info.table_name);
    std::vector<std::string> numeric;
    for (const FeatureTableInfo::Column& column : table.Columns()) {
      const bool left_out = TextEquals(column.name, table.PrimaryKey()) ||
                            TextEquals(column.name, table.GeometryColumn()) ||
                            TextEquals(column.name, info.id_field);
      if (!left_out && IsNumericType(column.type)) numeric.push_back(column.name);
    }
    return numeric;
  });
}

}  // namespace zrsimprp

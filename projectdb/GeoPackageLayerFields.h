#pragma once

#include <string>
#include <vector>

namespace zrsimprp {

class SqliteConnection;

// The attribute fields of a project layer that hold numbers, from the declared types of its feature
// table's columns, for a person to pick one from.
class GeoPackageLayerFields {
 public:
  // The columns of the layer's table whose declared type is numeric (integer, real, double, float,
  // numeric, decimal), in the table's order, leaving out the layer's id, the primary key and the
  // geometry column. Empty when the project has no layer of that name (case ignored) or its table is
  // missing. A damaged catalogue raises RuntimeError (source "LayerFieldSource").
  static std::vector<std::string> Numeric(SqliteConnection& connection, const std::string& layer_name);

  // True for a declared SQLite column type that holds numbers a person would fill a table with: dates
  // and ticks (BOOLEAN) are left out, though SQLite stores them as numbers too.
  static bool IsNumericType(const std::string& declared_type);
};

}  // namespace zrsimprp

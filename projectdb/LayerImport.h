#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "projectdb/FeatureTableInfo.h"
#include "projectdb/GeoPackageGeometry.h"

namespace zrsimprp {

class ProjectLayerTables;
class SqliteConnection;

// Copies a polygon feature table of another GeoPackage into a project as a new layer, in three steps
// a caller runs in order: read the source, check it, write it. Every geometry byte, the Z/M flags and
// the spatial reference row of the source are kept.
class LayerImport {
 public:
  struct Request {
    std::string from_gpkg;
    std::string table;
    std::string id_field;     // "" for the table's feature-id column
    std::string label_field;  // "" for none
    std::string name;
    int32_t kind = 0;
    std::string parent;  // "" for none
  };

  explicit LayerImport(Request request);
  ~LayerImport();
  LayerImport(const LayerImport&) = delete;
  LayerImport& operator=(const LayerImport&) = delete;

  // Opens the source file read-only and reads its table's catalogue entry.
  void ReadSource();
  // Refuses a table that cannot be a layer: no geometry, not polygons, no key, a field not there.
  void Check();
  // Writes the layer into the project, inside the caller's write transaction. Returns the features
  // copied.
  int32_t Write(ProjectLayerTables& layers, SqliteConnection& project);

 private:
  // The feature-id column, the geometry column, then the identifier and label fields, each once.
  std::vector<std::string> CopiedColumns() const;
  void CreateTable(SqliteConnection& project, const std::string& target,
                   const std::vector<std::string>& copied) const;
  int32_t CopyRows(SqliteConnection& project, const std::string& target,
                   const std::vector<std::string>& copied) const;
  // The project's copy of the source's spatial reference system, row for row; a system of the same
  // number that the project already holds must be the same one.
  void CopySpatialReference(SqliteConnection& project) const;
  GeoPackageGeometry::Envelope SourceExtent() const;
  // "its fields are 'a', 'b' and 'c'.", for a refusal naming a field the table lacks.
  std::string FieldList() const;
  // Refuses the asked table, naming the feature tables the source has.
  [[noreturn]] void RefuseMissingTable() const;
  // How the source names the table in messages.
  std::string Where() const;

  Request request_;
  std::unique_ptr<SqliteConnection> source_;
  FeatureTableInfo info_;
  std::optional<FeatureTableInfo::Column> id_;
  std::optional<FeatureTableInfo::Column> label_;
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "projectdb/LayerImportOptions.h"
#include "projectdb/VectorSource.h"

namespace zrsimprp {

class LayerImport;
class SqliteConnection;

// Imports a layer of any vector file into a project. A GeoPackage whose coordinates are kept is copied
// byte for byte (LayerImport); every other source, or any source that is reprojected or made into a
// region, is read through GDAL (VectorSource). The study region of --make-region is written first,
// then the layer, then a layer with a parent is checked against it (ParentContainment): all of it
// inside the caller's one write transaction.
class LayerImporter {
 public:
  explicit LayerImporter(LayerImportOptions options);
  ~LayerImporter();
  LayerImporter(const LayerImporter&) = delete;
  LayerImporter& operator=(const LayerImporter&) = delete;

  // Reads and checks the source before anything is written.
  void Prepare();
  // Writes into the project, inside the caller's write transaction.
  LayerImportOutcome Write(SqliteConnection& project);

 private:
  // The project's spatial reference system number for `crs`, adding a row when the project has none.
  static int32_t SpatialReference(SqliteConnection& project, const VectorSource::CoordinateSystem& crs);
  static bool IsSqliteFile(const std::string& path);

  LayerImportOptions options_;
  bool copy_ = false;
  std::unique_ptr<LayerImport> copied_;
  VectorSource::Layer read_;
};

}  // namespace zrsimprp

#include "projectdb/LayerImporter.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <utility>

#include "projectdb/GeoPackageLayerGeometry.h"
#include "projectdb/LayerImport.h"
#include "projectdb/LayerKind.h"
#include "projectdb/ParentContainment.h"
#include "projectdb/PolygonOverlay.h"
#include "projectdb/ProjectChecks.h"
#include "projectdb/ProjectLayerTables.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"

namespace zrsimprp {

namespace {

// The first spatial reference system number free for a system the EPSG does not number.
constexpr int64_t kFirstOwnSystem = 100000;

int32_t LayerSystem(SqliteConnection& project, const std::string& layer) {
  SqliteStatement row = project.Prepare(std::string("SELECT g.srs_id FROM ") + ProjectSchema::kLayersTable +
                                        " l JOIN gpkg_geometry_columns g ON g.table_name = l.table_name"
                                        " WHERE l.name = ?1 COLLATE NOCASE");
  row.Bind(1, layer);
  return row.Step() ? static_cast<int32_t>(row.Int64(0)) : -1;
}

}  // namespace

LayerImporter::LayerImporter(LayerImportOptions options) : options_(std::move(options)) {}

LayerImporter::~LayerImporter() = default;

bool LayerImporter::IsSqliteFile(const std::string& path) {
  static const char kHeader[] = "SQLite format 3";
  std::ifstream file(path, std::ios::binary);
  char start[sizeof kHeader] = {};
  file.read(start, sizeof kHeader);
  return file.gcount() == static_cast<std::streamsize>(sizeof kHeader) &&
         std::string(start, sizeof kHeader - 1) == kHeader;
}

void LayerImporter::Prepare() {
  if (!options_.make_region.empty()) {
    ProjectChecks::CheckName(options_.make_region, "region");
    if (options_.kind != LayerKind::kStrata || !options_.parent.empty()) {
      ProjectChecks::Refuse(
          "A region is made only for a layer of kind 2 (strata) given no parent, since the "
          "region becomes its parent.");
    }
  }
  copy_ = options_.to_crs.empty() && options_.make_region.empty() && IsSqliteFile(options_.from);
  if (copy_) {
    // The byte-for-byte copy reads the table with SQLite; GDAL only finds the one layer when none is named.
    std::string table = options_.table;
    if (table.empty()) table = VectorSource(options_.from).ResolveLayer("");
    copied_ = std::make_unique<LayerImport>(LayerImport::Request{options_.from, table, options_.id_field,
                                                                 options_.label_field, options_.name,
                                                                 options_.kind, options_.parent});
    copied_->ReadSource();
    copied_->Check();
    read_.name = table;
    return;
  }
  read_ = VectorSource(options_.from)
              .Read(options_.table, options_.id_field, options_.label_field, options_.to_crs);
  // Strata are listed in the order of their identifiers, as a copied GeoPackage's are, whatever order
  // the file keeps them in (a FlatGeobuf's spatial index reorders them).
  std::stable_sort(read_.features.begin(), read_.features.end(),
                   [](const PolygonFeature& a, const PolygonFeature& b) { return a.id < b.id; });
}

LayerImportOutcome LayerImporter::Write(SqliteConnection& project) {
  ProjectLayerTables layers(project);
  std::string parent = options_.parent;
  if (!options_.make_region.empty()) {
    const PolygonFeature region{1, options_.make_region, PolygonOverlay::Union(read_.features)};
    layers.AddLayer({options_.make_region, LayerKind::kStudyRegion, "", "RegionID", "RegionName", ""},
                    {region}, SpatialReference(project, read_.crs));
    parent = options_.make_region;
  }
  LayerImportOutcome outcome;
  outcome.table = read_.name;
  if (copied_) {
    outcome.count = copied_->Write(layers, project);
  } else {
    const std::string id_field = options_.id_field.empty() ? "fid" : options_.id_field;
    layers.AddLayer({options_.name, options_.kind, parent, id_field, options_.label_field, ""},
                    read_.features, SpatialReference(project, read_.crs));
    outcome.count = static_cast<int32_t>(read_.features.size());
  }
  if (!parent.empty()) ParentContainment::Check(project, options_.name, parent);
  const CoordinateReference reference =
      GeoPackageLayerGeometry::Reference(project, LayerSystem(project, options_.name));
  outcome.crs = reference.name;
  outcome.geographic = reference.geographic;
  return outcome;
}

int32_t LayerImporter::SpatialReference(SqliteConnection& project,
                                        const VectorSource::CoordinateSystem& crs) {
  if (crs.definition.empty()) return -1;  // the GeoPackage's undefined Cartesian system
  const bool numbered = crs.organization == "EPSG" && crs.code > 0;
  {
    SqliteStatement held = project.Prepare(
        numbered ? "SELECT srs_id FROM gpkg_spatial_ref_sys WHERE organization = 'EPSG' COLLATE NOCASE AND "
                   "organization_coordsys_id = ?1"
                 : "SELECT srs_id FROM gpkg_spatial_ref_sys WHERE definition = ?2");
    if (numbered) {
      held.Bind(1, static_cast<int64_t>(crs.code));
    } else {
      held.Bind(2, crs.definition);
    }
    if (held.Step()) return static_cast<int32_t>(held.Int64(0));
  }
  int64_t srs_id = numbered ? crs.code : kFirstOwnSystem;
  {
    SqliteStatement taken = project.Prepare("SELECT 1 FROM gpkg_spatial_ref_sys WHERE srs_id = ?1");
    if (taken.Bind(1, srs_id).Step()) {
      SqliteStatement highest = project.Prepare("SELECT MAX(srs_id) FROM gpkg_spatial_ref_sys");
      highest.Step();
      srs_id = std::max<int64_t>(kFirstOwnSystem, highest.Int64(0) + 1);
    }
  }
  SqliteStatement insert = project.Prepare(
      "INSERT INTO gpkg_spatial_ref_sys (srs_name, srs_id, organization, organization_coordsys_id, definition,"
      " description) VALUES (?1, ?2, ?3, ?4, ?5, NULL)");
  insert.Bind(1, crs.name.empty() ? std::string("Imported coordinate system") : crs.name).Bind(2, srs_id);
  insert.Bind(3, numbered ? std::string("EPSG") : std::string("NONE"));
  insert.Bind(4, numbered ? static_cast<int64_t>(crs.code) : srs_id).Bind(5, crs.definition).Run();
  return static_cast<int32_t>(srs_id);
}

}  // namespace zrsimprp

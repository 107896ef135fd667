#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "projectdb/LayerImportOptions.h"
#include "projectdb/PolygonFeature.h"
#include "zrsimprp/host/LayerFieldSource.h"
#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/host/ProjectDatabase.h"

namespace zrsimprp {

class ProjectLayerSnapshot;
class ProjectReadCache;
class SqliteConnection;
class SqliteStatement;

// A project file: a GeoPackage whose polygon feature tables are the map layers and whose attribute
// tables hold the surveys, designs, data filters, model definitions, simulations, settings and engine
// defaults. Every failure is a RuntimeError whose description a person can act on; every write is one
// transaction, and reading never writes: a file of an older format is upgraded by its first write.
// What the control reads (records, layers and their rows) is read once and kept until this project or
// another program changes the file.
class GeoPackageProject : public ProjectDatabase,
                          public LayerGeometrySource,
                          public LayerFieldSource,
                          public std::enable_shared_from_this<GeoPackageProject> {
 public:
  // Guards against damaged or hostile files: a statement that runs longer than this many virtual
  // machine steps is interrupted and reported.
  struct OpenOptions {
    int64_t statement_step_limit = 2'000'000'000;
    // How long a read or write waits for another program's lock before it is reported.
    int32_t busy_timeout_ms = 5000;
    // Opens without write access even when the file could be written.
    bool read_only = false;
  };

  enum class SaveOutcome {
    kSaved,
    // The file no longer held the definition the caller loaded: someone else saved in between, and
    // nothing was written.
    kChangedSinceLoaded,
  };

  struct LayerInfo {
    std::string name;
    int32_t kind = 0;
    std::string parent;  // "" for none
    std::string id_field;
    std::string label_field;  // "" for none
    std::string table_name;

    // The columns of the project's layer table that FromRow reads, in its order.
    static constexpr const char* kColumns = "name, kind, parent, id_field, label_field, table_name";
    static LayerInfo FromRow(SqliteStatement& row);
  };
  struct DesignInfo {
    int32_t id = 0;
    std::string name;
    std::string definition_text;
  };
  struct SurveyInfo {
    int32_t id = 0;
    std::string name;
    int32_t status = 0;
    int32_t design_id = 0;
  };
  struct DataFilterInfo {
    int32_t id = 0;
    std::string name;
  };
  struct ModelDefinitionInfo {
    int32_t id = 0;
    std::string name;
    std::string engine;
    std::string definition_text;
  };

  // Opens an existing project; never creates a file. The file is opened read-only when it, or its
  // folder (where SQLite keeps its journal), may not be written.
  static std::shared_ptr<GeoPackageProject> Open(const std::string& path);
  static std::shared_ptr<GeoPackageProject> Open(const std::string& path, const OpenOptions& options);
  // Writes a new, empty project file; fails when the path exists.
  static std::shared_ptr<GeoPackageProject> Create(const std::string& path);

  ~GeoPackageProject() override;
  GeoPackageProject(const GeoPackageProject&) = delete;
  GeoPackageProject& operator=(const GeoPackageProject&) = delete;

  std::string Path() const;
  // True when changes are refused because the file was opened without write access.
  bool IsReadOnly() const { return read_only_; }
  // The file's format version as opened (ProjectSchema::kFormatVersion after its first write).
  int FormatVersion() const { return format_version_; }

  // Simulations, by name (case ignored), in the order they were created.
  std::vector<std::string> SimulationNames();
  std::string SimulationDefinition(const std::string& name);
  void SaveSimulationDefinition(const std::string& name, const std::string& text);
  // Saves `text` only if the file still holds `loaded_text` as the simulation's definition ("" when the
  // simulation was not in the file when it was loaded), all in one transaction. An editor passes the
  // text it loaded, so that a second editor's save in between is reported, never silently overwritten.
  SaveOutcome SaveSimulationDefinitionIfUnchanged(const std::string& name, const std::string& loaded_text,
                                                  const std::string& text);

  // Replaces the definition of a simulation the project has; refused when it has none.
  void SetSimulationDefinition(const std::string& name, const std::string& text);
  void CopySimulation(const std::string& name, const std::string& to);
  void RenameSimulation(const std::string& name, const std::string& to);
  void RemoveSimulation(const std::string& name);

  // Builders.
  void AddLayer(const std::string& name, int32_t kind, const std::string& parent_name,
                const std::string& id_field, const std::string& label_field,
                const std::vector<PolygonFeature>& features, int32_t srs_id = -1);
  int32_t ImportLayer(const std::string& from_gpkg, const std::string& table, const std::string& id_field,
                      const std::string& label_field, const std::string& name, int32_t kind,
                      const std::string& parent);
  // Imports a layer of any vector file GDAL reads, reprojected and with a region made from it when asked;
  // a layer with a parent must share its coordinate system and lie inside it. One transaction.
  LayerImportOutcome ImportLayer(const LayerImportOptions& options);
  void AddDesign(int32_t id, const std::string& name, const std::string& definition_text);
  // The same, refused unless the project has the layer `stratum_layer`, checked in the same transaction.
  void AddDesign(int32_t id, const std::string& name, const std::string& definition_text,
                 const std::string& stratum_layer);
  void AddSurvey(int32_t id, const std::string& name, int32_t status, int32_t design_id);
  void AddDataFilter(int32_t id, const std::string& name);
  void AddModelDefinition(int32_t id, const std::string& name, const std::string& engine,
                          const std::string& definition_text);
  void SetEngineDefault(const std::string& engine, const std::string& text);

  // Removals, each refused (naming what still uses it) while a layer, record or simulation refers to
  // what would go.
  void RemoveLayer(const std::string& name);
  void RemoveDesign(int32_t id);
  void RemoveSurvey(int32_t id);
  void RemoveDataFilter(int32_t id);
  void RemoveModelDefinition(int32_t id);

  // Listings.
  std::vector<LayerInfo> Layers();
  std::vector<DesignInfo> Designs();
  std::vector<SurveyInfo> Surveys();
  std::vector<DataFilterInfo> DataFilterList();
  std::vector<ModelDefinitionInfo> ModelDefinitionList();
  int64_t FeatureCount(const std::string& layer_name);
  // True when the layer's coordinates are geographic (degrees of longitude and latitude).
  bool HasGeographicCoordinates(const std::string& layer_name);

  // ProjectDatabase
  std::shared_ptr<ProjectSettings> Settings() override;
  std::shared_ptr<LayerCatalogue> Companion() override;
  std::shared_ptr<zrsimprp::EngineDefaults> EngineDefaults() override;
  std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> DesignGroups() override;
  std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> SurveyGroups() override;
  std::vector<std::shared_ptr<DataFilter>> DataFilters() override;
  std::vector<std::shared_ptr<ModelDefinition>> ModelDefinitions() override;

  // LayerGeometrySource (GeoPackageProjectGeometry.cpp): the layer's polygons from its geometry blobs.
  std::optional<LayerShapes> LayerGeometry(const std::string& layer_name) override;
  // LayerFieldSource (GeoPackageProjectGeometry.cpp): the numeric columns of the layer's table.
  std::vector<std::string> NumericFields(const std::string& layer_name) override;

  // The open file, for the objects this project hands out.
  SqliteConnection& Connection() { return *connection_; }
  // Runs `body` as one write transaction of the file (upgrading a file of an older format first) and
  // forgets what was read, so that the next read sees the change. Refused on a read-only project.
  void Write(const std::function<void()>& body);
  // The layer as this version of the file holds it, read once (RuntimeError "SQLite" when unknown).
  std::shared_ptr<ProjectLayerSnapshot> LayerSnapshot(const std::string& name);

 private:
  GeoPackageProject(std::string path, std::unique_ptr<SqliteConnection> connection, int format_version);

  std::string path_;
  std::unique_ptr<SqliteConnection> connection_;
  int format_version_;
  bool read_only_;
  std::unique_ptr<ProjectReadCache> cache_;
};

}  // namespace zrsimprp

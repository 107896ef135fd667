// The public face of a project file. Each job lives in a class of its own: ProjectFileOpener opens and
// creates, ProjectRecords reads and writes the attribute records, ProjectLayerTables the map layers,
// LayerImport copies a layer from another GeoPackage and ProjectReadCache keeps what was read. This
// file reports their failures under the project's interface and runs every write as one transaction.
#include "projectdb/GeoPackageProject.h"

#include "projectdb/LayerImport.h"
#include "projectdb/LayerImporter.h"
#include "projectdb/ParentContainment.h"
#include "projectdb/ProjectChecks.h"
#include "projectdb/ProjectEngineDefaults.h"
#include "projectdb/ProjectFileOpener.h"
#include "projectdb/ProjectLayerCatalogue.h"
#include "projectdb/ProjectLayerSnapshot.h"
#include "projectdb/ProjectLayerTables.h"
#include "projectdb/ProjectReadCache.h"
#include "projectdb/ProjectRecords.h"
#include "projectdb/ProjectRemovals.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/ProjectSettingsTable.h"
#include "projectdb/SourcedCall.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "projectdb/SqliteTransaction.h"

namespace zrsimprp {

namespace {

constexpr const char* kSource = ProjectChecks::kSource;

}  // namespace

GeoPackageProject::GeoPackageProject(std::string path, std::unique_ptr<SqliteConnection> connection,
                                     int format_version)
    : path_(std::move(path)),
      connection_(std::move(connection)),
      format_version_(format_version),
      read_only_(connection_->IsReadOnly()),
      cache_(std::make_unique<ProjectReadCache>(*connection_)) {}

GeoPackageProject::~GeoPackageProject() = default;

// --- Opening and creating --------------------------------------------------------------------------

std::shared_ptr<GeoPackageProject> GeoPackageProject::Open(const std::string& path) {
  return Open(path, OpenOptions());
}

std::shared_ptr<GeoPackageProject> GeoPackageProject::Open(const std::string& path,
                                                           const OpenOptions& options) {
  return SourcedCall(kSource, [&]() {
    ProjectFileOpener::Opened opened = ProjectFileOpener::Open(path, options);
    return std::shared_ptr<GeoPackageProject>(
        new GeoPackageProject(path, std::move(opened.connection), opened.format_version));
  });
}

std::shared_ptr<GeoPackageProject> GeoPackageProject::Create(const std::string& path) {
  return SourcedCall(kSource, [&]() {
    ProjectFileOpener::Opened opened = ProjectFileOpener::Create(path);
    return std::shared_ptr<GeoPackageProject>(
        new GeoPackageProject(path, std::move(opened.connection), opened.format_version));
  });
}

std::string GeoPackageProject::Path() const { return path_; }

// --- Writing and the read cache --------------------------------------------------------------------

void GeoPackageProject::Write(const std::function<void()>& body) {
  if (read_only_) {
    ProjectChecks::Refuse("The project file '" + path_ + "' is open read-only, so it cannot be changed.");
  }
  // Whatever happens, what was read before may no longer be what the file holds.
  cache_->Forget();
  SqliteTransaction transaction(*connection_);
  if (format_version_ < ProjectSchema::kFormatVersion) ProjectSchema::Upgrade(*connection_, format_version_);
  body();
  transaction.Commit();
  format_version_ = ProjectSchema::kFormatVersion;
  cache_->Forget();
}

std::shared_ptr<ProjectLayerSnapshot> GeoPackageProject::LayerSnapshot(const std::string& name) {
  return cache_->Layer(name);
}

// --- Simulations -----------------------------------------------------------------------------------

std::vector<std::string> GeoPackageProject::SimulationNames() {
  return SourcedCall(kSource, [&]() { return ProjectRecords(*connection_).SimulationNames(); });
}

std::string GeoPackageProject::SimulationDefinition(const std::string& name) {
  return SourcedCall(kSource, [&]() { return ProjectRecords(*connection_).SimulationDefinition(name); });
}

void GeoPackageProject::SaveSimulationDefinition(const std::string& name, const std::string& text) {
  SourcedCall(kSource, [&]() {
    ProjectRecords::CheckDefinitionToSave(name, text);
    Write([&] { ProjectRecords(*connection_).SaveSimulationDefinition(name, text); });
  });
}

GeoPackageProject::SaveOutcome GeoPackageProject::SaveSimulationDefinitionIfUnchanged(
    const std::string& name, const std::string& loaded_text, const std::string& text) {
  return SourcedCall(kSource, [&]() {
    ProjectRecords::CheckDefinitionToSave(name, text);
    SaveOutcome outcome = SaveOutcome::kSaved;
    Write([&] {
      ProjectRecords records(*connection_);
      if (records.StoredSimulationDefinition(name) != loaded_text) {
        outcome = SaveOutcome::kChangedSinceLoaded;
        return;
      }
      records.UpsertSimulationDefinition(name, text);
    });
    return outcome;
  });
}

void GeoPackageProject::SetSimulationDefinition(const std::string& name, const std::string& text) {
  SourcedCall(kSource, [&]() {
    Write([&] { ProjectRecords(*connection_).ReplaceSimulationDefinition(name, text); });
  });
}

void GeoPackageProject::CopySimulation(const std::string& name, const std::string& to) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRecords(*connection_).CopySimulation(name, to); }); });
}

void GeoPackageProject::RenameSimulation(const std::string& name, const std::string& to) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRecords(*connection_).RenameSimulation(name, to); }); });
}

void GeoPackageProject::RemoveSimulation(const std::string& name) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRecords(*connection_).RemoveSimulation(name); }); });
}

// --- Builders --------------------------------------------------------------------------------------

void GeoPackageProject::AddLayer(const std::string& name, int32_t kind, const std::string& parent_name,
                                 const std::string& id_field, const std::string& label_field,
                                 const std::vector<PolygonFeature>& features, int32_t srs_id) {
  SourcedCall(kSource, [&]() {
    Write([&] {
      ProjectLayerTables(*connection_)
          .AddLayer(LayerInfo{name, kind, parent_name, id_field, label_field, ""}, features, srs_id);
    });
  });
}

int32_t GeoPackageProject::ImportLayer(const std::string& from_gpkg, const std::string& table,
                                       const std::string& id_field, const std::string& label_field,
                                       const std::string& name, int32_t kind, const std::string& parent) {
  return SourcedCall(kSource, [&]() {
    LayerImport import(LayerImport::Request{from_gpkg, table, id_field, label_field, name, kind, parent});
    import.ReadSource();
    import.Check();
    int32_t count = 0;
    Write([&] {
      ProjectLayerTables layers(*connection_);
      count = import.Write(layers, *connection_);
      if (!parent.empty()) ParentContainment::Check(*connection_, name, parent);
    });
    return count;
  });
}

LayerImportOutcome GeoPackageProject::ImportLayer(const LayerImportOptions& options) {
  return SourcedCall(kSource, [&]() {
    LayerImporter importer(options);
    importer.Prepare();
    LayerImportOutcome outcome;
    Write([&] { outcome = importer.Write(*connection_); });
    return outcome;
  });
}

void GeoPackageProject::AddDesign(int32_t id, const std::string& name, const std::string& definition_text) {
  SourcedCall(kSource,
              [&]() { Write([&] { ProjectRecords(*connection_).AddDesign(id, name, definition_text); }); });
}

void GeoPackageProject::AddDesign(int32_t id, const std::string& name, const std::string& definition_text,
                                  const std::string& stratum_layer) {
  SourcedCall(kSource, [&]() {
    Write([&] {
      ProjectRecords records(*connection_);
      records.RequireStratumLayer(stratum_layer);
      records.AddDesign(id, name, definition_text);
    });
  });
}

void GeoPackageProject::AddSurvey(int32_t id, const std::string& name, int32_t status, int32_t design_id) {
  SourcedCall(kSource,
              [&]() { Write([&] { ProjectRecords(*connection_).AddSurvey(id, name, status, design_id); }); });
}

void GeoPackageProject::AddDataFilter(int32_t id, const std::string& name) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRecords(*connection_).AddDataFilter(id, name); }); });
}

void GeoPackageProject::AddModelDefinition(int32_t id, const std::string& name, const std::string& engine,
                                           const std::string& definition_text) {
  SourcedCall(kSource, [&]() {
    Write([&] { ProjectRecords(*connection_).AddModelDefinition(id, name, engine, definition_text); });
  });
}

void GeoPackageProject::SetEngineDefault(const std::string& engine, const std::string& text) {
  SourcedCall(kSource, [&]() {
    ProjectChecks::CheckName(engine, "engine");
    Write([&] { ProjectRecords(*connection_).SetEngineDefault(engine, text); });
  });
}

// --- Removals --------------------------------------------------------------------------------------

void GeoPackageProject::RemoveLayer(const std::string& name) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRemovals(*connection_).RemoveLayer(name); }); });
}

void GeoPackageProject::RemoveDesign(int32_t id) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRemovals(*connection_).RemoveDesign(id); }); });
}

void GeoPackageProject::RemoveSurvey(int32_t id) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRemovals(*connection_).RemoveSurvey(id); }); });
}

void GeoPackageProject::RemoveDataFilter(int32_t id) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRemovals(*connection_).RemoveDataFilter(id); }); });
}

void GeoPackageProject::RemoveModelDefinition(int32_t id) {
  SourcedCall(kSource, [&]() { Write([&] { ProjectRemovals(*connection_).RemoveModelDefinition(id); }); });
}

// --- Listings --------------------------------------------------------------------------------------

GeoPackageProject::LayerInfo GeoPackageProject::LayerInfo::FromRow(SqliteStatement& row) {
  LayerInfo info;
  info.name = row.RequireText(0, "the name of a layer");
  info.kind = row.RequireInt32(1, "the kind of the layer '" + info.name + "'");
  info.parent = row.RequireText(2, "the parent of the layer '" + info.name + "'");
  info.id_field = row.RequireText(3, "the identifier field of the layer '" + info.name + "'");
  info.label_field = row.RequireText(4, "the label field of the layer '" + info.name + "'");
  info.table_name = row.RequireText(5, "the table of the layer '" + info.name + "'");
  return info;
}

std::vector<GeoPackageProject::LayerInfo> GeoPackageProject::Layers() {
  return SourcedCall(kSource, [&]() { return ProjectLayerTables(*connection_).Layers(); });
}

std::vector<GeoPackageProject::DesignInfo> GeoPackageProject::Designs() {
  return SourcedCall(kSource, [&]() { return ProjectRecords(*connection_).Designs(); });
}

std::vector<GeoPackageProject::SurveyInfo> GeoPackageProject::Surveys() {
  return SourcedCall(kSource, [&]() { return ProjectRecords(*connection_).Surveys(); });
}

std::vector<GeoPackageProject::DataFilterInfo> GeoPackageProject::DataFilterList() {
  return SourcedCall(kSource, [&]() { return ProjectRecords(*connection_).DataFilters(); });
}

std::vector<GeoPackageProject::ModelDefinitionInfo> GeoPackageProject::ModelDefinitionList() {
  return SourcedCall(kSource, [&]() { return ProjectRecords(*connection_).ModelDefinitions(); });
}

int64_t GeoPackageProject::FeatureCount(const std::string& layer_name) {
  return SourcedCall(kSource, [&]() { return ProjectLayerTables(*connection_).FeatureCount(layer_name); });
}

bool GeoPackageProject::HasGeographicCoordinates(const std::string& layer_name) {
  return SourcedCall(kSource, [&]() {
    const std::shared_ptr<ProjectLayerSnapshot> layer = LayerSnapshot(layer_name);
    return ProjectLayerTables(*connection_).IsGeographic(layer->Table().SrsId());
  });
}

// --- ProjectDatabase -------------------------------------------------------------------------------

std::shared_ptr<ProjectSettings> GeoPackageProject::Settings() {
  return std::make_shared<ProjectSettingsTable>(shared_from_this());
}

std::shared_ptr<LayerCatalogue> GeoPackageProject::Companion() {
  return std::make_shared<ProjectLayerCatalogue>(shared_from_this());
}

std::shared_ptr<zrsimprp::EngineDefaults> GeoPackageProject::EngineDefaults() {
  return std::make_shared<ProjectEngineDefaults>(shared_from_this());
}

std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> GeoPackageProject::DesignGroups() {
  return {cache_->Designs([this] { return Designs(); })};
}

std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> GeoPackageProject::SurveyGroups() {
  return {cache_->Surveys([this] { return Surveys(); })};
}

std::vector<std::shared_ptr<DataFilter>> GeoPackageProject::DataFilters() {
  return cache_->DataFilters([this] { return DataFilterList(); });
}

std::vector<std::shared_ptr<ModelDefinition>> GeoPackageProject::ModelDefinitions() {
  return cache_->ModelDefinitions([this] { return ModelDefinitionList(); });
}

}  // namespace zrsimprp

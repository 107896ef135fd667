#include "projectdb/ProjectRecords.h"

#include "projectdb/ProjectChecks.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

std::string Sql(const char* start, const char* table, const char* rest) {
  return std::string(start) + table + rest;
}

}  // namespace

void ProjectRecords::CheckDefinitionToSave(const std::string& name, const std::string& text) {
  ProjectChecks::CheckName(name, "simulation");
  if (text.empty()) {
    ProjectChecks::Refuse("An empty definition is not saved; the simulation '" + name +
                          "' keeps its previous definition.");
  }
}

std::vector<std::string> ProjectRecords::SimulationNames() {
  SqliteStatement rows =
      connection_.Prepare(Sql("SELECT name FROM ", ProjectSchema::kSimulationsTable, " ORDER BY fid"));
  std::vector<std::string> names;
  while (rows.Step()) names.push_back(rows.RequireText(0, "the name of a simulation"));
  return names;
}

std::string ProjectRecords::SimulationDefinition(const std::string& name) {
  SqliteStatement row = connection_.Prepare(
      Sql("SELECT definition FROM ", ProjectSchema::kSimulationsTable, " WHERE name = ?1"));
  row.Bind(1, name);
  if (!row.Step()) ProjectChecks::Refuse("The project has no simulation named '" + name + "'.");
  return row.RequireText(0, "the definition of the simulation '" + name + "'");
}

std::string ProjectRecords::StoredSimulationDefinition(const std::string& name) {
  SqliteStatement row = connection_.Prepare(
      Sql("SELECT definition FROM ", ProjectSchema::kSimulationsTable, " WHERE name = ?1"));
  row.Bind(1, name);
  return row.Step() ? row.RequireText(0, "the definition of the simulation '" + name + "'") : std::string();
}

void ProjectRecords::SaveSimulationDefinition(const std::string& name, const std::string& text) {
  SqliteStatement update = connection_.Prepare(
      Sql("UPDATE ", ProjectSchema::kSimulationsTable, " SET definition = ?2 WHERE name = ?1"));
  update.Bind(1, name).Bind(2, text).Run();
  if (connection_.Changes() == 0) {
    SqliteStatement insert = connection_.Prepare(
        Sql("INSERT INTO ", ProjectSchema::kSimulationsTable, " (name, definition) VALUES (?1, ?2)"));
    insert.Bind(1, name).Bind(2, text).Run();
  }
  ProjectSchema::Touch(connection_, ProjectSchema::kSimulationsTable);
}

void ProjectRecords::UpsertSimulationDefinition(const std::string& name, const std::string& text) {
  SqliteStatement upsert =
      connection_.Prepare(Sql("INSERT INTO ", ProjectSchema::kSimulationsTable,
                              " (name, definition) VALUES (?1, ?2) ON CONFLICT (name) DO "
                              "UPDATE SET definition = excluded.definition"));
  upsert.Bind(1, name).Bind(2, text).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kSimulationsTable);
}

void ProjectRecords::ReplaceSimulationDefinition(const std::string& name, const std::string& text) {
  CheckDefinitionToSave(name, text);
  SimulationDefinition(name);  // refuses a simulation the project does not have
  SqliteStatement update = connection_.Prepare(
      Sql("UPDATE ", ProjectSchema::kSimulationsTable, " SET definition = ?2 WHERE name = ?1"));
  update.Bind(1, name).Bind(2, text).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kSimulationsTable);
}

void ProjectRecords::RequireFreeSimulationName(const std::string& to, const std::string& name) {
  ProjectChecks::CheckName(to, "simulation");
  SqliteStatement row =
      connection_.Prepare(Sql("SELECT name FROM ", ProjectSchema::kSimulationsTable, " WHERE name = ?1"));
  row.Bind(1, to);
  if (row.Step() && !TextEquals(row.Text(0), name)) {
    ProjectChecks::Refuse("The project already has a simulation named '" + row.Text(0) + "'.");
  }
}

void ProjectRecords::CopySimulation(const std::string& name, const std::string& to) {
  const std::string text = SimulationDefinition(name);
  RequireFreeSimulationName(to, "");
  SqliteStatement insert = connection_.Prepare(
      Sql("INSERT INTO ", ProjectSchema::kSimulationsTable, " (name, definition) VALUES (?1, ?2)"));
  insert.Bind(1, to).Bind(2, text).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kSimulationsTable);
}

void ProjectRecords::RenameSimulation(const std::string& name, const std::string& to) {
  SimulationDefinition(name);
  RequireFreeSimulationName(to, name);
  SqliteStatement update =
      connection_.Prepare(Sql("UPDATE ", ProjectSchema::kSimulationsTable, " SET name = ?2 WHERE name = ?1"));
  update.Bind(1, name).Bind(2, to).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kSimulationsTable);
}

void ProjectRecords::RemoveSimulation(const std::string& name) {
  SimulationDefinition(name);
  SqliteStatement remove =
      connection_.Prepare(Sql("DELETE FROM ", ProjectSchema::kSimulationsTable, " WHERE name = ?1"));
  remove.Bind(1, name).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kSimulationsTable);
}

void ProjectRecords::AddDesign(int32_t id, const std::string& name, const std::string& definition_text) {
  if (ProjectChecks::IdExists(connection_, ProjectSchema::kDesignsTable, id)) {
    ProjectChecks::Refuse("The project already has a design with the identifier " + std::to_string(id) + ".");
  }
  SqliteStatement insert = connection_.Prepare(
      Sql("INSERT INTO ", ProjectSchema::kDesignsTable, " (id, name, definition) VALUES (?1, ?2, ?3)"));
  insert.Bind(1, static_cast<int64_t>(id)).Bind(2, name).Bind(3, definition_text).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kDesignsTable);
}

void ProjectRecords::RequireStratumLayer(const std::string& stratum_layer) {
  if (ProjectChecks::RowExists(connection_, ProjectSchema::kLayersTable, "name", stratum_layer)) return;
  std::string known;
  SqliteStatement rows =
      connection_.Prepare(Sql("SELECT name FROM ", ProjectSchema::kLayersTable, " ORDER BY fid"));
  while (rows.Step()) known += (known.empty() ? "'" : ", '") + rows.Text(0) + "'";
  ProjectChecks::Refuse(
      "The project has no layer named '" + stratum_layer + "' for the design's strata; " +
      (known.empty() ? std::string("it has no layers yet.") : "its layers are " + known + "."));
}

void ProjectRecords::AddSurvey(int32_t id, const std::string& name, int32_t status, int32_t design_id) {
  if (ProjectChecks::IdExists(connection_, ProjectSchema::kSurveysTable, id)) {
    ProjectChecks::Refuse("The project already has a survey with the identifier " + std::to_string(id) + ".");
  }
  if (!ProjectChecks::IdExists(connection_, ProjectSchema::kDesignsTable, design_id)) {
    ProjectChecks::Refuse("The survey " + std::to_string(id) + " names the design " +
                          std::to_string(design_id) + ", which the project does not have.");
  }
  SqliteStatement insert = connection_.Prepare(Sql("INSERT INTO ", ProjectSchema::kSurveysTable,
                                                   " (id, name, status, design_id) VALUES (?1, ?2, ?3, ?4)"));
  insert.Bind(1, static_cast<int64_t>(id)).Bind(2, name).Bind(3, static_cast<int64_t>(status));
  insert.Bind(4, static_cast<int64_t>(design_id)).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kSurveysTable);
}

void ProjectRecords::AddDataFilter(int32_t id, const std::string& name) {
  if (ProjectChecks::IdExists(connection_, ProjectSchema::kDataFiltersTable, id)) {
    ProjectChecks::Refuse("The project already has a data filter with the identifier " + std::to_string(id) +
                          ".");
  }
  SqliteStatement insert = connection_.Prepare(
      Sql("INSERT INTO ", ProjectSchema::kDataFiltersTable, " (id, name) VALUES (?1, ?2)"));
  insert.Bind(1, static_cast<int64_t>(id)).Bind(2, name).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kDataFiltersTable);
}

void ProjectRecords::AddModelDefinition(int32_t id, const std::string& name, const std::string& engine,
                                        const std::string& definition_text) {
  if (ProjectChecks::IdExists(connection_, ProjectSchema::kModelDefinitionsTable, id)) {
    ProjectChecks::Refuse("The project already has a model definition with the identifier " +
                          std::to_string(id) + ".");
  }
  SqliteStatement insert =
      connection_.Prepare(Sql("INSERT INTO ", ProjectSchema::kModelDefinitionsTable,
                              " (id, name, engine, definition) VALUES (?1, ?2, ?3, ?4)"));
  insert.Bind(1, static_cast<int64_t>(id)).Bind(2, name).Bind(3, engine).Bind(4, definition_text).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kModelDefinitionsTable);
}

void ProjectRecords::SetEngineDefault(const std::string& engine, const std::string& text) {
  SqliteStatement upsert =
      connection_.Prepare(Sql("INSERT INTO ", ProjectSchema::kEngineDefaultsTable,
                              " (engine, definition) VALUES (?1, ?2) ON CONFLICT (engine) "
                              "DO UPDATE SET definition = excluded.definition"));
  upsert.Bind(1, engine).Bind(2, text).Run();
  ProjectSchema::Touch(connection_, ProjectSchema::kEngineDefaultsTable);
}

std::vector<GeoPackageProject::DesignInfo> ProjectRecords::Designs() {
  SqliteStatement rows = connection_.Prepare(
      Sql("SELECT id, name, definition FROM ", ProjectSchema::kDesignsTable, " ORDER BY id"));
  std::vector<GeoPackageProject::DesignInfo> designs;
  while (rows.Step()) {
    GeoPackageProject::DesignInfo info;
    info.id = rows.RequireInt32(0, "the identifier of a design");
    const std::string which = "the design " + std::to_string(info.id);
    info.name = rows.RequireText(1, "the name of " + which);
    info.definition_text = rows.RequireText(2, "the definition of " + which);
    designs.push_back(std::move(info));
  }
  return designs;
}

std::vector<GeoPackageProject::SurveyInfo> ProjectRecords::Surveys() {
  SqliteStatement rows = connection_.Prepare(
      Sql("SELECT id, name, status, design_id FROM ", ProjectSchema::kSurveysTable, " ORDER BY id"));
  std::vector<GeoPackageProject::SurveyInfo> surveys;
  while (rows.Step()) {
    GeoPackageProject::SurveyInfo info;
    info.id = rows.RequireInt32(0, "the identifier of a survey");
    const std::string which = "the survey " + std::to_string(info.id);
    info.name = rows.RequireText(1, "the name of " + which);
    info.status = rows.RequireInt32(2, "the status of " + which);
    info.design_id = rows.RequireInt32(3, "the design of " + which);
    surveys.push_back(std::move(info));
  }
  return surveys;
}

std::vector<GeoPackageProject::DataFilterInfo> ProjectRecords::DataFilters() {
  SqliteStatement rows =
      connection_.Prepare(Sql("SELECT id, name FROM ", ProjectSchema::kDataFiltersTable, " ORDER BY id"));
  std::vector<GeoPackageProject::DataFilterInfo> filters;
  while (rows.Step()) {
    GeoPackageProject::DataFilterInfo info;
    info.id = rows.RequireInt32(0, "the identifier of a data filter");
    info.name = rows.RequireText(1, "the name of the data filter " + std::to_string(info.id));
    filters.push_back(std::move(info));
  }
  return filters;
}

std::vector<GeoPackageProject::ModelDefinitionInfo> ProjectRecords::ModelDefinitions() {
  SqliteStatement rows = connection_.Prepare(Sql("SELECT id, name, engine, definition FROM ",
                                                 ProjectSchema::kModelDefinitionsTable, " ORDER BY id"));
  std::vector<GeoPackageProject::ModelDefinitionInfo> models;
  while (rows.Step()) {
    GeoPackageProject::ModelDefinitionInfo info;
    info.id = rows.RequireInt32(0, "the identifier of a model definition");
    const std::string which = "the model definition " + std::to_string(info.id);
    info.name = rows.RequireText(1, "the name of " + which);
    info.engine = rows.RequireText(2, "the engine of " + which);
    info.definition_text = rows.RequireText(3, "the definition of " + which);
    models.push_back(std::move(info));
  }
  return models;
}

}  // namespace zrsimprp

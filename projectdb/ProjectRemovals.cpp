#include "projectdb/ProjectRemovals.h"

#include <string_view>

#include "projectdb/ProjectChecks.h"
#include "projectdb/ProjectSchema.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

std::string Quote(const std::string& identifier) { return SqliteConnection::QuoteIdentifier(identifier); }

// The value of the entry, or of its field `field` when one is named.
std::string EntryPart(const DefinitionEntry& entry, const std::string& field) {
  if (field.empty()) return entry.value;
  for (int32_t i = 0; i < entry.field_count && i < static_cast<int32_t>(entry.field_names.size()); ++i) {
    if (TextEquals(entry.field_names[i], field)) return entry.field_values[i];
  }
  return {};
}

// True when a definition has the entry `key` whose part (see EntryPart) equals `value`.
bool DefinitionUses(const std::string& definition, const std::string& key, const std::string& field,
                    const std::string& value) {
  std::string_view rest(definition);
  while (!rest.empty()) {
    DefinitionEntry entry;
    try {
      DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
    } catch (const RuntimeError&) {
      continue;  // a malformed entry refers to nothing; the reader has passed over it
    }
    if (TextEquals(entry.key, key) && TextEquals(TrimBlanks(EntryPart(entry, field)), value)) return true;
  }
  return false;
}

}  // namespace

std::vector<ProjectRemovals::Simulation> ProjectRemovals::Simulations() {
  SqliteStatement rows = connection_.Prepare(std::string("SELECT name, definition FROM ") +
                                             ProjectSchema::kSimulationsTable + " ORDER BY fid");
  std::vector<Simulation> simulations;
  while (rows.Step()) {
    simulations.push_back({rows.RequireText(0, "the name of a simulation"),
                           rows.RequireText(1, "the definition of a simulation")});
  }
  return simulations;
}

std::string ProjectRemovals::SimulationUsing(const std::string& key, const std::string& field,
                                             const std::string& value) {
  for (const Simulation& simulation : Simulations()) {
    if (DefinitionUses(simulation.definition, key, field, value)) return simulation.name;
  }
  return {};
}

void ProjectRemovals::DeleteRecord(const char* table, int32_t id, const std::string& what) {
  if (!ProjectChecks::IdExists(connection_, table, id)) {
    ProjectChecks::Refuse("The project has no " + what + " with the identifier " + std::to_string(id) + ".");
  }
  SqliteStatement remove = connection_.Prepare(std::string("DELETE FROM ") + table + " WHERE id = ?1");
  remove.Bind(1, static_cast<int64_t>(id)).Run();
  ProjectSchema::Touch(connection_, table);
}

void ProjectRemovals::RemoveLayer(const std::string& name) {
  const auto [stored, table] = LayerAndTable(name);
  RequireLayerUnused(stored);
  for (const char* registry : {"gpkg_geometry_columns", "gpkg_contents"}) {
    SqliteStatement unregister =
        connection_.Prepare(std::string("DELETE FROM ") + registry + " WHERE table_name = ?1");
    unregister.Bind(1, table).Run();
  }
  if (connection_.TableExists("gpkg_extensions")) {
    SqliteStatement extensions = connection_.Prepare("DELETE FROM gpkg_extensions WHERE table_name = ?1");
    extensions.Bind(1, table).Run();
  }
  SqliteStatement remove = connection_.Prepare(std::string("DELETE FROM ") + ProjectSchema::kLayersTable +
                                               " WHERE name = ?1 COLLATE NOCASE");
  remove.Bind(1, stored).Run();
  // Every statement reading the file has ended here: SQLite refuses to drop a table while one runs.
  connection_.Execute("DROP TABLE " + Quote(table));
  ProjectSchema::Touch(connection_, ProjectSchema::kLayersTable);
}

std::pair<std::string, std::string> ProjectRemovals::LayerAndTable(const std::string& name) {
  SqliteStatement layer =
      connection_.Prepare(std::string("SELECT name, table_name FROM ") + ProjectSchema::kLayersTable +
                          " WHERE name = ?1 COLLATE NOCASE");
  layer.Bind(1, name);
  if (!layer.Step()) ProjectChecks::Refuse("The project has no layer named '" + name + "'.");
  std::string stored = layer.RequireText(0, "the name of a layer");
  std::string table = layer.RequireText(1, "the table of the layer '" + stored + "'");
  return {stored, table};
}

void ProjectRemovals::RequireLayerUnused(const std::string& layer) {
  {
    SqliteStatement child =
        connection_.Prepare(std::string("SELECT name FROM ") + ProjectSchema::kLayersTable +
                            " WHERE parent = ?1 COLLATE NOCASE ORDER BY fid");
    child.Bind(1, layer);
    if (child.Step()) {
      ProjectChecks::Refuse("The layer '" + layer + "' is the parent of the layer '" + child.Text(0) +
                            "', so it is kept.");
    }
  }
  {
    SqliteStatement designs = connection_.Prepare(std::string("SELECT id, definition FROM ") +
                                                  ProjectSchema::kDesignsTable + " ORDER BY id");
    while (designs.Step()) {
      if (DefinitionUses(designs.Text(1), "STRATUM LAYER", "", layer)) {
        ProjectChecks::Refuse("The design " + designs.Text(0) + " takes its strata from the layer '" + layer +
                              "', so it is kept.");
      }
    }
  }
  const std::string simulation = SimulationUsing(entry_key::kStrataLayer, "", layer);
  if (!simulation.empty()) {
    ProjectChecks::Refuse("The simulation '" + simulation + "' takes its strata from the layer '" + layer +
                          "', so it is kept.");
  }
}

void ProjectRemovals::RemoveDesign(int32_t id) {
  SqliteStatement survey =
      connection_.Prepare(std::string("SELECT id, name FROM ") + ProjectSchema::kSurveysTable +
                          " WHERE design_id = ?1 ORDER BY id");
  survey.Bind(1, static_cast<int64_t>(id));
  if (survey.Step()) {
    ProjectChecks::Refuse("The survey " + survey.Text(0) + " '" + survey.Text(1) +
                          "' is made with the design " + std::to_string(id) + ", so it is kept.");
  }
  DeleteRecord(ProjectSchema::kDesignsTable, id, "design");
}

void ProjectRemovals::RemoveSurvey(int32_t id) {
  const std::string simulation = SimulationUsing(entry_key::kTransects, "ObjectID", std::to_string(id));
  if (!simulation.empty()) {
    ProjectChecks::Refuse("The simulation '" + simulation + "' takes its transects from the survey " +
                          std::to_string(id) + ", so it is kept.");
  }
  DeleteRecord(ProjectSchema::kSurveysTable, id, "survey");
}

void ProjectRemovals::RemoveDataFilter(int32_t id) {
  const std::string simulation = SimulationUsing(entry_key::kDataFilter, "", std::to_string(id));
  if (!simulation.empty()) {
    ProjectChecks::Refuse("The simulation '" + simulation + "' analyses with the data filter " +
                          std::to_string(id) + ", so it is kept.");
  }
  DeleteRecord(ProjectSchema::kDataFiltersTable, id, "data filter");
}

void ProjectRemovals::RemoveModelDefinition(int32_t id) {
  const std::string simulation = SimulationUsing(entry_key::kModelDef, "", std::to_string(id));
  if (!simulation.empty()) {
    ProjectChecks::Refuse("The simulation '" + simulation + "' analyses with the model definition " +
                          std::to_string(id) + ", so it is kept.");
  }
  DeleteRecord(ProjectSchema::kModelDefinitionsTable, id, "model definition");
}

}  // namespace zrsimprp

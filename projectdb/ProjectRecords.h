#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"

namespace zrsimprp {

class SqliteConnection;

// The project's attribute records: simulations and their definitions, designs, surveys, data
// filters, model definitions and engine defaults. A writing call runs inside the caller's write
// transaction and refuses, in a sentence, a record that clashes with what the file holds.
class ProjectRecords {
 public:
  explicit ProjectRecords(SqliteConnection& connection) : connection_(connection) {}

  // Refuses a definition that may not be saved under `name` (no name, or an empty text).
  static void CheckDefinitionToSave(const std::string& name, const std::string& text);

  std::vector<std::string> SimulationNames();
  // RuntimeError when the project has no simulation of that name.
  std::string SimulationDefinition(const std::string& name);
  // The definition saved under `name`, "" when there is none.
  std::string StoredSimulationDefinition(const std::string& name);
  // Updates the simulation's definition, or adds the simulation.
  void SaveSimulationDefinition(const std::string& name, const std::string& text);
  // The same as one statement.
  void UpsertSimulationDefinition(const std::string& name, const std::string& text);
  // Replaces the definition of a simulation the project has (refused when it has none).
  void ReplaceSimulationDefinition(const std::string& name, const std::string& text);
  // A new simulation `to` with the definition of `name`; refused when `name` is missing or `to` taken.
  void CopySimulation(const std::string& name, const std::string& to);
  // The same, keeping the definition under the new name only.
  void RenameSimulation(const std::string& name, const std::string& to);
  void RemoveSimulation(const std::string& name);

  void AddDesign(int32_t id, const std::string& name, const std::string& definition_text);
  // Refuses, naming the layers there are, when the project has no layer `stratum_layer`.
  void RequireStratumLayer(const std::string& stratum_layer);
  void AddSurvey(int32_t id, const std::string& name, int32_t status, int32_t design_id);
  void AddDataFilter(int32_t id, const std::string& name);
  void AddModelDefinition(int32_t id, const std::string& name, const std::string& engine,
                          const std::string& definition_text);
  void SetEngineDefault(const std::string& engine, const std::string& text);

  // In identifier order.
  std::vector<GeoPackageProject::DesignInfo> Designs();
  std::vector<GeoPackageProject::SurveyInfo> Surveys();
  std::vector<GeoPackageProject::DataFilterInfo> DataFilters();
  std::vector<GeoPackageProject::ModelDefinitionInfo> ModelDefinitions();

 private:
  // Refuses a blank `to`, or one another simulation than `name` already has (case ignored).
  void RequireFreeSimulationName(const std::string& to, const std::string& name);

  SqliteConnection& connection_;
};

}  // namespace zrsimprp

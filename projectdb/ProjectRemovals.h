#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zrsimprp {

class SqliteConnection;

// Takes layers and records out of a project, refusing in one sentence, naming the first thing that
// still uses it, a record another record or a simulation refers to. A call runs inside the caller's
// write transaction, so a refusal leaves the file as it was.
class ProjectRemovals {
 public:
  explicit ProjectRemovals(SqliteConnection& connection) : connection_(connection) {}

  // The layer, its feature table and the table's registration as GeoPackage contents.
  void RemoveLayer(const std::string& name);
  void RemoveDesign(int32_t id);
  void RemoveSurvey(int32_t id);
  void RemoveDataFilter(int32_t id);
  void RemoveModelDefinition(int32_t id);

 private:
  struct Simulation {
    std::string name;
    std::string definition;
  };
  std::vector<Simulation> Simulations();
  // The layer's name as stored and its feature table; refused when the project has no such layer.
  std::pair<std::string, std::string> LayerAndTable(const std::string& name);
  // Refuses, naming it, a child layer, design or simulation that uses the layer.
  void RequireLayerUnused(const std::string& layer);
  // The first simulation whose entry `key` (field `field`, or its value when `field` is empty)
  // equals `value` (case ignored); "" when none does.
  std::string SimulationUsing(const std::string& key, const std::string& field, const std::string& value);
  // Deletes the record `id` of `table`, refused naming `what` when there is none.
  void DeleteRecord(const char* table, int32_t id, const std::string& what);

  SqliteConnection& connection_;
};

}  // namespace zrsimprp

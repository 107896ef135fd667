#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "zrsimprp/host/LayerFieldSource.h"
#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/host/ProjectDatabase.h"

namespace zrsimprp {

// An in-memory project for embedders' tests, filled with builder calls. Any operation can be made to
// fail with FailOn(name), for testing error paths; calls are counted by name.
class MemoryProjectDatabase : public ProjectDatabase,
                              public LayerGeometrySource,
                              public LayerFieldSource,
                              public std::enable_shared_from_this<MemoryProjectDatabase> {
 public:
  struct LayerData {
    std::string name;
    int32_t kind = 0;
    std::string parent;  // "" for none
    std::string id_field = "ID";
    std::string label_field;  // "" for no label field
    std::vector<Variant> ids;
    std::vector<Variant> labels;
  };
  struct SettingWrite {
    int32_t a;
    int32_t b;
    std::string section;
    std::string key;
    Variant value;
  };

  MemoryProjectDatabase();

  // Builders. Records go into record group `group` (created as needed), in the order added.
  void AddDesign(int32_t id, const std::string& name, const std::string& definition_text, size_t group = 0);
  void AddSurvey(int32_t id, const std::string& name, int32_t status, int32_t design_id, size_t group = 0);
  void AddLayer(LayerData layer);
  void AddDataFilter(int32_t id, const std::string& name);
  void AddModelDefinition(int32_t id, const std::string& name, const std::string& engine,
                          const std::string& definition_text);
  void SetDefaultDefinition(const std::string& engine, const Variant& definition);
  void SetSetting(const std::string& section, const std::string& key, const Variant& value);
  // The map geometry of a layer, one entry per record (its polygons), for LayerGeometry. A layer given
  // none has no geometry.
  void SetLayerShapes(const std::string& layer, std::vector<std::vector<MapPolygon>> shapes,
                      CoordinateReference reference = {});
  // A further field GetRows can read (a DSM value, say): one value per record.
  void AddLayerField(const std::string& layer, const std::string& field, std::vector<Variant> values);
  // The values of a field added with AddLayerField, or nullptr.
  const std::vector<Variant>* LayerFieldValues(const std::string& layer, const std::string& field) const;

  // Observation and failure injection.
  void FailOn(const std::string& operation) { failing_.insert(operation); }
  void ClearFailures() { failing_.clear(); }
  int Calls(const std::string& operation) const;
  const std::vector<SettingWrite>& SettingWrites() const;
  Variant StoredSetting(const std::string& section, const std::string& key) const;

  // ProjectDatabase
  std::shared_ptr<ProjectSettings> Settings() override;
  std::shared_ptr<LayerCatalogue> Companion() override;
  std::shared_ptr<zrsimprp::EngineDefaults> EngineDefaults() override;
  std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> DesignGroups() override;
  std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> SurveyGroups() override;
  std::vector<std::shared_ptr<DataFilter>> DataFilters() override;
  std::vector<std::shared_ptr<ModelDefinition>> ModelDefinitions() override;

  // LayerGeometrySource: the shapes given with the layer; no value for an unknown layer or one
  // added without shapes.
  std::optional<LayerShapes> LayerGeometry(const std::string& layer_name) override;
  // LayerFieldSource: the fields added with AddLayerField whose values are all numbers (or empty), in
  // the order they were added.
  std::vector<std::string> NumericFields(const std::string& layer_name) override;

  // Used by the objects this database hands out.
  void Touch(const std::string& operation, const std::string& source);
  const LayerData* FindLayer(const std::string& name) const;

  struct State;  // defined in the .cpp; public so that the objects handed out can share it

 private:
  struct LayerShapesData {
    std::vector<std::vector<MapPolygon>> shapes;
    CoordinateReference reference;
  };

  std::shared_ptr<State> state_;
  std::map<std::string, LayerShapesData> shapes_;                               // by lower-case layer name
  std::map<std::pair<std::string, std::string>, std::vector<Variant>> fields_;  // lower-case layer, field
  std::vector<std::pair<std::string, std::string>> field_names_;  // lower-case layer, field as given
  std::set<std::string> failing_;
  std::map<std::string, int> calls_;
};

}  // namespace zrsimprp

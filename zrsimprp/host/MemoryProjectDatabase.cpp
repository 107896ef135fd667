#include "zrsimprp/host/MemoryProjectDatabase.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

struct SettingKey {
  std::string section;
  std::string key;
  bool operator<(const SettingKey& other) const {
    return std::tie(section, key) < std::tie(other.section, other.key);
  }
};

}  // namespace

namespace {

// A layer with what its objects learn about it, shared by every object handed out for it, so that
// choosing the layer again does not copy its features or index its identifiers anew.
struct LayerEntry {
  MemoryProjectDatabase::LayerData data;
  // Row of each identifier's text, built at the first lookup that the next row does not answer.
  std::optional<std::unordered_map<std::string, size_t>> row_of_id_text;
  // The row after the one last fetched: callers fetch every feature in turn, in row order.
  size_t next_row = 0;
};

}  // namespace

struct MemoryProjectDatabase::State {
  std::vector<std::vector<std::shared_ptr<DesignRecord>>> design_groups;
  std::vector<std::vector<std::shared_ptr<SurveyRecord>>> survey_groups;
  // The group objects handed out, made once after the last record was added: copying every group's
  // records on each call made walking a large project touch every record twice more.
  std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> design_group_objects;
  std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> survey_group_objects;
  std::map<std::string, std::shared_ptr<LayerEntry>> layers;  // by lower-case name
  std::vector<std::shared_ptr<DataFilter>> data_filters;
  std::vector<std::shared_ptr<ModelDefinition>> model_definitions;
  std::map<std::string, Variant> defaults;  // by lower-case engine name
  std::map<SettingKey, Variant> settings;   // by lower-case section and key
  std::vector<SettingWrite> setting_writes;
};

namespace {

using Database = MemoryProjectDatabase;

class MemoryDesign : public DesignRecord {
 public:
  MemoryDesign(int32_t id, std::string name, std::string text)
      : id_(id), name_(std::move(name)), text_(std::move(text)) {}
  int32_t ID() override { return id_; }
  std::string Name() override { return name_; }
  std::string DefinitionText() override { return text_; }

 private:
  int32_t id_;
  std::string name_;
  std::string text_;
};

class MemorySurvey : public SurveyRecord {
 public:
  MemorySurvey(int32_t id, std::string name, int32_t status, int32_t design_id)
      : id_(id), name_(std::move(name)), status_(status), design_id_(design_id) {}
  int32_t ID() override { return id_; }
  std::string Name() override { return name_; }
  int32_t Status() override { return status_; }
  int32_t DesignID() override { return design_id_; }

 private:
  int32_t id_;
  std::string name_;
  int32_t status_;
  int32_t design_id_;
};

template <class R>
class MemoryGroup : public RecordGroup<R> {
 public:
  explicit MemoryGroup(std::vector<std::shared_ptr<R>> records) : records_(std::move(records)) {}
  std::vector<std::shared_ptr<R>> Records() override { return records_; }

 private:
  std::vector<std::shared_ptr<R>> records_;
};

class MemoryFilter : public DataFilter {
 public:
  MemoryFilter(int32_t id, std::string name) : id_(id), name_(std::move(name)) {}
  void ItemValues(int32_t& a, int32_t& b, std::string& s) override {
    a = id_;
    b = id_;
    s = name_;
  }

 private:
  int32_t id_;
  std::string name_;
};

class MemoryModel : public ModelDefinition {
 public:
  MemoryModel(int32_t id, std::string name, std::string engine, std::string text)
      : id_(id), name_(std::move(name)), engine_(std::move(engine)), text_(std::move(text)) {}
  void ItemValues(int32_t& a, int32_t& b, std::string& s) override {
    a = id_;
    b = id_;
    s = name_;
  }
  std::string EngineName() override { return engine_; }
  std::string DefinitionText() override { return text_; }

 private:
  int32_t id_;
  std::string name_;
  std::string engine_;
  std::string text_;
};

class MemoryField : public Field {
 public:
  explicit MemoryField(std::string name) : name_(std::move(name)) {}
  std::string Name() override { return name_; }

 private:
  std::string name_;
};

class MemoryTable : public AttributeTable {
 public:
  MemoryTable(std::string id_field, std::string label_field)
      : id_field_(std::move(id_field)), label_field_(std::move(label_field)) {}
  std::shared_ptr<Field> IDField() override { return std::make_shared<MemoryField>(id_field_); }
  std::shared_ptr<Field> LabelField() override {
    if (label_field_.empty()) return nullptr;
    return std::make_shared<MemoryField>(label_field_);
  }

 private:
  std::string id_field_;
  std::string label_field_;
};

class MemoryFeature : public Feature {};

class MemoryLayer : public Layer {
 public:
  MemoryLayer(std::shared_ptr<Database> database, std::shared_ptr<Database::State> state,
              std::shared_ptr<LayerEntry> entry)
      : database_(std::move(database)),
        state_(std::move(state)),
        entry_(std::move(entry)),
        data_(entry_->data) {}

  std::string Name() override { return data_.name; }
  int32_t Kind() override { return data_.kind; }

  std::shared_ptr<Layer> Parent(const std::string&) override {
    database_->Touch("Parent", "Layer");
    const Database::LayerData* parent = database_->FindLayer(data_.parent);
    if (data_.parent.empty() || parent == nullptr) {
      throw RuntimeError(error_number::kInvalidProcedureCall, "Layer",
                         "The layer '" + data_.name + "' has no parent layer");
    }
    return std::make_shared<MemoryLayer>(database_, state_, state_->layers.at(ToLowerAscii(data_.parent)));
  }

  std::shared_ptr<zrsimprp::AttributeTable> AttributeTable() override {
    database_->Touch("AttributeTable", "Layer");
    return std::make_shared<MemoryTable>(data_.id_field, data_.label_field);
  }

  std::optional<std::vector<std::vector<Variant>>> GetRows(const std::string& fields, int32_t,
                                                           int32_t) override {
    database_->Touch("GetRows", "Layer");
    std::vector<std::vector<Variant>> rows;
    for (const std::string& field : Split(fields, ',')) {
      if (TextEquals(field, data_.id_field)) {
        rows.push_back(data_.ids);
      } else if (!data_.label_field.empty() && TextEquals(field, data_.label_field)) {
        rows.push_back(data_.labels);
      } else if (const std::vector<Variant>* values = database_->LayerFieldValues(data_.name, field)) {
        rows.push_back(*values);
      } else {
        throw RuntimeError(error_number::kInvalidProcedureCall, "Layer",
                           "The layer '" + data_.name + "' has no field '" + field + "'");
      }
    }
    if (data_.ids.empty()) return std::nullopt;
    return rows;
  }

  std::shared_ptr<Feature> FeatureByID(const Variant& id) override {
    database_->Touch("FeatureByID", "Layer");
    // Callers fetch every feature in turn, so the next row is tried first: a walk over the layer reads
    // its identifiers in order instead of probing an index the size of the layer for each.
    if (entry_->next_row < data_.ids.size() && data_.ids[entry_->next_row] == id) {
      ++entry_->next_row;
      return std::make_shared<MemoryFeature>();
    }
    const std::string wanted = VariantToText(id);
    const std::unordered_map<std::string, size_t>& rows = RowOfIdText();
    const auto found = rows.find(wanted);
    if (found == rows.end()) {
      throw RuntimeError(error_number::kInvalidProcedureCall, "Layer",
                         "The layer '" + data_.name + "' has no feature with identifier " + wanted);
    }
    entry_->next_row = found->second + 1;
    return std::make_shared<MemoryFeature>();
  }

 private:
  // Identifiers are matched by their text, as a host's layer matches them; the first row wins.
  const std::unordered_map<std::string, size_t>& RowOfIdText() {
    std::optional<std::unordered_map<std::string, size_t>>& rows = entry_->row_of_id_text;
    if (!rows) {
      rows.emplace();
      rows->reserve(data_.ids.size());
      for (size_t row = 0; row < data_.ids.size(); ++row) rows->emplace(VariantToText(data_.ids[row]), row);
    }
    return *rows;
  }

  std::shared_ptr<Database> database_;
  std::shared_ptr<Database::State> state_;
  std::shared_ptr<LayerEntry> entry_;
  const Database::LayerData& data_;
};

class MemoryCatalogue : public LayerCatalogue {
 public:
  MemoryCatalogue(std::shared_ptr<Database> database, std::shared_ptr<Database::State> state)
      : database_(std::move(database)), state_(std::move(state)) {}
  std::shared_ptr<Layer> LayerByName(const std::string& name) override {
    database_->Touch("LayerByName", "LayerCatalogue");
    const Database::LayerData* data = database_->FindLayer(name);
    if (data == nullptr) {
      throw RuntimeError(error_number::kInvalidProcedureCall, "LayerCatalogue",
                         "The project has no layer named '" + name + "'");
    }
    return std::make_shared<MemoryLayer>(database_, state_, state_->layers.at(ToLowerAscii(name)));
  }

 private:
  std::shared_ptr<Database> database_;
  std::shared_ptr<Database::State> state_;
};

class MemorySettings : public ProjectSettings {
 public:
  MemorySettings(std::shared_ptr<Database> database, std::shared_ptr<Database::State> state)
      : database_(std::move(database)), state_(std::move(state)) {}
  Variant ReadSetting(int32_t, int32_t, const std::string& section, const std::string& key,
                      const Variant& default_value) override;
  void WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                    const Variant& value) override;

 private:
  std::shared_ptr<Database> database_;
  std::shared_ptr<Database::State> state_;
};

class MemoryDefaults : public EngineDefaults {
 public:
  MemoryDefaults(std::shared_ptr<Database> database, std::shared_ptr<Database::State> state)
      : database_(std::move(database)), state_(std::move(state)) {}
  Variant DefaultDefinition(const std::string& engine) override;

 private:
  std::shared_ptr<Database> database_;
  std::shared_ptr<Database::State> state_;
};

}  // namespace

// The settings and defaults classes need State, which is complete only here.
Variant MemorySettings::ReadSetting(int32_t, int32_t, const std::string& section, const std::string& key,
                                    const Variant& default_value) {
  database_->Touch("ReadSetting", "ProjectSettings");
  const auto it = state_->settings.find(SettingKey{ToLowerAscii(section), ToLowerAscii(key)});
  return it == state_->settings.end() ? default_value : it->second;
}

void MemorySettings::WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                                  const Variant& value) {
  database_->Touch("WriteSetting", "ProjectSettings");
  state_->settings[SettingKey{ToLowerAscii(section), ToLowerAscii(key)}] = value;
  state_->setting_writes.push_back(Database::SettingWrite{a, b, section, key, value});
}

Variant MemoryDefaults::DefaultDefinition(const std::string& engine) {
  database_->Touch("DefaultDefinition", "EngineDefaults");
  const auto it = state_->defaults.find(ToLowerAscii(engine));
  if (it == state_->defaults.end()) {
    throw RuntimeError(error_number::kInvalidProcedureCall, "EngineDefaults",
                       "There is no default definition for the engine '" + engine + "'");
  }
  return it->second;
}

MemoryProjectDatabase::MemoryProjectDatabase() : state_(std::make_shared<State>()) {}

void MemoryProjectDatabase::AddDesign(int32_t id, const std::string& name, const std::string& definition_text,
                                      size_t group) {
  if (state_->design_groups.size() <= group) state_->design_groups.resize(group + 1);
  state_->design_groups[group].push_back(std::make_shared<MemoryDesign>(id, name, definition_text));
  state_->design_group_objects.clear();
}

void MemoryProjectDatabase::AddSurvey(int32_t id, const std::string& name, int32_t status, int32_t design_id,
                                      size_t group) {
  if (state_->survey_groups.size() <= group) state_->survey_groups.resize(group + 1);
  state_->survey_groups[group].push_back(std::make_shared<MemorySurvey>(id, name, status, design_id));
  state_->survey_group_objects.clear();
}

void MemoryProjectDatabase::AddLayer(LayerData layer) {
  const std::string key = ToLowerAscii(layer.name);
  state_->layers[key] = std::make_shared<LayerEntry>(LayerEntry{std::move(layer), std::nullopt});
}

void MemoryProjectDatabase::AddDataFilter(int32_t id, const std::string& name) {
  state_->data_filters.push_back(std::make_shared<MemoryFilter>(id, name));
}

void MemoryProjectDatabase::AddModelDefinition(int32_t id, const std::string& name, const std::string& engine,
                                               const std::string& definition_text) {
  state_->model_definitions.push_back(std::make_shared<MemoryModel>(id, name, engine, definition_text));
}

void MemoryProjectDatabase::SetDefaultDefinition(const std::string& engine, const Variant& definition) {
  state_->defaults[ToLowerAscii(engine)] = definition;
}

void MemoryProjectDatabase::SetSetting(const std::string& section, const std::string& key,
                                       const Variant& value) {
  state_->settings[SettingKey{ToLowerAscii(section), ToLowerAscii(key)}] = value;
}

int MemoryProjectDatabase::Calls(const std::string& operation) const {
  const auto it = calls_.find(operation);
  return it == calls_.end() ? 0 : it->second;
}

const std::vector<MemoryProjectDatabase::SettingWrite>& MemoryProjectDatabase::SettingWrites() const {
  return state_->setting_writes;
}

Variant MemoryProjectDatabase::StoredSetting(const std::string& section, const std::string& key) const {
  const auto it = state_->settings.find(SettingKey{ToLowerAscii(section), ToLowerAscii(key)});
  return it == state_->settings.end() ? Variant() : it->second;
}

void MemoryProjectDatabase::Touch(const std::string& operation, const std::string& source) {
  ++calls_[operation];
  if (failing_.count(operation) != 0) {
    throw RuntimeError(error_number::kInvalidProcedureCall, source,
                       operation + " failed (injected by the test)");
  }
}

const MemoryProjectDatabase::LayerData* MemoryProjectDatabase::FindLayer(const std::string& name) const {
  const auto it = state_->layers.find(ToLowerAscii(name));
  return it == state_->layers.end() ? nullptr : &it->second->data;
}

void MemoryProjectDatabase::SetLayerShapes(const std::string& layer,
                                           std::vector<std::vector<MapPolygon>> shapes,
                                           CoordinateReference reference) {
  shapes_[ToLowerAscii(layer)] = {std::move(shapes), std::move(reference)};
}

void MemoryProjectDatabase::AddLayerField(const std::string& layer, const std::string& field,
                                          std::vector<Variant> values) {
  auto& kept = fields_[{ToLowerAscii(layer), ToLowerAscii(field)}];
  if (kept.empty()) field_names_.emplace_back(ToLowerAscii(layer), field);
  kept = std::move(values);
}

std::vector<std::string> MemoryProjectDatabase::NumericFields(const std::string& layer_name) {
  Touch("NumericFields", "LayerFieldSource");
  const std::string layer = ToLowerAscii(layer_name);
  std::vector<std::string> numeric;
  for (const auto& [owner, field] : field_names_) {
    if (owner != layer) continue;
    const std::vector<Variant>* values = LayerFieldValues(layer, field);
    const bool numbers = std::all_of(values->begin(), values->end(), [](const Variant& value) {
      return std::holds_alternative<std::monostate>(value) || std::holds_alternative<int16_t>(value) ||
             std::holds_alternative<int32_t>(value) || std::holds_alternative<double>(value);
    });
    if (numbers) numeric.push_back(field);
  }
  return numeric;
}

const std::vector<Variant>* MemoryProjectDatabase::LayerFieldValues(const std::string& layer,
                                                                    const std::string& field) const {
  const auto it = fields_.find({ToLowerAscii(layer), ToLowerAscii(field)});
  return it == fields_.end() ? nullptr : &it->second;
}

std::optional<LayerShapes> MemoryProjectDatabase::LayerGeometry(const std::string& layer_name) {
  Touch("LayerGeometry", "LayerGeometrySource");
  const LayerData* layer = FindLayer(layer_name);
  const auto given = shapes_.find(ToLowerAscii(layer_name));
  if (layer == nullptr || given == shapes_.end() || given->second.shapes.empty()) return std::nullopt;
  LayerShapes shapes;
  shapes.reference = given->second.reference;
  for (size_t i = 0; i < given->second.shapes.size(); ++i) {
    StratumGeometry stratum;
    if (i < layer->ids.size()) stratum.id = VariantToText(layer->ids[i]);
    if (i < layer->labels.size()) stratum.label = VariantToText(layer->labels[i]);
    stratum.polygons = given->second.shapes[i];
    shapes.strata.push_back(std::move(stratum));
  }
  return shapes;
}

std::shared_ptr<ProjectSettings> MemoryProjectDatabase::Settings() {
  Touch("Settings", "ProjectDatabase");
  return std::make_shared<MemorySettings>(shared_from_this(), state_);
}

std::shared_ptr<LayerCatalogue> MemoryProjectDatabase::Companion() {
  Touch("Companion", "ProjectDatabase");
  return std::make_shared<MemoryCatalogue>(shared_from_this(), state_);
}

std::shared_ptr<zrsimprp::EngineDefaults> MemoryProjectDatabase::EngineDefaults() {
  Touch("EngineDefaults", "ProjectDatabase");
  return std::make_shared<MemoryDefaults>(shared_from_this(), state_);
}

std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> MemoryProjectDatabase::DesignGroups() {
  Touch("DesignGroups", "ProjectDatabase");
  std::vector<std::shared_ptr<RecordGroup<DesignRecord>>>& groups = state_->design_group_objects;
  if (groups.size() != state_->design_groups.size()) {
    groups.clear();
    for (const auto& records : state_->design_groups)
      groups.push_back(std::make_shared<MemoryGroup<DesignRecord>>(records));
  }
  return groups;
}

std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> MemoryProjectDatabase::SurveyGroups() {
  Touch("SurveyGroups", "ProjectDatabase");
  std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>>& groups = state_->survey_group_objects;
  if (groups.size() != state_->survey_groups.size()) {
    groups.clear();
    for (const auto& records : state_->survey_groups)
      groups.push_back(std::make_shared<MemoryGroup<SurveyRecord>>(records));
  }
  return groups;
}

std::vector<std::shared_ptr<DataFilter>> MemoryProjectDatabase::DataFilters() {
  Touch("DataFilters", "ProjectDatabase");
  return state_->data_filters;
}

std::vector<std::shared_ptr<ModelDefinition>> MemoryProjectDatabase::ModelDefinitions() {
  Touch("ModelDefinitions", "ProjectDatabase");
  return state_->model_definitions;
}

}  // namespace zrsimprp

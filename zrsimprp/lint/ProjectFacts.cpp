#include "zrsimprp/lint/ProjectFacts.h"

#include <algorithm>

#include "zrsimprp/host/AttributeTable.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/Field.h"
#include "zrsimprp/host/Layer.h"
#include "zrsimprp/host/LayerCatalogue.h"
#include "zrsimprp/host/LayerGeometrySource.h"

namespace zrsimprp {

namespace {

// How many parents a layer chain may have before it is taken for a loop.
constexpr int kMaxLayerDepth = 64;

}  // namespace

ProjectFacts::ProjectFacts(std::shared_ptr<ProjectDatabase> project) : project_(std::move(project)) {
  if (!project_) return;
  GatherSurveysAndDesigns();
  GatherDataFilters();
  GatherModelDefinitions();
}

std::string ProjectFacts::Key(const std::string& id) { return ToLowerAscii(id); }

void ProjectFacts::GatherSurveysAndDesigns() {
  RunTrapped(
      [&] {
        for (const auto& group : project_->DesignGroups()) {
          for (const auto& design : group->Records()) {
            design_texts_[std::to_string(design->ID())] = design->DefinitionText();
          }
        }
        for (const auto& group : project_->SurveyGroups()) {
          for (const auto& survey : group->Records()) {
            const std::string id = std::to_string(survey->ID());
            const bool offered = survey->Status() == 1;
            if (offered && first_survey_.empty()) first_survey_ = id;
            survey_offered_[id] = survey_offered_[id] || offered;
            design_of_survey_[id] = survey->DesignID();
          }
        }
      },
      [&](const RuntimeError& error) { problems_.push_back("surveys and designs: " + error.description); });
}

void ProjectFacts::GatherDataFilters() {
  RunTrapped(
      [&] {
        for (const auto& filter : project_->DataFilters()) {
          int32_t item = 0;
          int32_t key = 0;
          std::string name;
          filter->ItemValues(item, key, name);
          data_filters_[std::to_string(key)] = true;
        }
      },
      [&](const RuntimeError& error) { problems_.push_back("data filters: " + error.description); });
}

void ProjectFacts::GatherModelDefinitions() {
  RunTrapped(
      [&] {
        for (const auto& model : project_->ModelDefinitions()) {
          int32_t item = 0;
          int32_t key = 0;
          std::string name;
          model->ItemValues(item, key, name);
          const std::string engine = model->EngineName();
          bool offered = TextEquals(engine, "MA");
          if (TextEquals(engine, "MRDS")) {
            offered = TextEquals(
                DefinitionEntryCodec::Instance().EntryValue(model->DefinitionText(), "Method"), "ds");
          }
          if (offered) model_definitions_[std::to_string(key)] = true;
        }
      },
      [&](const RuntimeError& error) { problems_.push_back("model definitions: " + error.description); });
}

bool ProjectFacts::OffersSurvey(const std::string& id) const {
  auto found = survey_offered_.find(Key(id));
  return found != survey_offered_.end() && found->second;
}

bool ProjectFacts::HasDesign(const std::string& id) const { return design_texts_.count(Key(id)) > 0; }

bool ProjectFacts::HasDataFilter(const std::string& id) const { return data_filters_.count(Key(id)) > 0; }

bool ProjectFacts::OffersModelDefinition(const std::string& id) const {
  return model_definitions_.count(Key(id)) > 0;
}

const std::vector<std::string>& ProjectFacts::LayersOfferedFor(const std::string& survey_id) {
  auto found = offered_layers_.find(Key(survey_id));
  if (found == offered_layers_.end()) {
    found = offered_layers_.emplace(Key(survey_id), OfferedLayers(Key(survey_id))).first;
  }
  return found->second;
}

std::vector<std::string> ProjectFacts::OfferedLayers(const std::string& survey_id) {
  std::vector<std::string> layers;
  auto design = design_of_survey_.find(survey_id);
  if (!project_ || design == design_of_survey_.end()) return layers;
  auto text = design_texts_.find(std::to_string(design->second));
  if (text == design_texts_.end()) return layers;
  std::string stratum_layer;
  std::string_view rest = text->second;
  DefinitionEntry entry;
  bool read = RunTrapped(
      [&] {
        while (!rest.empty() && stratum_layer.empty()) {
          DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
          if (TextEquals(entry.key, "STRATUM LAYER")) stratum_layer = entry.value;
        }
        auto catalogue = project_->Companion();
        std::string current = stratum_layer;
        layers.push_back(current);
        for (int depth = 0; depth < kMaxLayerDepth; ++depth) {
          auto layer = catalogue->LayerByName(current);
          if (!layer || layer->Kind() == 1) break;
          auto parent = layer->Parent("");
          if (!parent) break;
          current = parent->Name();
          layers.push_back(current);
        }
      },
      [&](const RuntimeError&) {});
  if (!read) layers.clear();
  return layers;
}

const std::optional<std::vector<std::string>>& ProjectFacts::StrataOf(const std::string& layer_name) {
  auto found = strata_.find(Key(layer_name));
  if (found == strata_.end()) found = strata_.emplace(Key(layer_name), ReadStrata(layer_name)).first;
  return found->second;
}

std::optional<std::vector<std::string>> ProjectFacts::ReadStrata(const std::string& layer_name) {
  std::optional<std::vector<std::string>> strata;
  if (!project_) return strata;
  RunTrapped(
      [&] {
        auto layer = project_->Companion()->LayerByName(layer_name);
        if (!layer) return;
        auto table = layer->AttributeTable();
        auto label = table->LabelField();
        std::string fields = table->IDField()->Name();
        if (label) fields += "," + label->Name();
        auto rows = layer->GetRows(fields, 0, 1);
        std::vector<std::string> names;
        std::vector<std::string>& ids = strata_ids_[Key(layer_name)];
        ids.clear();
        if (rows && !rows->empty()) {
          for (std::size_t r = 0; r < rows->front().size(); ++r) {
            ids.push_back(VariantToText(rows->front()[r]));
            names.push_back(label && rows->size() > 1 ? VariantToText((*rows)[1][r]) : std::string());
          }
        }
        strata = names;
      },
      [&](const RuntimeError&) { strata.reset(); });
  return strata;
}

const std::vector<std::string>& ProjectFacts::StrataIdsOf(const std::string& layer_name) {
  StrataOf(layer_name);
  return strata_ids_[Key(layer_name)];
}

const StrataGeometry* ProjectFacts::GeometryOf(const std::string& layer_name) {
  auto found = geometry_.find(Key(layer_name));
  if (found == geometry_.end()) found = geometry_.emplace(Key(layer_name), ReadGeometry(layer_name)).first;
  return found->second.get();
}

std::unique_ptr<StrataGeometry> ProjectFacts::ReadGeometry(const std::string& layer_name) {
  std::unique_ptr<StrataGeometry> geometry;
  auto source = std::dynamic_pointer_cast<LayerGeometrySource>(project_);
  if (!source) return geometry;
  RunTrapped(
      [&] {
        std::optional<LayerShapes> shapes = source->LayerGeometry(layer_name);
        if (shapes && !shapes->strata.empty())
          geometry = std::make_unique<StrataGeometry>(std::move(*shapes));
      },
      [&](const RuntimeError& error) { problems_.push_back("layer geometry: " + error.description); });
  return geometry;
}

std::string ProjectFacts::DesignOfSurvey(const std::string& survey_id) const {
  auto found = design_of_survey_.find(Key(survey_id));
  return found == design_of_survey_.end() ? std::string() : std::to_string(found->second);
}

ProjectFacts::DesignDistances ProjectFacts::DistancesOfDesign(const std::string& design_id) const {
  DesignDistances distances;
  auto text = design_texts_.find(Key(design_id));
  if (text == design_texts_.end()) return distances;
  std::string_view rest = text->second;
  DefinitionEntry entry;
  RunTrapped(
      [&] {
        while (!rest.empty()) {
          DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
          if (TextEquals(entry.key, "Truncation")) distances.truncation = entry.value;
          if (!TextEquals(entry.key, "Type")) continue;
          const auto given = static_cast<std::size_t>(std::max(entry.field_count, 0));
          for (std::size_t i = 0; i < given && i < entry.field_names.size() && i < entry.field_values.size();
               ++i) {
            if (TextEquals(entry.field_names[i], "Spacing")) distances.spacing = entry.field_values[i];
          }
        }
      },
      [&](const RuntimeError&) {});
  return distances;
}

}  // namespace zrsimprp

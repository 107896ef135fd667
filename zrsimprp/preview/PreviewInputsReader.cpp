#include "zrsimprp/preview/PreviewInputsReader.h"

#include <exception>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"

namespace zrsimprp {

namespace {

std::string PopulationSizeOf(const OptionGroup& options) {
  switch (options.Selected()) {
    case 0:
      return "Fixed N";
    case 1:
      return "Poisson N";
    case 2:
      return "Fixed D";
    default:
      return "";
  }
}

// The first entry of that key in a definition text, fields included; false when there is none.
bool FindEntry(const std::string& text, const std::string& key, DefinitionEntry& found) {
  std::string_view rest = text;
  DefinitionEntryCodec& codec = DefinitionEntryCodec::Instance();
  while (!TrimBlanks(rest).empty()) {
    DefinitionEntry entry;
    try {
      codec.ReadNextEntry(rest, entry);
    } catch (const std::exception&) {
      continue;  // the codec has dropped the malformed entry
    }
    if (TextEquals(entry.key, key)) {
      found = entry;
      return true;
    }
  }
  return false;
}

std::string FieldOf(const DefinitionEntry& entry, const std::string& name) {
  for (size_t i = 0; i < entry.field_names.size() && i < entry.field_values.size(); ++i) {
    if (TextEquals(entry.field_names[i], name)) return entry.field_values[i];
  }
  return "";
}

void ReadPopulation(SIMProperties& control, PreviewInputs& inputs) {
  CPagPopulationDescription& page = control.pagPopulation;
  inputs.population_size = PopulationSizeOf(page.optNcalculation);
  const Grid& table = page.flxN;
  if (table.Rows() >= 2) {
    for (int col = 1; col < table.Cols(); ++col) inputs.population_values.push_back(table.TextMatrix(1, col));
  }
  inputs.clusters = page.Clusters();
  inputs.mean_cluster_size = page.MeanClusterSize();
}

void ReadDetection(SIMProperties& control, PreviewInputs& inputs) {
  CPagDetectability& page = control.pagDetectability;
  inputs.key_function = page.cboDetect.Text();
  const Grid& table = page.flxDetect;
  for (int col = 1; col < table.Cols(); ++col) inputs.detection_columns.push_back(table.TextMatrix(0, col));
  for (int row = 1; row < table.Rows(); ++row) {
    inputs.parameter_names.push_back(table.TextMatrix(row, 0));
    std::vector<std::string> cells;
    for (int col = 1; col < table.Cols(); ++col) cells.push_back(table.TextMatrix(row, col));
    inputs.parameters.push_back(cells);
  }
}

void ReadCovariates(SIMProperties& control, PreviewInputs& inputs) {
  CPagPopulationCovars& page = control.pagCovariates;
  inputs.continuous_cov = page.ContinuousCov();
  inputs.mean_cov = page.MeanConinuousCov();
  const std::vector<std::string> levels = page.CatCovLevels();
  if (levels.empty() || levels.front().empty()) return;
  inputs.levels = levels;
  const Grid& table = page.flxCategoricalCov;
  for (const std::string& level : levels) {
    std::string probability;
    for (int col = 1; col < table.Cols() && table.Rows() >= 2; ++col) {
      if (table.TextMatrix(0, col) == level) probability = table.TextMatrix(1, col);
    }
    inputs.level_probabilities.push_back(probability);
  }
}

}  // namespace

PreviewInputs PreviewInputsReader::FromPages(SIMProperties& control) {
  PreviewInputs inputs;
  inputs.strata = control.pagSimulation.StrataNames();
  if (inputs.strata.size() == 1 && inputs.strata.front().empty()) inputs.strata.clear();
  inputs.layers.region_layer = control.pagSimulation.cboRegionLayer.Text();
  inputs.density = DensityMapInputs::FromPage(control.pagDensity);
  ReadPopulation(control, inputs);
  ReadDetection(control, inputs);
  ReadCovariates(control, inputs);
  return inputs;
}

PreviewInputs PreviewInputsReader::FromControl(SIMProperties& control,
                                               const std::shared_ptr<ProjectDatabase>& database) {
  PreviewInputs inputs = FromPages(control);
  const std::string layer = inputs.layers.region_layer;
  MapLayers::LoadRegion(inputs.layers, database, layer);
  if (TextEquals(inputs.density.description, "DSM")) {
    MapLayers::LoadDsm(inputs.layers, database, inputs.density.dsm_layer, inputs.density.dsm_field);
  }
  if (database) {
    inputs.design = DesignOf(*database, control.pagSimulation.TransectObjectType(),
                             control.pagSimulation.TransectObjectID());
  } else {
    inputs.design.missing = "There is no project, so there is no survey design to preview.";
  }
  return inputs;
}

PreviewDesign PreviewInputsReader::DesignOf(ProjectDatabase& database, const std::string& object_type,
                                            const std::string& object_id) {
  PreviewDesign design;
  const std::string id(TrimBlanks(object_id));
  if (object_type.empty() || id.empty() || id == "0") {
    design.missing = "The simulation names no survey or design, so there is no survey design to preview.";
    return design;
  }
  try {
    std::string design_id = id;
    if (TextEquals(object_type, "Survey")) {
      design_id.clear();
      for (const auto& group : database.SurveyGroups()) {
        for (const auto& survey : group->Records()) {
          if (std::to_string(survey->ID()) == id) design_id = std::to_string(survey->DesignID());
        }
      }
      if (design_id.empty()) {
        design.missing = "The survey " + id + " the simulation names is not in the project.";
        return design;
      }
    }
    for (const auto& group : database.DesignGroups()) {
      for (const auto& record : group->Records()) {
        if (std::to_string(record->ID()) == design_id)
          return DesignFromText(record->Name(), record->DefinitionText());
      }
    }
    design.missing = "The design " + design_id + " the simulation's transects use is not in the project.";
  } catch (const std::exception& error) {
    design.missing = "The project's designs could not be read (" + std::string(error.what()) + ").";
  }
  return design;
}

PreviewDesign PreviewInputsReader::DesignFromText(const std::string& name, const std::string& text) {
  PreviewDesign design;
  design.found = true;
  design.name = name;
  DefinitionEntry entry;
  if (FindEntry(text, "Type", entry)) {
    design.type = entry.value;
    design.spacing = FieldOf(entry, "Spacing");
  }
  if (FindEntry(text, "Truncation", entry)) design.truncation = entry.value;
  return design;
}

}  // namespace zrsimprp

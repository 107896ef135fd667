#include "zrsimprp/preview/PreviewInputsReader.h"

#include <cmath>
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

// The page's own conversions, so that the preview's numbers are the ones the page hands over when its
// tab is left; a value they cannot read counts as 0 here (the page's check names it on leaving).
template <class Compute>
double OrZero(Compute compute) {
  try {
    return compute();
  } catch (const std::exception&) {
    return 0.0;
  }
}

// The mean cluster size as the Population page's cluster controls hold it now: the pmf table's
// sizes weighted by their probabilities, or the named distribution's mean (Poisson lambda, negative
// binomial r·p/(1-p) with r a whole number).
double MeanClusterSizeNow(const CPagPopulationDescription& page) {
  if (page.chkClusters.Value() == CheckBox::kUnchecked) return 0.0;
  if (page.optClusterDist.Selected() == 0) {
    const Grid& sizes = page.flxClusterSize;
    return OrZero([&sizes] {
      double mean = 0.0;
      for (int c = 1; c < sizes.Cols() && sizes.Rows() >= 2; ++c)
        mean += ToDouble(sizes.TextMatrix(0, c)) * ToDouble(sizes.TextMatrix(1, c));
      return mean;
    });
  }
  if (page.optClusterDist.Selected() != 1) return 0.0;
  const Grid& parameters = page.flxClusterParam;
  const std::string& distribution = page.cboDistribution.Text();
  if (parameters.Rows() < 2 || parameters.Cols() < 2) return 0.0;
  if (TextEquals(distribution, "Poisson"))
    return OrZero([&] { return ToDouble(parameters.TextMatrix(1, 1)); });
  if (TextEquals(distribution, "Negative-Binomial") && parameters.Cols() >= 3) {
    return OrZero([&] {
      const double r = ToInt16(ToDouble(parameters.TextMatrix(1, 1)));
      const double p = ToDouble(parameters.TextMatrix(1, 2));
      return Divide(r * p, 1.0 - p);
    });
  }
  return 0.0;
}

void ReadPopulation(SIMProperties& control, PreviewInputs& inputs) {
  CPagPopulationDescription& page = control.pagPopulation;
  inputs.population_size = PopulationSizeOf(page.optNcalculation);
  const Grid& table = page.flxN;
  if (table.Rows() >= 2) {
    for (int col = 1; col < table.Cols(); ++col) inputs.population_values.push_back(table.TextMatrix(1, col));
  }
  inputs.clusters = page.Clusters();
  // Read from the controls, not from what the page hands over on leaving its tab, so that the
  // preview follows each edit.
  inputs.mean_cluster_size = MeanClusterSizeNow(page);
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

// The continuous covariate's name and mean as the Covariates page's controls hold them now: mu for a
// Normal, exp(mu + sigma²/2) for a Log-Normal.
void ReadContinuous(const CPagPopulationCovars& page, PreviewInputs& inputs) {
  if (page.chkContinuousCov.Value() != CheckBox::kChecked) return;
  inputs.continuous_cov = page.txtContinuousCov.Text();
  const Grid& parameters = page.flxContinuousCov;
  const std::string& distribution = page.cboDistribution.Text();
  if (parameters.Rows() < 2 || parameters.Cols() < 2) return;
  if (TextEquals(distribution, "Normal")) {
    inputs.mean_cov = OrZero([&] { return ToDouble(parameters.TextMatrix(1, 1)); });
  } else if (TextEquals(distribution, "Log-Normal") && parameters.Cols() >= 3) {
    inputs.mean_cov = OrZero([&] {
      const double mu = ToDouble(parameters.TextMatrix(1, 1));
      const double sigma = ToDouble(parameters.TextMatrix(1, 2));
      return std::exp(mu + sigma * sigma / 2.0);
    });
  }
}

// The categorical covariate's levels ("sex.m", as the Detectability page's rows name them) and their
// probabilities as typed, column by column of the Covariates page's table.
void ReadCategorical(const CPagPopulationCovars& page, PreviewInputs& inputs) {
  if (page.chkCategoricalCov.Value() != CheckBox::kChecked) return;
  const Grid& table = page.flxCategoricalCov;
  const std::string& name = page.txtCategoricalCov.Text();
  for (int col = 1; col < table.Cols(); ++col) {
    inputs.levels.push_back(name + "." + table.TextMatrix(0, col));
    inputs.level_probabilities.push_back(table.Rows() >= 2 ? table.TextMatrix(1, col) : std::string());
  }
}

void ReadCovariates(SIMProperties& control, PreviewInputs& inputs) {
  ReadContinuous(control.pagCovariates, inputs);
  ReadCategorical(control.pagCovariates, inputs);
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

#include "zrsim/DefinitionSummary.h"

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ErrorTrap.h"

namespace zrsim {

using zrsimprp::TextEquals;

void DefinitionSummary::Write(std::ostream& out) {
  WriteSimulation(out);
  WriteDensity(out);
  WritePopulation(out);
  WriteCovariates(out);
  WriteDetectability(out);
  WriteAnalysis(out);
  WriteMisc(out);
}

void DefinitionSummary::WriteSimulation(std::ostream& out) {
  auto& page = control_.pagSimulation;
  out << "Simulation\n";
  Line(out, "Transects", [&] { return page.TransectObjectType() + " " + page.TransectObjectID(); });
  Line(out, "Region / strata layer", [&] { return page.StrataLayer(); });
  Line(out, "Strata", [&] {
    return std::to_string(page.StrataNum()) +
           (page.StrataNum() > 0 ? " (" + Joined(page.StrataNames()) + ")" : "");
  });
  Line(out, "Repetitions", [&] { return page.Reps(); });
}

void DefinitionSummary::WriteDensity(std::ostream& out) {
  auto& page = control_.pagDensity;
  out << "Density\n";
  std::string description;
  Line(out, "Surface", [&] { return description = page.Description(); });
  if (TextEquals(description, "Uniform")) {
    Line(out, "Densities", [&] { return page.Densities(); });
  } else if (TextEquals(description, "Simple")) {
    Line(out, "Formula", [&] { return page.Formula(); });
  } else if (TextEquals(description, "DSM")) {
    Line(out, "Layer", [&] { return page.DSMLayer(); });
    Line(out, "Field", [&] { return page.DSMField(); });
  }
  Line(out, "Grid spacing", [&] { return page.GridSpacing(); });
  int16_t hotspots = 0;
  Line(out, "Hotspots", [&] { return std::to_string(hotspots = page.NumHotspots()); });
  for (int16_t k = 1; k <= hotspots; ++k) {
    Line(out, "  Hotspot " + std::to_string(k) + " (X,Y,Sig,Amp)", [&] { return page.HotspotValues(k); });
  }
}

void DefinitionSummary::WritePopulation(std::ostream& out) {
  auto& page = control_.pagPopulation;
  out << "Population\n";
  Line(out, "Population size", [&] { return page.PopulationSize(); });
  Line(out, "Values", [&] { return page.PopSizeValues(); });
  std::string clustered;
  Line(out, "Clusters", [&] { return clustered = page.ClusteredPop(); });
  if (!TextEquals(clustered, "True")) return;
  std::string distribution;
  Line(out, "Cluster size distribution", [&] { return distribution = page.ClusterDistribution(); });
  if (TextEquals(distribution, "pmf")) {
    Line(out, "Cluster sizes", [&] { return page.ClusterPMF(0); });
    Line(out, "Probabilities", [&] { return page.ClusterPMF(1); });
  } else {
    Line(out, "Parameters", [&] { return page.ClusterParams(); });
  }
  Line(out, "Mean cluster size", [&] { return zrsimprp::DoubleText(page.MeanClusterSize()); });
}

void DefinitionSummary::WriteCovariates(std::ostream& out) {
  auto& page = control_.pagCovariates;
  out << "Covariates\n";
  bool categorical = false;
  Line(out, "Categorical covariate",
       [&] { return zrsimprp::BooleanText(categorical = page.CategoricalCov()); });
  if (categorical) {
    Line(out, "  Name", [&] { return page.CategoricalName(); });
    Line(out, "  Levels", [&] { return page.CategoricalValues(0); });
    Line(out, "  Probabilities", [&] { return page.CategoricalValues(1); });
  }
  bool continuous = false;
  Line(out, "Continuous covariate",
       [&] { return zrsimprp::BooleanText(continuous = page.ContinuousCovariate()); });
  if (continuous) {
    Line(out, "  Name", [&] { return page.ContinuousName(); });
    Line(out, "  Distribution", [&] { return page.ContinuousDist(); });
    Line(out, "  Parameters", [&] { return page.ContinuousParams(); });
  }
}

void DefinitionSummary::WriteDetectability(std::ostream& out) {
  auto& page = control_.pagDetectability;
  out << "Detectability\n";
  Line(out, "Detection function", [&] { return page.DetFunction(); });
  Line(out, "Parameters by stratum", [&] { return page.ParamByStratum(); });
  int16_t params = 0;
  Line(out, "Parameters", [&] { return std::to_string(params = page.NumParams()); });
  for (int32_t i = 1; i <= params; ++i) {
    std::string name;
    zrsimprp::RunTrapped([&] { name = page.ParamName(i); }, [](const zrsimprp::RuntimeError&) {});
    Line(out, "  " + (name.empty() ? "Parameter " + std::to_string(i) : name), [&] { return page.Param(i); });
  }
}

void DefinitionSummary::WriteAnalysis(std::ostream& out) {
  auto& page = control_.pagAnalyses;
  out << "Analysis\n";
  Line(out, "Analyse", [&] { return page.Analyse(); });
  // The list shows "identifier name"; the property gives the identifier ("0" for none).
  Line(out, "Data filter", [&] { return ListChoice(page.DataFilter(), page.cboDataFilter.Text()); });
  Line(out, "Model definition", [&] { return ListChoice(page.ModelDef(), page.cboModelDef.Text()); });
  Line(out, "Model selection", [&] { return page.Criteria(); });
}

void DefinitionSummary::WriteMisc(std::ostream& out) {
  auto& page = control_.pagMisc;
  out << "Misc\n";
  Line(out, "Run in parallel", [&] { return page.Parallel(); });
  Line(out, "Max cores", [&] { return page.Cores(); });
}

void DefinitionSummary::Line(std::ostream& out, const std::string& label,
                             const std::function<std::string()>& value) {
  std::string text;
  zrsimprp::RunTrapped(
      [&] { text = value(); },
      [&](const zrsimprp::RuntimeError& error) { text = "(cannot be read: " + error.description + ")"; });
  out << "  " << label << ": " << text << "\n";
}

std::string DefinitionSummary::ListChoice(const std::string& identifier, const std::string& list_text) {
  return list_text.empty() ? identifier + " (none)" : list_text;
}

std::string DefinitionSummary::Joined(const std::vector<std::string>& values) {
  std::string joined;
  for (const std::string& value : values) {
    if (!joined.empty()) joined += ", ";
    joined += value.empty() ? "(no label)" : value;
  }
  return joined;
}

}  // namespace zrsim

#include "zrsimprp/entries/PopulationEntries.h"

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/DefinitionReader.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryOutput.h"
#include "zrsimprp/entries/EntryShow.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

FieldLayout PopSizeFields(const std::string& value, const std::string&) {
  // The values are read whatever the word, though "Poisson N" writes none.
  if (TextEquals(value, "Poisson N")) return FieldLayout{{}, 1};
  return FieldLayout{{"Values"}, 1};
}

FieldLayout ClustersFields(const std::string& value, const std::string& distribution) {
  if (!TextEquals(value, "True")) return FieldLayout();
  const ValueRule distribution_rule =
      ValueRule::Word({"pmf", "Poisson", "Negative-Binomial"}, "so no cluster size distribution is chosen");
  if (TextEquals(distribution, "pmf")) {
    return FieldLayout{
        {"Distribution", "size", "prob"}, 3, FieldLayout::Naming::kByPosition, {distribution_rule}};
  }
  return FieldLayout{{"Distribution", "param"}, 2, FieldLayout::Naming::kByPosition, {distribution_rule}};
}

EntryRow PopSizeRow() {
  EntryRow row;
  row.key = entry_key::kPopSize;
  row.fields = PopSizeFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagPopulationDescription& page = reader.Control().pagPopulation;
    page.SetPopulationSize(entry.value);
    page.SetPopSizeValues(DefinitionReader::Field(entry, 1));
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagPopulationDescription& page = control.pagPopulation;
    const std::string population_size = page.PopulationSize();
    const std::vector<std::string> names = PopSizeFields(population_size, "").names;
    if (names.empty()) {
      out.ClearFieldCount();
    } else {
      out.SetFields(names, {page.PopSizeValues()});
    }
    out.Append(entry_key::kPopSize, population_size);
  };
  row.value_rule = ValueRule::Word({"Fixed N", "Poisson N", "Fixed D"}, "so it changes nothing");
  row.own_check = true;  // the values per stratum
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagPopulationDescription& page = control.pagPopulation;
    show.Section("Population");
    show.Line("Population size", [&] { return page.PopulationSize(); });
    show.Line("Values", [&] { return page.PopSizeValues(); });
  };
  row.doc = {{"`Fixed N`, `Poisson N` or `Fixed D`",
              "`Values` (comma list, one per stratum); none for `Poisson N`", "always"}};
  return row;
}

EntryRow ClustersRow() {
  EntryRow row;
  row.key = entry_key::kClusters;
  row.fields = ClustersFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagPopulationDescription& page = reader.Control().pagPopulation;
    page.SetClusteredPop(entry.value);
    if (!TextEquals(entry.value, "True")) return;
    const std::string& distribution = DefinitionReader::Field(entry, 1);
    page.SetClusterDistribution(distribution);
    if (!TextEquals(distribution, "pmf")) {
      // Set twice on purpose: the page sees the distribution again before its parameters.
      page.SetClusterDistribution(distribution);
      page.SetClusterParams(DefinitionReader::Field(entry, 2));
    } else {
      page.SetClusterPMFSize(DefinitionReader::Field(entry, 2));
      page.SetClusterPMFProb(DefinitionReader::Field(entry, 3));
    }
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagPopulationDescription& page = control.pagPopulation;
    const std::string clustered = page.ClusteredPop();
    if (TextEquals(clustered, "True")) {
      const std::string distribution = page.ClusterDistribution();
      const std::vector<std::string> names = ClustersFields(clustered, distribution).names;
      if (!TextEquals(distribution, "pmf")) {
        out.SetFields(names, {distribution, page.ClusterParams()});
      } else {
        out.SetFields(names, {distribution, page.ClusterPMF(0), page.ClusterPMF(1)});
      }
    } else {
      out.ClearFieldCount();
    }
    out.Append(entry_key::kClusters, clustered);
  };
  row.value_rule = ValueRule::Boolean("so clusters are switched off");
  row.own_check = true;  // the parameters, or the sizes and their probabilities
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagPopulationDescription& page = control.pagPopulation;
    std::string clustered;
    show.Line(entry_key::kClusters, [&] { return clustered = page.ClusteredPop(); });
    if (!TextEquals(clustered, "True")) return;
    std::string distribution;
    show.Line("Cluster size distribution", [&] { return distribution = page.ClusterDistribution(); });
    if (TextEquals(distribution, "pmf")) {
      show.Line("Cluster sizes", [&] { return page.ClusterPMF(0); });
      show.Line("Probabilities", [&] { return page.ClusterPMF(1); });
    } else {
      show.Line("Parameters", [&] { return page.ClusterParams(); });
    }
    show.Line("Mean cluster size", [&] { return DoubleText(page.MeanClusterSize()); });
  };
  row.doc = {
      {"`True` or `False`",
       "when True: `Distribution` (`Poisson`, `Negative-Binomial` or `pmf`), then `param` (comma list) or, "
       "for pmf, `size` and `prob` (comma lists)",
       "always"}};
  return row;
}

}  // namespace

std::vector<EntryRow> PopulationEntries::Rows() { return {PopSizeRow(), ClustersRow()}; }

}  // namespace zrsimprp

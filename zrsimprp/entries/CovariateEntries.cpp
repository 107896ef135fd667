#include "zrsimprp/entries/CovariateEntries.h"

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/DefinitionReader.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryOutput.h"
#include "zrsimprp/entries/EntryShow.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

FieldLayout CategoricalFields(const std::string&, const std::string&) {
  return FieldLayout{{"categories", "prob"}, 2};
}

FieldLayout ContinuousFields(const std::string&, const std::string&) {
  return FieldLayout{{"distribution", "param"},
                     2,
                     FieldLayout::Naming::kByPosition,
                     {ValueRule::Word({"Normal", "Log-Normal"}, "so no distribution is chosen")}};
}

EntryRow CategoricalCovRow() {
  EntryRow row;
  row.key = entry_key::kCategoricalCov;
  row.fields = CategoricalFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagPopulationCovars& page = reader.Control().pagCovariates;
    page.SetCategoricalCov(true);
    page.SetCategoricalName(entry.value);
    page.SetCategoricalLevels(DefinitionReader::Field(entry, 1));
    page.SetCategoricalProbs(DefinitionReader::Field(entry, 2));
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagPopulationCovars& page = control.pagCovariates;
    if (!page.CategoricalCov()) return;
    out.SetFields(CategoricalFields("", "").names, {page.CategoricalValues(0), page.CategoricalValues(1)});
    out.Append(entry_key::kCategoricalCov, page.CategoricalName());
  };
  row.own_check = true;  // levels and probabilities
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagPopulationCovars& page = control.pagCovariates;
    show.Section("Covariates");
    bool categorical = false;
    show.Line("Categorical covariate", [&] { return BooleanText(categorical = page.CategoricalCov()); });
    if (!categorical) return;
    show.Line("  Name", [&] { return page.CategoricalName(); });
    show.Line("  Levels", [&] { return page.CategoricalValues(0); });
    show.Line("  Probabilities", [&] { return page.CategoricalValues(1); });
  };
  row.doc = {{"the covariate's name", "`categories` (comma list of levels), `prob` (comma list)",
              "when a categorical covariate is included"}};
  return row;
}

EntryRow ContinuousCovRow() {
  EntryRow row;
  row.key = entry_key::kContinuousCov;
  row.fields = ContinuousFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagPopulationCovars& page = reader.Control().pagCovariates;
    page.SetContinuousCovariate(true);
    page.SetContinuousName(entry.value);
    page.SetContinuousDist(DefinitionReader::Field(entry, 1));
    page.SetContinuousParams(DefinitionReader::Field(entry, 2));
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagPopulationCovars& page = control.pagCovariates;
    if (!page.ContinuousCovariate()) return;
    out.SetFields(ContinuousFields("", "").names, {page.ContinuousDist(), page.ContinuousParams()});
    out.Append(entry_key::kContinuousCov, page.ContinuousName());
  };
  row.own_check = true;  // mu and sigma
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagPopulationCovars& page = control.pagCovariates;
    bool continuous = false;
    show.Line("Continuous covariate", [&] { return BooleanText(continuous = page.ContinuousCovariate()); });
    if (!continuous) return;
    show.Line("  Name", [&] { return page.ContinuousName(); });
    show.Line("  Distribution", [&] { return page.ContinuousDist(); });
    show.Line("  Parameters", [&] { return page.ContinuousParams(); });
  };
  row.doc = {{"the covariate's name", "`distribution` (`Normal` or `Log-Normal`), `param` (mu,sigma)",
              "when a continuous covariate is included"}};
  return row;
}

}  // namespace

std::vector<EntryRow> CovariateEntries::Rows() { return {CategoricalCovRow(), ContinuousCovRow()}; }

}  // namespace zrsimprp

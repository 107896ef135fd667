#include "zrsimprp/entries/AnalysisEntries.h"

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/DefinitionReader.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryOutput.h"
#include "zrsimprp/entries/EntryShow.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

FieldLayout NoFields(const std::string&, const std::string&) { return FieldLayout(); }

// The data filter, model definition and selection criterion are written only when analysis is on.
bool Analysed(SIMProperties& control) { return TextEquals(control.pagAnalyses.Analyse(), "True"); }

// The list shows "identifier name"; the property gives the identifier ("0" for none).
std::string ListChoice(const std::string& identifier, const std::string& list_text) {
  return list_text.empty() ? identifier + " (none)" : list_text;
}

EntryRow AnalyseRow() {
  EntryRow row;
  row.key = entry_key::kAnalyse;
  row.fields = NoFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    reader.Control().pagAnalyses.SetAnalyse(entry.value);
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    out.AppendWithoutFields(entry_key::kAnalyse, control.pagAnalyses.Analyse());
  };
  row.value_rule = ValueRule::Boolean("so it changes nothing");
  row.show = [](SIMProperties& control, EntryShow& show) {
    show.Section("Analysis");
    show.Line(entry_key::kAnalyse, [&] { return control.pagAnalyses.Analyse(); });
  };
  row.doc = {{"`True` / `False`", "none", "always"}};
  return row;
}

EntryRow DataFilterRow() {
  EntryRow row;
  row.key = entry_key::kDataFilter;
  row.fields = NoFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    reader.Control().pagAnalyses.SetDataFilter(entry.value);
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    if (Analysed(control)) out.AppendWithoutFields(entry_key::kDataFilter, control.pagAnalyses.DataFilter());
  };
  row.value_rule = ValueRule::Reference();
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagAnalyses& page = control.pagAnalyses;
    show.Line("Data filter", [&] { return ListChoice(page.DataFilter(), page.cboDataFilter.Text()); });
  };
  row.doc = {{"the data filter's identifier (`0` for none)", "none", "when Analyse is True"}};
  return row;
}

EntryRow ModelDefRow() {
  EntryRow row;
  row.key = entry_key::kModelDef;
  row.fields = NoFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    reader.Control().pagAnalyses.SetModelDef(entry.value);
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    if (Analysed(control)) out.AppendWithoutFields(entry_key::kModelDef, control.pagAnalyses.ModelDef());
  };
  row.value_rule = ValueRule::Reference();
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagAnalyses& page = control.pagAnalyses;
    show.Line("Model definition", [&] { return ListChoice(page.ModelDef(), page.cboModelDef.Text()); });
  };
  row.doc = {{"the model definition's identifier (`0` for none)", "none", "when Analyse is True"}};
  return row;
}

EntryRow ModelSelectionRow() {
  EntryRow row;
  row.key = entry_key::kModelSelection;
  row.fields = NoFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    reader.Control().pagAnalyses.SetCriteria(entry.value);
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    if (Analysed(control))
      out.AppendWithoutFields(entry_key::kModelSelection, control.pagAnalyses.Criteria());
  };
  row.value_rule = ValueRule::Word({"AIC", "AICc", "BIC"}, "so \"AIC\" is selected");
  row.show = [](SIMProperties& control, EntryShow& show) {
    show.Line("Model selection", [&] { return control.pagAnalyses.Criteria(); });
  };
  row.doc = {{"`AIC`, `AICc` or `BIC`", "none", "when Analyse is True"}};
  return row;
}

}  // namespace

std::vector<EntryRow> AnalysisEntries::Rows() {
  return {AnalyseRow(), DataFilterRow(), ModelDefRow(), ModelSelectionRow()};
}

}  // namespace zrsimprp

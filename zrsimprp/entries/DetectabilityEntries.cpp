#include "zrsimprp/entries/DetectabilityEntries.h"

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/DefinitionReader.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryOutput.h"
#include "zrsimprp/entries/EntryShow.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ErrorTrap.h"

namespace zrsimprp {
namespace {

FieldLayout DetectabilityFields(const std::string&, const std::string&) {
  return FieldLayout{{"ParamByStratum"},
                     1,
                     FieldLayout::Naming::kByPosition,
                     {ValueRule::Boolean("so it is read as False").WhenGiven()}};
}

// The one field is named after its parameter ("Scale", "Shape", "cluster size", ...).
FieldLayout DetFuncParamFields(const std::string&, const std::string&) {
  return FieldLayout{{}, 1, FieldLayout::Naming::kNamesParameter};
}

void AppendParameter(EntryOutput& out, const std::string& name, const std::string& values) {
  out.SetFields({name}, {values});
  out.Append(entry_key::kDetFuncParam, "");
}

EntryRow DetectabilityRow() {
  EntryRow row;
  row.key = entry_key::kDetectability;
  row.fields = DetectabilityFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagDetectability& page = reader.Control().pagDetectability;
    page.SetDetFunction(entry.value);
    page.SetParamByStratum(DefinitionReader::Field(entry, 1));
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagDetectability& page = control.pagDetectability;
    const std::string det_function = page.DetFunction();
    out.SetFields(DetectabilityFields("", "").names, {page.ParamByStratum()});
    out.Append(entry_key::kDetectability, det_function);
  };
  row.value_rule = ValueRule::Word({"Half-Normal", "Hazard Rate"}, "so \"Half-Normal\" is selected");
  row.own_check = true;  // which function the parameter entries after it are for
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagDetectability& page = control.pagDetectability;
    show.Section(entry_key::kDetectability);  // the page is named like its entry
    show.Line("Detection function", [&] { return page.DetFunction(); });
    show.Line("Parameters by stratum", [&] { return page.ParamByStratum(); });
  };
  row.doc = {{"`Half-Normal` or `Hazard Rate`", "`ParamByStratum` = `True` / `False`", "always"}};
  return row;
}

EntryRow DetFuncParamRow() {
  EntryRow row;
  row.key = entry_key::kDetFuncParam;
  row.fields = DetFuncParamFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    // The parameter is found by the name in the first field-name slot. The cluster size and covariate
    // rows are made when the Detectability tab is entered, so at reading their entries find no row;
    // kept on purpose.
    if (entry.field_names.empty()) {
      throw RuntimeError(error_number::kSubscriptOutOfRange, "ZrSIMPrp", "Subscript out of range");
    }
    CPagDetectability& page = reader.Control().pagDetectability;
    const int32_t row_index = page.ParamRow(entry.field_names[0]);
    page.SetParam(row_index, DefinitionReader::Field(entry, 1));
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagDetectability& page = control.pagDetectability;
    AppendParameter(out, "Scale", page.Param(1));
    if (TextEquals(page.DetFunction(), "Hazard Rate")) AppendParameter(out, "Shape", page.Param(2));
    // Rows 3 on are the cluster size and covariate terms, named after them.
    const int16_t params = page.NumParams();
    for (int32_t i = 3; i <= params; ++i) {
      const std::string name = page.ParamName(i);
      AppendParameter(out, name, page.Param(i));
    }
  };
  row.own_check = true;  // the parameter's values
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagDetectability& page = control.pagDetectability;
    int16_t params = 0;
    show.Line("Parameters", [&] { return std::to_string(params = page.NumParams()); });
    for (int32_t i = 1; i <= params; ++i) {
      std::string name;
      RunTrapped([&] { name = page.ParamName(i); }, [](const RuntimeError&) {});
      show.Line("  " + (name.empty() ? "Parameter " + std::to_string(i) : name),
                [&] { return page.Param(i); });
    }
  };
  row.doc = {{"empty", "`Scale` = the values (one, or one per stratum)", "always"},
             {"empty", "`Shape` = the values", "for `Hazard Rate`"},
             {"empty", "the parameter's name (e.g. `cluster size`, `size`, `sex.male`) = the values",
              "one per covariate term"}};
  return row;
}

}  // namespace

std::vector<EntryRow> DetectabilityEntries::Rows() { return {DetectabilityRow(), DetFuncParamRow()}; }

}  // namespace zrsimprp

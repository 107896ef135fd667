#include "zrsimprp/entries/SimulationEntries.h"

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/DefinitionReader.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryOutput.h"
#include "zrsimprp/entries/EntryShow.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

FieldLayout NoFields(const std::string&, const std::string&) { return FieldLayout(); }

FieldLayout TransectsFields(const std::string& value, const std::string&) {
  // Only a design or a survey has an identifier to take; any other word leaves the field unread.
  const bool identified = TextEquals(value, "Design") || TextEquals(value, "Survey");
  return FieldLayout{{"ObjectID"}, identified ? 1u : 0u};
}

std::string Joined(const std::vector<std::string>& values) {
  std::string joined;
  for (const std::string& value : values) {
    if (!joined.empty()) joined += ", ";
    joined += value.empty() ? "(no label)" : value;
  }
  return joined;
}

EntryRow EngineRow() {
  EntryRow row;
  row.key = entry_key::kEngine;
  row.fields = NoFields;
  // No reader: like any unknown key, "Engine" is passed over when read.
  row.write = [](SIMProperties&, EntryOutput& out) { out.AppendWithoutFields(entry_key::kEngine, "SIM"); };
  row.doc = {{"`SIM`", "none", "always (ignored when read)"}};
  return row;
}

EntryRow TransectsRow() {
  EntryRow row;
  row.key = entry_key::kTransects;
  row.fields = TransectsFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagSimulation& page = reader.Control().pagSimulation;
    page.SetTransectObjectType(entry.value);
    if (TextEquals(entry.value, "Design")) {
      page.SetDesignObjectID(DefinitionReader::Field(entry, 1));
    } else if (TextEquals(entry.value, "Survey")) {
      page.SetSurveyObjectID(DefinitionReader::Field(entry, 1));
    }
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagSimulation& page = control.pagSimulation;
    out.SetFields(TransectsFields("", "").names, {page.TransectObjectID()});
    out.Append(entry_key::kTransects, page.TransectObjectType());
  };
  row.value_rule =
      ValueRule::Word({"Design", "Survey"}, "so a single survey is chosen and its identifier is not read");
  row.own_check = true;  // the design or survey must be in the project
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagSimulation& page = control.pagSimulation;
    show.Section("Simulation");
    show.Line(entry_key::kTransects,
              [&] { return page.TransectObjectType() + " " + page.TransectObjectID(); });
  };
  row.doc = {{"`Design` or `Survey`", "`ObjectID` = the design's or survey's identifier", "always"}};
  return row;
}

EntryRow StrataLayerRow() {
  EntryRow row;
  row.key = entry_key::kStrataLayer;
  row.fields = NoFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    reader.Control().pagSimulation.SetStrataLayer(entry.value);
    reader.HandOverStrata();
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    out.AppendWithoutFields(entry_key::kStrataLayer, control.pagSimulation.StrataLayer());
  };
  row.own_check = true;  // the layer must be offered for the survey; it brings the strata
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagSimulation& page = control.pagSimulation;
    show.Line("Region / strata layer", [&] { return page.StrataLayer(); });
    show.Line("Strata", [&] {
      return std::to_string(page.StrataNum()) +
             (page.StrataNum() > 0 ? " (" + Joined(page.StrataNames()) + ")" : "");
    });
  };
  row.doc = {{"the region / strata layer's name, or `None`", "none", "always"}};
  return row;
}

EntryRow RepsRow() {
  EntryRow row;
  row.key = entry_key::kReps;
  row.fields = NoFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    reader.Control().pagSimulation.SetReps(entry.value);
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    out.AppendWithoutFields(entry_key::kReps, control.pagSimulation.Reps());
  };
  row.value_rule = ValueRule::Number(NumberRule::kWholePositive, "The number of repetitions");
  row.show = [](SIMProperties& control, EntryShow& show) {
    show.Line("Repetitions", [&] { return control.pagSimulation.Reps(); });
  };
  row.doc = {{"number of repetitions", "none", "always"}};
  return row;
}

}  // namespace

std::vector<EntryRow> SimulationEntries::Rows() {
  return {EngineRow(), TransectsRow(), StrataLayerRow(), RepsRow()};
}

}  // namespace zrsimprp

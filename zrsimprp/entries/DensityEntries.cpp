#include "zrsimprp/entries/DensityEntries.h"

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/DefinitionReader.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryOutput.h"
#include "zrsimprp/entries/EntryShow.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

FieldLayout DensityFields(const std::string& value, const std::string&) {
  if (TextEquals(value, "Uniform")) return FieldLayout{{"Densities", "GridSpace"}, 2};
  if (TextEquals(value, "Simple")) return FieldLayout{{"Formula", "GridSpace"}, 2};
  // A DSM density writes its layer and field, but they are not read back: the page finds them itself.
  if (TextEquals(value, "DSM")) return FieldLayout{{"Layer", "Field"}, 0, FieldLayout::Naming::kNotReadBack};
  return FieldLayout();
}

FieldLayout HotspotFields(const std::string&, const std::string&) { return FieldLayout{{"X,Y,Sig,Amp"}, 1}; }

EntryRow DensityRow() {
  EntryRow row;
  row.key = entry_key::kDensity;
  row.fields = DensityFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagDensity& page = reader.Control().pagDensity;
    page.SetDescription(entry.value);
    if (TextEquals(entry.value, "Uniform")) {
      page.SetDensities(DefinitionReader::Field(entry, 1));
      page.SetGridSpacing(DefinitionReader::Field(entry, 2));
    } else if (TextEquals(entry.value, "Simple")) {
      page.SetFormula(DefinitionReader::Field(entry, 1));
      page.SetGridSpacing(DefinitionReader::Field(entry, 2));
    }
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagDensity& page = control.pagDensity;
    const std::string description = page.Description();
    const std::vector<std::string> names = DensityFields(description, "").names;
    if (TextEquals(description, "Uniform")) {
      out.SetFields(names, {page.Densities(), page.GridSpacing()});
    } else if (TextEquals(description, "Simple")) {
      out.SetFields(names, {page.Formula(), page.GridSpacing()});
    } else if (TextEquals(description, "DSM")) {
      out.SetFields(names, {page.DSMLayer(), page.DSMField()});
    }
    // Any other description keeps the slots of the last entry that set them; the engine expects it so.
    out.Append(entry_key::kDensity, description);
  };
  row.own_check = true;  // the description, the densities per stratum and the grid spacing
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagDensity& page = control.pagDensity;
    show.Section(entry_key::kDensity);  // the page is named like its entry
    std::string description;
    show.Line("Surface", [&] { return description = page.Description(); });
    if (TextEquals(description, "Uniform")) {
      show.Line("Densities", [&] { return page.Densities(); });
    } else if (TextEquals(description, "Simple")) {
      show.Line("Formula", [&] { return page.Formula(); });
    } else if (TextEquals(description, "DSM")) {
      show.Line("Layer", [&] { return page.DSMLayer(); });
      show.Line("Field", [&] { return page.DSMField(); });
    }
    show.Line("Grid spacing", [&] { return page.GridSpacing(); });
  };
  row.doc = {
      {"`Uniform`, `Simple` or `DSM`",
       "Uniform: `Densities` (comma list, one per stratum), `GridSpace`; Simple: `Formula`, `GridSpace`; "
       "DSM: `Layer`, `Field`",
       "always"}};
  return row;
}

EntryRow HotspotRow() {
  EntryRow row;
  row.key = entry_key::kHotspot;
  row.fields = HotspotFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagDensity& page = reader.Control().pagDensity;
    page.AddHotspot();
    const int16_t k = page.NumHotspots();
    page.SetHotspotValues(k, DefinitionReader::Field(entry, 1));
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagDensity& page = control.pagDensity;
    // The counter is wider than the 16-bit count so that 32,767 hotspots end the loop instead of wrapping.
    const int32_t hotspots = page.NumHotspots();
    for (int32_t i = 1; i <= hotspots; ++i) {
      out.SetFields(HotspotFields("", "").names, {page.HotspotValues(static_cast<int16_t>(i))});
      out.Append(entry_key::kHotspot, "");
    }
  };
  row.adds_one_each = true;
  row.own_check = true;  // the four numbers
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagDensity& page = control.pagDensity;
    int16_t hotspots = 0;
    show.Line("Hotspots", [&] { return std::to_string(hotspots = page.NumHotspots()); });
    for (int16_t k = 1; k <= hotspots; ++k) {
      show.Line("  Hotspot " + std::to_string(k) + " (X,Y,Sig,Amp)", [&] { return page.HotspotValues(k); });
    }
  };
  row.doc = {{"empty", "`X,Y,Sig,Amp` = the four values as a comma list", "once per hotspot"}};
  return row;
}

}  // namespace

std::vector<EntryRow> DensityEntries::Rows() { return {DensityRow(), HotspotRow()}; }

}  // namespace zrsimprp

#include "zrsimprp/entries/MiscEntries.h"

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/DefinitionReader.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryOutput.h"
#include "zrsimprp/entries/EntryShow.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

// The reader takes the core limit only for a true value; a value that is not a Boolean stops the
// reading before the field is taken.
FieldLayout ParallelFields(const std::string& value, const std::string&) {
  const std::string_view trimmed = TrimBlanks(value);
  const bool is_boolean = TextEquals(trimmed, "True") || TextEquals(trimmed, "False") || IsNumeric(trimmed);
  const bool is_true = TextEquals(trimmed, "True") || (IsNumeric(trimmed) && ToDouble(trimmed) != 0.0);
  return FieldLayout{{"cores"}, is_boolean && is_true ? 1u : 0u};
}

EntryRow ParallelProcessingRow() {
  EntryRow row;
  row.key = entry_key::kParallelProcessing;
  row.fields = ParallelFields;
  row.read = [](DefinitionReader& reader, const DefinitionEntry& entry) {
    CPagMisc& page = reader.Control().pagMisc;
    page.SetParallel(entry.value);
    if (ToBoolean(entry.value)) page.SetCores(DefinitionReader::Field(entry, 1));
  };
  row.write = [](SIMProperties& control, EntryOutput& out) {
    CPagMisc& page = control.pagMisc;
    const std::string parallel = page.Parallel();
    out.SetFields(ParallelFields("", "").names, {page.Cores()});
    out.Append(entry_key::kParallelProcessing, parallel);
  };
  row.own_check = true;  // the Boolean that stops the reading, and the core limit
  row.show = [](SIMProperties& control, EntryShow& show) {
    CPagMisc& page = control.pagMisc;
    show.Section("Misc");
    show.Line("Run in parallel", [&] { return page.Parallel(); });
    show.Line("Max cores", [&] { return page.Cores(); });
  };
  row.doc = {{"`True` / `False`", "`cores` = the core limit, or `max cores` for none", "always"}};
  return row;
}

}  // namespace

std::vector<EntryRow> MiscEntries::Rows() { return {ParallelProcessingRow()}; }

}  // namespace zrsimprp

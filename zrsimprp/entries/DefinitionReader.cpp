#include "zrsimprp/entries/DefinitionReader.h"

#include <string_view>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/EntryTable.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsimprp {

void DefinitionReader::Read(const std::string& text) {
  RunTrapped(
      [&] {
        DefinitionEntryCodec& codec = DefinitionEntryCodec::Instance();
        std::string_view rest(text);
        DefinitionEntry entry;
        // The codec consumes at least one character per call, so the loop ends.
        while (!rest.empty()) {
          codec.ReadNextEntry(rest, entry);
          const EntryRow* row = EntryTable::Find(entry.key);
          if (row != nullptr && row->read != nullptr) row->read(*this, entry);
        }
      },
      [&](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, "SIM", "ReadDefinition", error);
      });
}

void DefinitionReader::HandOverStrata() { control_.StrataHandOver(); }

const std::string& DefinitionReader::Field(const DefinitionEntry& entry, std::size_t position) {
  if (position < 1 || position > entry.field_values.size()) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, "ZrSIMPrp", "Subscript out of range");
  }
  return entry.field_values[position - 1];
}

}  // namespace zrsimprp

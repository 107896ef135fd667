#pragma once

#include <string>
#include <vector>

#include "zrsimprp/host/DefinitionEntryCodec.h"

namespace zrsimprp {

// The lint's questions about entries, answered from the entry table: which entries ReadDefinition
// reads and which fields, by position, it takes from each, and the names WriteDefinition gives those
// fields. Keys and fixed words are compared without regard to case.
class EntryCatalogue {
 public:
  // Every key ReadDefinition dispatches on, spelled as WriteDefinition writes it.
  static const std::vector<std::string>& Keys();
  // The key as WriteDefinition spells it, or "" for a key no page reads.
  static std::string KnownKey(const std::string& key);
  // The names of the fields WriteDefinition writes for this entry's value, in order. For a
  // parameter entry the one field is named after its parameter and this list is empty.
  static std::vector<std::string> FieldNames(const DefinitionEntry& entry);
  // How many field slots ReadDefinition takes from this entry (a slot it lacks stops the reading).
  static std::size_t FieldsRead(const DefinitionEntry& entry);
};

}  // namespace zrsimprp

#pragma once

#include <string>
#include <vector>

#include "zrsimprp/entries/EntryRow.h"

namespace zrsimprp {

// The definition entries, one row per key, in the order WriteDefinition writes them. Keys are
// compared without regard to case.
//
// A new entry is a key in EntryKeys.h and a row in the *Entries.cpp of the page it is written from
// (its reader, writer, fields, rules, summary lines and documentation line); DefinitionReader,
// DefinitionWriter, the lint, `zrsim show` and the format document's test pick it up from there.
class EntryTable {
 public:
  static const std::vector<EntryRow>& Rows();
  // The row of `key`, or null for a key the table does not hold.
  static const EntryRow* Find(const std::string& key);
  // The fields of `entry` as its row lays them out (none for an unknown key).
  static FieldLayout Fields(const DefinitionEntry& entry);
  // The documentation's entry table (heading row included), one line each.
  static std::vector<std::string> DocumentTable();
};

}  // namespace zrsimprp

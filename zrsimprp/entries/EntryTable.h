#pragma once

#include <string>
#include <vector>

#include "zrsimprp/entries/EntryRow.h"

namespace zrsimprp {

// The definition entries, one row per key, in the order WriteDefinition writes them. Keys are
// compared without regard to case.
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

#pragma once

#include <string>
#include <vector>

#include "zrsimprp/entries/FieldLayout.h"
#include "zrsimprp/entries/ValueRule.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"

namespace zrsimprp {

class DefinitionReader;
class EntryOutput;
class EntryShow;
class SIMProperties;

// One line of the entry table in docs/definition-format.md (an entry written in several forms has
// several).
struct EntryDocLine {
  std::string value;
  std::string fields;
  std::string written;
};

// Everything the system knows about one definition entry: how it is read into the pages and written
// from them, what its fields are, what `zrsim check` expects of it, what `zrsim show` shows and what
// the documentation says. The rows live in EntryTable, in the order they are written.
struct EntryRow {
  const char* key = "";
  // The fields written for `value` (the first field given too: a cluster distribution picks the
  // rest), and how many the reader takes.
  FieldLayout (*fields)(const std::string& value, const std::string& first_field) = nullptr;
  // Sets the pages from one entry; null when the entry is passed over on reading.
  void (*read)(DefinitionReader& reader, const DefinitionEntry& entry) = nullptr;
  // Appends the entry (none, one or several of it) from the pages.
  void (*write)(SIMProperties& control, EntryOutput& out) = nullptr;
  // Each entry adds one more of its kind (a later one does not override an earlier one).
  bool adds_one_each = false;
  // What `zrsim check` expects of the main value (the fields' rules are in their layout).
  ValueRule value_rule;
  // The lint has a check of its own for what the rules cannot say (strata, references, lists).
  bool own_check = false;
  // Shows the page values this entry is written from; null when it shows none.
  void (*show)(SIMProperties& control, EntryShow& show) = nullptr;
  std::vector<EntryDocLine> doc;
};

}  // namespace zrsimprp

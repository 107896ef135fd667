#include "zrsimprp/lint/EntryCatalogue.h"

#include "zrsimprp/entries/EntryTable.h"

namespace zrsimprp {

const std::vector<std::string>& EntryCatalogue::Keys() {
  static const std::vector<std::string> kKeys = [] {
    std::vector<std::string> keys;
    for (const EntryRow& row : EntryTable::Rows()) keys.emplace_back(row.key);
    return keys;
  }();
  return kKeys;
}

std::string EntryCatalogue::KnownKey(const std::string& key) {
  const EntryRow* row = EntryTable::Find(key);
  return row == nullptr ? std::string() : std::string(row->key);
}

std::vector<std::string> EntryCatalogue::FieldNames(const DefinitionEntry& entry) {
  return EntryTable::Fields(entry).names;
}

std::size_t EntryCatalogue::FieldsRead(const DefinitionEntry& entry) {
  return EntryTable::Fields(entry).read;
}

}  // namespace zrsimprp

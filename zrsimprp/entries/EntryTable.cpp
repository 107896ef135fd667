#include "zrsimprp/entries/EntryTable.h"

#include "zrsimprp/entries/AnalysisEntries.h"
#include "zrsimprp/entries/CovariateEntries.h"
#include "zrsimprp/entries/DensityEntries.h"
#include "zrsimprp/entries/DetectabilityEntries.h"
#include "zrsimprp/entries/MiscEntries.h"
#include "zrsimprp/entries/PopulationEntries.h"
#include "zrsimprp/entries/SimulationEntries.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

const std::vector<EntryRow>& EntryTable::Rows() {
  static const std::vector<EntryRow> kRows = [] {
    std::vector<EntryRow> rows;
    // The pages in tab order; within a page, the order its entries are written in.
    for (std::vector<EntryRow> page :
         {SimulationEntries::Rows(), DensityEntries::Rows(), PopulationEntries::Rows(),
          CovariateEntries::Rows(), DetectabilityEntries::Rows(), AnalysisEntries::Rows(),
          MiscEntries::Rows()}) {
      for (EntryRow& row : page) rows.push_back(std::move(row));
    }
    return rows;
  }();
  return kRows;
}

const EntryRow* EntryTable::Find(const std::string& key) {
  for (const EntryRow& row : Rows()) {
    if (TextEquals(row.key, key)) return &row;
  }
  return nullptr;
}

FieldLayout EntryTable::Fields(const DefinitionEntry& entry) {
  const EntryRow* row = Find(entry.key);
  if (row == nullptr) return FieldLayout();
  static const std::string kNone;
  return row->fields(entry.value, entry.field_values.empty() ? kNone : entry.field_values.front());
}

std::vector<std::string> EntryTable::DocumentTable() {
  std::vector<std::string> lines = {"| # | Key | Value | Fields | Written |", "|---|---|---|---|---|"};
  int number = 0;
  for (const EntryRow& row : Rows()) {
    for (const EntryDocLine& doc : row.doc) {
      lines.push_back("| " + std::to_string(++number) + " | `" + row.key + "` | " + doc.value + " | " +
                      doc.fields + " | " + doc.written + " |");
    }
  }
  return lines;
}

}  // namespace zrsimprp

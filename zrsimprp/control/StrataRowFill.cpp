#include "zrsimprp/control/StrataRowFill.h"

#include <map>

#include "zrsimprp/host/ClipboardBlock.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/Layer.h"
#include "zrsimprp/host/LayerCatalogue.h"
#include "zrsimprp/host/LayerFieldSource.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/host/Variant.h"

namespace zrsimprp {
namespace {

std::string Trimmed(const std::string& text) {
  const size_t first = text.find_first_not_of(" \t\"");
  if (first == std::string::npos) return "";
  const size_t last = text.find_last_not_of(" \t\"");
  return text.substr(first, last - first + 1);
}

}  // namespace

StrataRowFill::Outcome StrataRowFill::Fill(Grid& grid, int row, int first_col,
                                           const std::vector<StrataHeadings::Heading>& strata,
                                           const std::vector<std::string>& keys,
                                           const std::vector<std::string>& values) {
  std::map<std::string, std::string> by_key;
  for (size_t i = 0; i < keys.size() && i < values.size(); ++i) by_key.emplace(keys[i], values[i]);
  Outcome outcome;
  for (size_t s = 0; s < strata.size(); ++s) {
    const int col = first_col + static_cast<int>(s);
    if (col >= grid.Cols() || row >= grid.Rows()) break;
    auto found = by_key.find(strata[s].id);
    if (found == by_key.end() && !strata[s].label.empty()) found = by_key.find(strata[s].label);
    if (found == by_key.end()) {
      outcome.unmatched.push_back(strata[s].id);
      continue;
    }
    if (grid.UserEditCell(row, col, found->second)) {
      ++outcome.count.applied;
    } else {
      ++outcome.count.skipped;
    }
  }
  return outcome;
}

StrataRowFill::Outcome StrataRowFill::FromCsv(Grid& grid, int row, int first_col,
                                              const std::vector<StrataHeadings::Heading>& strata,
                                              const std::string& csv_text, const std::string& column) {
  const ClipboardBlock::Rows lines = ClipboardBlock::Parse(csv_text);
  Outcome outcome;
  if (lines.size() < 2) {
    outcome.error = "The file holds no heading line followed by values.";
    return outcome;
  }
  size_t value_column = 1;
  if (!column.empty()) {
    value_column = lines[0].size();
    for (size_t c = 0; c < lines[0].size(); ++c) {
      if (TextEquals(Trimmed(lines[0][c]), column)) value_column = c;
    }
    if (value_column == lines[0].size()) {
      outcome.error = "The file has no column '" + column + "'.";
      return outcome;
    }
  }
  std::vector<std::string> keys;
  std::vector<std::string> values;
  for (size_t r = 1; r < lines.size(); ++r) {
    if (lines[r].size() <= value_column) continue;
    keys.push_back(Trimmed(lines[r][0]));
    values.push_back(Trimmed(lines[r][value_column]));
  }
  return Fill(grid, row, first_col, strata, keys, values);
}

StrataRowFill::Outcome StrataRowFill::FromLayerField(Grid& grid, int row, int first_col,
                                                     const std::vector<StrataHeadings::Heading>& strata,
                                                     const std::shared_ptr<ProjectDatabase>& database,
                                                     const std::string& layer_name,
                                                     const std::string& field) {
  Outcome outcome;
  std::vector<std::string> keys;
  std::vector<std::string> values;
  const bool read = RunTrapped(
      [&] {
        auto catalogue = database != nullptr ? database->Companion() : nullptr;
        auto layer = catalogue != nullptr ? catalogue->LayerByName(layer_name) : nullptr;
        auto table = layer != nullptr ? layer->AttributeTable() : nullptr;
        auto id_field = table != nullptr ? table->IDField() : nullptr;
        if (id_field == nullptr) return;
        const auto rows = layer->GetRows(id_field->Name() + "," + field, 0, 1);
        if (!rows || rows->size() < 2) return;
        for (size_t r = 0; r < (*rows)[0].size() && r < (*rows)[1].size(); ++r) {
          keys.push_back(VariantToText((*rows)[0][r]));
          values.push_back(VariantToText((*rows)[1][r]));
        }
      },
      [&](const RuntimeError& error) { outcome.error = error.description; });
  if (!read || keys.empty()) {
    if (outcome.error.empty()) outcome.error = "The layer '" + layer_name + "' has no field '" + field + "'.";
    outcome.error = "The field could not be read: " + outcome.error;
    return outcome;
  }
  for (const std::string& value : values) {
    if (!value.empty() && !IsNumeric(value)) {
      outcome.error = "The field '" + field + "' is not numeric ('" + value + "').";
      return outcome;
    }
  }
  return Fill(grid, row, first_col, strata, keys, values);
}

std::vector<std::string> StrataRowFill::FieldChoices(const std::shared_ptr<ProjectDatabase>& database,
                                                     const std::string& layer_name) {
  const auto fields = std::dynamic_pointer_cast<LayerFieldSource>(database);
  if (fields == nullptr || layer_name.empty()) return {};
  try {
    return fields->NumericFields(layer_name);
  } catch (...) {
    // A list that cannot be read leaves the person typing the name, as with a host that has none.
    return {};
  }
}

std::string StrataRowFill::Describe(const Outcome& outcome) {
  if (!outcome.error.empty()) return outcome.error;
  std::string text =
      "Filled " + std::to_string(outcome.count.applied) + (outcome.count.applied == 1 ? " cell" : " cells");
  if (outcome.count.skipped > 0) {
    text += ", skipped " + std::to_string(outcome.count.skipped) + " that cannot be changed here";
  }
  if (!outcome.unmatched.empty()) {
    text += "; no value for id";
    text += outcome.unmatched.size() == 1 ? " " : "s ";
    for (size_t i = 0; i < outcome.unmatched.size(); ++i) text += (i > 0 ? ", " : "") + outcome.unmatched[i];
  }
  return text + ".";
}

}  // namespace zrsimprp

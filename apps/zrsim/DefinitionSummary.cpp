#include "zrsim/DefinitionSummary.h"

#include "zrsimprp/entries/EntryTable.h"
#include "zrsimprp/host/ErrorTrap.h"

namespace zrsim {

void DefinitionSummary::Write(std::ostream& out) {
  out_ = &out;
  for (const zrsimprp::EntryRow& row : zrsimprp::EntryTable::Rows()) {
    if (row.show != nullptr) row.show(control_, *this);
  }
  out_ = nullptr;
}

void DefinitionSummary::Section(const std::string& title) { *out_ << title << "\n"; }

void DefinitionSummary::Line(const std::string& label, const std::function<std::string()>& value) {
  std::string text;
  zrsimprp::RunTrapped(
      [&] { text = value(); },
      [&](const zrsimprp::RuntimeError& error) { text = "(cannot be read: " + error.description + ")"; });
  *out_ << "  " << label << ": " << text << "\n";
}

}  // namespace zrsim

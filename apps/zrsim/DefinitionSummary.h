#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/EntryShow.h"

namespace zrsim {

// A readable account of every page's values, entry by entry of the entry table, read through the
// pages' own properties (the same ones the control writes the definition from). A property that fails
// to read is shown as such and does not stop the summary.
class DefinitionSummary : private zrsimprp::EntryShow {
 public:
  explicit DefinitionSummary(zrsimprp::SIMProperties& control) : control_(control) {}

  void Write(std::ostream& out);

 private:
  void Section(const std::string& title) override;
  void Line(const std::string& label, const std::function<std::string()>& value) override;

  zrsimprp::SIMProperties& control_;
  std::ostream* out_ = nullptr;
};

}  // namespace zrsim

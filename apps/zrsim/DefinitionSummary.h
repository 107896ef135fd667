#pragma once

#include <functional>
#include <ostream>
#include <string>

#include "zrsimprp/control/SIMProperties.h"

namespace zrsim {

// A readable account of every page's values, read through the pages' own properties (the same ones
// the control writes the definition from). A property that fails to read is shown as such and
// does not stop the summary.
class DefinitionSummary {
 public:
  explicit DefinitionSummary(zrsimprp::SIMProperties& control) : control_(control) {}

  void Write(std::ostream& out);

 private:
  void WriteSimulation(std::ostream& out);
  void WriteDensity(std::ostream& out);
  void WritePopulation(std::ostream& out);
  void WriteCovariates(std::ostream& out);
  void WriteDetectability(std::ostream& out);
  void WriteAnalysis(std::ostream& out);
  void WriteMisc(std::ostream& out);

  static void Line(std::ostream& out, const std::string& label, const std::function<std::string()>& value);
  static std::string ListChoice(const std::string& identifier, const std::string& list_text);
  static std::string Joined(const std::vector<std::string>& values);

  zrsimprp::SIMProperties& control_;
};

}  // namespace zrsim

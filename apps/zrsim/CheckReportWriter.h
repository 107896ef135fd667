#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "zrsim/SimulationCheck.h"

namespace zrsim {

// Writes what check found, as lines for a person or as one JSON object for a program. Neither form
// ever holds a raw carriage return: values are shown escaped.
class CheckReportWriter {
 public:
  // `several`: the checks of a whole project (--all), each headed by its simulation's name.
  CheckReportWriter(const std::vector<SimulationCheck>& checks, bool several, bool strict, int exit_status)
      : checks_(checks), several_(several), strict_(strict), exit_status_(exit_status) {}

  void WriteText(std::ostream& out, std::ostream& err) const;
  void WriteJson(std::ostream& out) const;

  // One finding as a line: "ZR201 error at line 3 (Density /Densities): The density ...".
  static std::string FindingLine(const zrsimprp::Finding& finding);
  // "clean", "warnings" or "failed".
  static const char* Outcome(const SimulationCheck& check);

 private:
  void WriteOneText(std::ostream& out, std::ostream& err, const SimulationCheck& check) const;
  void WriteOneJson(std::ostream& out, const SimulationCheck& check) const;

  const std::vector<SimulationCheck>& checks_;
  bool several_;
  bool strict_;
  int exit_status_;
};

}  // namespace zrsim

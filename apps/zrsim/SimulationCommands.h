#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "zrsim/ControlSession.h"
#include "zrsim/InputFiles.h"

namespace zrsim {

// check, normalize and show: each loads one definition (a simulation of the project or a file) into
// a headless control on the project and reports on it.
class SimulationCommands {
 public:
  SimulationCommands(std::ostream& out, std::ostream& err, InputFiles& files)
      : out_(out), err_(err), files_(files) {}

  int Check(const std::vector<std::string>& words);
  int Normalize(const std::vector<std::string>& words);
  int Show(const std::vector<std::string>& words);

  static std::string Usage(const std::string& command);

 private:
  // Parses the common options and loads the control; false (after printing why) when the control
  // could not be loaded at all.
  void Load(const std::string& command, const std::vector<std::string>& words, ControlSession& session);
  // Prints the internal-error reports gathered so far; true when there were any.
  bool ReportInternalErrors(ControlSession& session);

  std::ostream& out_;
  std::ostream& err_;
  InputFiles& files_;
};

}  // namespace zrsim

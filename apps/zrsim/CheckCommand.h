#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "zrsim/InputFiles.h"
#include "zrsim/SimulationCheck.h"

namespace zrsim {

// "zrsim check": one simulation, a definition file, or every simulation of a project (--all); the
// report as text or JSON; the exit status a CI job can act on (see Usage()).
class CheckCommand {
 public:
  CheckCommand(std::ostream& out, std::ostream& err, InputFiles& files)
      : out_(out), err_(err), files_(files) {}

  int Run(const std::vector<std::string>& words);

  static std::string Usage();
  // 2 when a text is not a definition, else 1 on any error, else 3 on warnings under --strict, else 0.
  static int ExitStatusOf(const std::vector<SimulationCheck>& checks, bool strict);

 private:
  std::ostream& out_;
  std::ostream& err_;
  InputFiles& files_;
};

}  // namespace zrsim

#pragma once

#include <string>
#include <vector>

#include "zrsim/PageVerdict.h"
#include "zrsimprp/lint/Finding.h"

namespace zrsim {

// Everything check found out about one definition: where it came from, the pages' verdicts (none
// when the text is not a definition), the lint's findings and the internal-error reports shown while
// loading and checking.
struct SimulationCheck {
  std::string source;  // "simulation", "file" or "standard input"
  std::string name;    // the simulation's name or the file's path
  bool is_definition = true;
  std::vector<PageVerdict> pages;
  std::vector<zrsimprp::Finding> findings;
  std::vector<std::string> internal_errors;

  bool PageRefused() const;
  bool HasErrors() const;    // a page refused, an internal error, or an error finding
  bool HasWarnings() const;  // a warning finding
};

}  // namespace zrsim

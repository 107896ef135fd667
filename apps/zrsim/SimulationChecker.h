#pragma once

#include <memory>
#include <string>

#include "zrsim/SimulationCheck.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/lint/ProjectFacts.h"

namespace zrsim {

// Checks definitions against one project: the lint first, then, when the text is a definition, a
// headless control loaded with it whose pages are validated in tab order. The project's lists are
// gathered once for every definition checked.
class SimulationChecker {
 public:
  explicit SimulationChecker(std::shared_ptr<zrsimprp::ProjectDatabase> project);

  SimulationCheck Check(const std::string& definition);

 private:
  std::shared_ptr<zrsimprp::ProjectDatabase> project_;
  zrsimprp::ProjectFacts facts_;
};

}  // namespace zrsim

#pragma once

#include <string>

namespace zrsimprp {

// A project to start a study of one's own from: no layers, records or simulations, only the engine
// defaults a new simulation starts from.
class EmptyProject {
 public:
  // Writes the project to `path`; fails when the path exists, so nothing is ever replaced.
  static void Create(const std::string& path);
  // The definition a new simulation of such a project starts from: it names no layer, survey, data
  // filter or model definition, since the project has none yet.
  static std::string DefaultSimulationDefinition();
};

}  // namespace zrsimprp

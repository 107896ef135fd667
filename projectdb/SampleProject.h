#pragma once

#include <string>

namespace zrsimprp {

// The sample project that the build writes next to the programs: a study region with three strata,
// designs, surveys, data filters, model definitions and one simulation using every kind of entry.
class SampleProject {
 public:
  // Writes the sample to `path`, replacing a file that is there.
  static void Create(const std::string& path);
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <string>

namespace zrsimprp {

// A survey of the project; only surveys with status 1 are offered for simulation.
class SurveyRecord {
 public:
  virtual ~SurveyRecord() = default;
  virtual int32_t ID() = 0;
  virtual std::string Name() = 0;
  virtual int32_t Status() = 0;
  virtual int32_t DesignID() = 0;
};

}  // namespace zrsimprp

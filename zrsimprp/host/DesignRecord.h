#pragma once

#include <cstdint>
#include <string>

namespace zrsimprp {

// A survey design of the project; its definition text names its stratum layer.
class DesignRecord {
 public:
  virtual ~DesignRecord() = default;
  virtual int32_t ID() = 0;
  virtual std::string Name() = 0;
  virtual std::string DefinitionText() = 0;
};

}  // namespace zrsimprp

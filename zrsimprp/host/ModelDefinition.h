#pragma once

#include <cstdint>
#include <string>

namespace zrsimprp {

// An analysis model definition of the project, for one analysis engine.
class ModelDefinition {
 public:
  virtual ~ModelDefinition() = default;
  virtual void ItemValues(int32_t& a, int32_t& b, std::string& s) = 0;
  virtual std::string EngineName() = 0;
  virtual std::string DefinitionText() = 0;
};

}  // namespace zrsimprp

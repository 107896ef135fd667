#pragma once

#include <string>

#include "zrsimprp/host/Variant.h"

namespace zrsimprp {

// Default definitions of the analysis engines ("SIM" for simulations).
class EngineDefaults {
 public:
  virtual ~EngineDefaults() = default;
  virtual Variant DefaultDefinition(const std::string& engine) = 0;
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <string>

#include "zrsimprp/host/Variant.h"

namespace zrsimprp {

// The host's settings store. The two integer selectors are passed through as the control gives them.
class ProjectSettings {
 public:
  virtual ~ProjectSettings() = default;
  virtual Variant ReadSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                              const Variant& default_value) = 0;
  virtual void WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                            const Variant& value) = 0;
};

}  // namespace zrsimprp

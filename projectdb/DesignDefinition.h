#pragma once

#include <string>

namespace zrsimprp {

// The definition text of a design as the sample project's designs are written: its engine, the
// layout of its transects with their spacing, its strata layer and its truncation distance.
class DesignDefinition {
 public:
  // `type` is "parallel" or "zigzag" (case ignored); `spacing` and `truncation` are distances above 0
  // or "" to leave them out. A refusal (RuntimeError) names the option that is wrong.
  static std::string Text(const std::string& stratum_layer, const std::string& type,
                          const std::string& spacing, const std::string& truncation);
  // Only the strata layer, for a design whose layout is chosen later.
  static std::string LayerOnly(const std::string& stratum_layer);
  // The distance as written when it is a number above 0 ("." its decimal separator); refused otherwise.
  static std::string Distance(const std::string& what, const std::string& text);
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <string>

namespace zrsimprp {

// The kinds of layer this host defines. The control stops its walk up the parent chain at a study
// region, so a strata layer must lie inside a parent layer that leads to one.
class LayerKind {
 public:
  static constexpr int32_t kStudyRegion = 1;
  static constexpr int32_t kStrata = 2;

  static bool IsDefined(int32_t kind) { return kind == kStudyRegion || kind == kStrata; }
  // The allowed values as a person reads them.
  static std::string AllowedValues() { return "1 (a study region) or 2 (strata inside a parent layer)"; }
};

}  // namespace zrsimprp

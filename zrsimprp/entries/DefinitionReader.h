#pragma once

#include <cstddef>
#include <string>

#include "zrsimprp/host/DefinitionEntryCodec.h"

namespace zrsimprp {

class Platform;
class SIMProperties;

// Reads a definition text into the control's pages, entry by entry, through each key's row of the
// entry table. Unknown keys (and "Engine") are passed over. An error stops the reading where it
// happens, keeps what was read before it and is reported as an internal error of ReadDefinition.
class DefinitionReader {
 public:
  DefinitionReader(SIMProperties& control, Platform& platform) : control_(control), platform_(platform) {}

  void Read(const std::string& text);

  SIMProperties& Control() { return control_; }
  // The pages that depend on the strata take them from the Simulation page.
  void HandOverStrata();

  // The value in field slot `position` (from 1), whatever the field count says; a missing slot is
  // error 9.
  static const std::string& Field(const DefinitionEntry& entry, std::size_t position);

 private:
  SIMProperties& control_;
  Platform& platform_;
};

}  // namespace zrsimprp

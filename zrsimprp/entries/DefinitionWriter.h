#pragma once

#include <string>

namespace zrsimprp {

class Platform;
class SIMProperties;

// Writes the control's pages as a definition text: every row of the entry table in order, each
// entry followed by CR LF when the host setting Properties/InsertCrLf is true. A failure is reported
// as an internal error of WriteDefinition and gives "".
class DefinitionWriter {
 public:
  DefinitionWriter(SIMProperties& control, Platform& platform) : control_(control), platform_(platform) {}

  std::string Write();

 private:
  SIMProperties& control_;
  Platform& platform_;
};

}  // namespace zrsimprp

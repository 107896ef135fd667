#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zrsim {

// "zrsim map": drawing needs Qt, which the rest of zrsim does without, so the command runs the
// separate program zrsim-map installed beside zrsim, with the same arguments and standard streams,
// and returns its exit status. check, normalize and show never load Qt or need a display.
class MapLauncher {
 public:
  explicit MapLauncher(std::ostream& err) : err_(err) {}

  int Run(const std::vector<std::string>& words);

  // Where zrsim-map is looked for: beside the running program.
  static std::string HelperPath();

 private:
  std::ostream& err_;
};

}  // namespace zrsim

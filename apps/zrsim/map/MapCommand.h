#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zrsim {

// zrsim-map (run by "zrsim map"): loads a simulation into the headless control as check does, computes
// its map from the project's geometry and writes it as a PNG, drawn exactly as the editor draws it.
// Needs a QGuiApplication (offscreen is enough) to exist.
class MapCommand {
 public:
  MapCommand(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

  // Exit status: 0 written; 2 for a mistake in the arguments, a file that cannot be used, a simulation
  // without a region layer or a project without geometry for it. Never throws.
  int Run(const std::vector<std::string>& words);

  static std::string Usage();

 private:
  int Draw(const std::vector<std::string>& words);
  static int Dimension(const std::string& option, const std::string& text);

  std::ostream& out_;
  std::ostream& err_;
};

}  // namespace zrsim

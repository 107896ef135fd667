#pragma once

#include <istream>
#include <memory>
#include <string>

#include "projectdb/GeoPackageProject.h"

namespace zrsim {

// Opening the files a command names. Every failure is a UsageError whose message names the file.
class InputFiles {
 public:
  explicit InputFiles(std::istream& standard_input) : standard_input_(standard_input) {}

  std::shared_ptr<zrsimprp::GeoPackageProject> OpenProject(const std::string& command,
                                                           const std::string& path);
  // The whole text of a file, or of the standard input for "-".
  std::string ReadText(const std::string& command, const std::string& path);
  // The definition of a simulation of the project, found by name with case ignored.
  std::string SimulationDefinition(const std::string& command, zrsimprp::GeoPackageProject& project,
                                   const std::string& name);

 private:
  std::istream& standard_input_;
};

}  // namespace zrsim

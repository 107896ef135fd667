#include "zrsim/InputFiles.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "zrsim/UsageError.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ErrorTrap.h"

namespace zrsim {

std::shared_ptr<zrsimprp::GeoPackageProject> InputFiles::OpenProject(const std::string& command,
                                                                     const std::string& path) {
  if (path.empty()) throw UsageError(command + ": the project file name is empty");
  std::shared_ptr<zrsimprp::GeoPackageProject> project;
  std::string failure;
  bool opened =
      zrsimprp::RunTrapped([&] { project = zrsimprp::GeoPackageProject::Open(path); },
                           [&](const zrsimprp::RuntimeError& error) { failure = error.description; });
  if (!opened || !project) {
    throw UsageError(command + ": cannot open the project '" + path + "': " + failure);
  }
  return project;
}

std::string InputFiles::ReadText(const std::string& command, const std::string& path) {
  if (path == "-") {
    std::ostringstream text;
    text << standard_input_.rdbuf();
    return text.str();
  }
  std::error_code ignored;
  // A folder opens like a file on some systems and then reads as nothing.
  if (std::filesystem::is_directory(path, ignored)) {
    throw UsageError(command + ": cannot read the file '" + path + "'");
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) throw UsageError(command + ": cannot read the file '" + path + "'");
  std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (file.bad()) throw UsageError(command + ": cannot read the file '" + path + "'");
  return text;
}

std::string InputFiles::SimulationDefinition(const std::string& command, zrsimprp::GeoPackageProject& project,
                                             const std::string& name) {
  std::string text;
  std::string failure;
  bool found = false;
  bool read = zrsimprp::RunTrapped(
      [&] {
        for (const std::string& existing : project.SimulationNames()) {
          if (zrsimprp::TextEquals(existing, name)) found = true;
        }
        if (found) text = project.SimulationDefinition(name);
      },
      [&](const zrsimprp::RuntimeError& error) { failure = error.description; });
  if (!read) throw UsageError(command + ": cannot read the simulation '" + name + "': " + failure);
  if (!found) {
    throw UsageError(command + ": the project '" + project.Path() + "' has no simulation named '" + name +
                     "'");
  }
  return text;
}

}  // namespace zrsim

#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "zrsim/InputFiles.h"

namespace zrsim {

// The "zrsim project" commands that change or take out what a project holds: copying, renaming,
// replacing and removing simulations, and removing layers and records. Each is one transaction of
// the project file; a refusal is one sentence, and the file is then left exactly as it was.
class ProjectEditCommands {
 public:
  ProjectEditCommands(std::ostream& out, InputFiles& files) : out_(out), files_(files) {}

  // The commands and their synopses, for the tool's usage text.
  static const std::vector<std::pair<std::string, std::string>>& Synopses();
  // True when `subcommand` is one of these commands.
  static bool Handles(const std::string& subcommand);
  // What one command does, after its synopsis.
  static std::string Help(const std::string& subcommand);

  // Runs one of these commands; `words` start after the command's name.
  int Run(const std::string& subcommand, const std::vector<std::string>& words);

 private:
  int CopySimulation(const std::vector<std::string>& words);
  int RenameSimulation(const std::vector<std::string>& words);
  int SetDefinition(const std::vector<std::string>& words);
  int RemoveSimulation(const std::vector<std::string>& words);
  int RemoveLayer(const std::vector<std::string>& words);
  // remove-design, remove-survey, remove-filter and remove-model: a record by its identifier.
  int RemoveRecord(const std::string& subcommand, const std::vector<std::string>& words);

  std::ostream& out_;
  InputFiles& files_;
};

}  // namespace zrsim

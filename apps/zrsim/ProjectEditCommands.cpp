#include "zrsim/ProjectEditCommands.h"

#include <ostream>

#include "zrsim/ArgumentParser.h"
#include "zrsim/ExitStatus.h"
#include "zrsim/ProjectTool.h"
#include "zrsim/UsageError.h"
#include "zrsim/VisibleText.h"

namespace zrsim {

namespace {

// The record commands: name, what the record is called in messages, and how it is removed.
struct RecordKind {
  const char* subcommand;
  const char* what;
  void (zrsimprp::GeoPackageProject::*remove)(int32_t);
};

const RecordKind kRecordKinds[] = {
    {"remove-design", "design", &zrsimprp::GeoPackageProject::RemoveDesign},
    {"remove-survey", "survey", &zrsimprp::GeoPackageProject::RemoveSurvey},
    {"remove-filter", "data filter", &zrsimprp::GeoPackageProject::RemoveDataFilter},
    {"remove-model", "model definition", &zrsimprp::GeoPackageProject::RemoveModelDefinition},
};

}  // namespace

const std::vector<std::pair<std::string, std::string>>& ProjectEditCommands::Synopses() {
  static const std::vector<std::pair<std::string, std::string>> synopses = {
      {"copy-simulation", "FILE --name S --to T"},
      {"rename-simulation", "FILE --name S --to T"},
      {"set-definition", "FILE --simulation S --definition F"},
      {"remove-simulation", "FILE --name S"},
      {"remove-layer", "FILE --name L"},
      {"remove-design", "FILE --id I"},
      {"remove-survey", "FILE --id I"},
      {"remove-filter", "FILE --id I"},
      {"remove-model", "FILE --id I"},
  };
  return synopses;
}

bool ProjectEditCommands::Handles(const std::string& subcommand) {
  for (const auto& [name, synopsis] : Synopses()) {
    if (name == subcommand) return true;
  }
  return false;
}

std::string ProjectEditCommands::Help(const std::string& subcommand) {
  if (subcommand == "copy-simulation")
    return "Adds the simulation T with the definition of the simulation S.\n";
  if (subcommand == "rename-simulation") return "Gives the simulation S the name T.\n";
  if (subcommand == "set-definition") {
    return "Replaces the definition of the simulation S by the text of the file F (\"-\" for the\n"
           "standard input).\n";
  }
  if (subcommand == "remove-simulation") return "Removes the simulation S.\n";
  if (subcommand == "remove-layer") {
    return "Removes the layer L and its features; refused while another layer has it as its parent, or\n"
           "a design or simulation takes its strata from it.\n";
  }
  return "Removes the record I; refused, naming the referrer, while a survey (for a design) or a\n"
         "simulation uses it.\n";
}

int ProjectEditCommands::Run(const std::string& subcommand, const std::vector<std::string>& words) {
  if (subcommand == "copy-simulation") return CopySimulation(words);
  if (subcommand == "rename-simulation") return RenameSimulation(words);
  if (subcommand == "set-definition") return SetDefinition(words);
  if (subcommand == "remove-simulation") return RemoveSimulation(words);
  if (subcommand == "remove-layer") return RemoveLayer(words);
  return RemoveRecord(subcommand, words);
}

int ProjectEditCommands::CopySimulation(const std::vector<std::string>& words) {
  const std::string command = "zrsim project copy-simulation";
  ParsedArguments arguments =
      ArgumentParser(command).Option("name").Option("to").Positionals(1, 1, "FILE").Parse(words);
  const std::string name = ProjectTool::Required(command, arguments, "name");
  const std::string to = ProjectTool::Required(command, arguments, "to");
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  ProjectTool::Change(command, [&] { project->CopySimulation(name, to); });
  out_ << "Copied the simulation " << VisibleText(name) << " to " << VisibleText(to) << "\n";
  return kSuccess;
}

int ProjectEditCommands::RenameSimulation(const std::vector<std::string>& words) {
  const std::string command = "zrsim project rename-simulation";
  ParsedArguments arguments =
      ArgumentParser(command).Option("name").Option("to").Positionals(1, 1, "FILE").Parse(words);
  const std::string name = ProjectTool::Required(command, arguments, "name");
  const std::string to = ProjectTool::Required(command, arguments, "to");
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  ProjectTool::Change(command, [&] { project->RenameSimulation(name, to); });
  out_ << "Renamed the simulation " << VisibleText(name) << " to " << VisibleText(to) << "\n";
  return kSuccess;
}

int ProjectEditCommands::SetDefinition(const std::vector<std::string>& words) {
  const std::string command = "zrsim project set-definition";
  ParsedArguments arguments = ArgumentParser(command)
                                  .Option("simulation")
                                  .Option("definition")
                                  .Positionals(1, 1, "FILE")
                                  .Parse(words);
  const std::string name = ProjectTool::Required(command, arguments, "simulation");
  const std::string text = files_.ReadText(command, ProjectTool::Required(command, arguments, "definition"));
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
    throw UsageError(command + ": the definition is empty; a simulation needs at least one entry");
  }
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  ProjectTool::Change(command, [&] { project->SetSimulationDefinition(name, text); });
  out_ << "Replaced the definition of the simulation " << VisibleText(name) << "\n";
  return kSuccess;
}

int ProjectEditCommands::RemoveSimulation(const std::vector<std::string>& words) {
  const std::string command = "zrsim project remove-simulation";
  ParsedArguments arguments = ArgumentParser(command).Option("name").Positionals(1, 1, "FILE").Parse(words);
  const std::string name = ProjectTool::Required(command, arguments, "name");
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  ProjectTool::Change(command, [&] { project->RemoveSimulation(name); });
  out_ << "Removed the simulation " << VisibleText(name) << "\n";
  return kSuccess;
}

int ProjectEditCommands::RemoveLayer(const std::vector<std::string>& words) {
  const std::string command = "zrsim project remove-layer";
  ParsedArguments arguments = ArgumentParser(command).Option("name").Positionals(1, 1, "FILE").Parse(words);
  const std::string name = ProjectTool::Required(command, arguments, "name");
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  ProjectTool::Change(command, [&] { project->RemoveLayer(name); });
  out_ << "Removed the layer " << VisibleText(name) << "\n";
  return kSuccess;
}

int ProjectEditCommands::RemoveRecord(const std::string& subcommand, const std::vector<std::string>& words) {
  const std::string command = "zrsim project " + subcommand;
  for (const RecordKind& kind : kRecordKinds) {
    if (subcommand != kind.subcommand) continue;
    ParsedArguments arguments = ArgumentParser(command).Option("id").Positionals(1, 1, "FILE").Parse(words);
    const int32_t id = ProjectTool::Integer(command, arguments, "id");
    auto project = files_.OpenProject(command, arguments.Positionals()[0]);
    ProjectTool::Change(command, [&] { ((*project).*(kind.remove))(id); });
    out_ << "Removed the " << kind.what << " " << id << "\n";
    return kSuccess;
  }
  throw UsageError("zrsim project: unknown command '" + subcommand + "'\n" + ProjectTool::Usage());
}

}  // namespace zrsim

#include "zrsim/SimulationCommands.h"

#include <ostream>
#include <sstream>

#include "zrsim/ArgumentParser.h"
#include "zrsim/CheckCommand.h"
#include "zrsim/DefinitionSummary.h"
#include "zrsim/ExitStatus.h"
#include "zrsim/PageChecker.h"
#include "zrsim/UsageError.h"
#include "zrsim/VisibleText.h"

namespace zrsim {

std::string SimulationCommands::Usage(const std::string& command) {
  if (command == "check") return CheckCommand::Usage();
  std::string purpose;
  if (command == "normalize") {
    purpose =
        "Loads the definition into the control and prints the definition the control writes back,\n"
        "byte for byte (its CR LF line breaks included), as a host would store it.\n"
        "Exit status: 0 done, 1 the definition could not be written back, 2 arguments or files.\n";
  } else {
    purpose =
        "Loads the definition into the control, visits every tab as check does, and prints a\n"
        "readable summary of every page.\n"
        "Exit status: 0 done, 1 an internal error was reported, 2 arguments or files.\n";
  }
  return "Usage: zrsim " + command +
         " --project FILE (--simulation NAME | --definition FILE | --definition -)\n\n" + purpose +
         "\nOptions:\n"
         "  --project FILE     the project file (GeoPackage) the definition refers to\n"
         "  --simulation NAME  a simulation stored in the project\n"
         "  --definition FILE  a definition text in a file; \"-\" reads the standard input\n"
         "  --help             this text\n"
         "Settings that the control changes while loading (remembered tabs) are not saved.\n";
}

void SimulationCommands::Load(const std::string& command, const std::vector<std::string>& words,
                              ControlSession& session) {
  const std::string name = "zrsim " + command;
  ParsedArguments arguments =
      ArgumentParser(name).Option("project").Option("simulation").Option("definition").Parse(words);
  if (!arguments.Has("project")) throw UsageError(name + ": --project FILE is required");
  if (arguments.Has("simulation") == arguments.Has("definition")) {
    throw UsageError(name + ": give exactly one of --simulation NAME and --definition FILE");
  }
  // A definition file that cannot be read is reported before the project is opened at all.
  std::string definition;
  if (arguments.Has("definition")) definition = files_.ReadText(name, arguments.Value("definition"));
  auto project = files_.OpenProject(name, arguments.Value("project"));
  if (arguments.Has("simulation")) {
    definition = files_.SimulationDefinition(name, *project, arguments.Value("simulation"));
  }
  session.Load(project, definition);
}

bool SimulationCommands::ReportInternalErrors(ControlSession& session) {
  std::vector<std::string> reports = session.TakeInternalErrors();
  for (const std::string& report : reports) {
    std::string text = report;
    // The report is written for a message box with CR LF line ends.
    for (std::size_t at = text.find('\r'); at != std::string::npos; at = text.find('\r', at))
      text.erase(at, 1);
    err_ << "Pellunar Internal Error:\n" << text << "\n";
  }
  return !reports.empty();
}

int SimulationCommands::Check(const std::vector<std::string>& words) {
  return CheckCommand(out_, err_, files_).Run(words);
}

int SimulationCommands::Normalize(const std::vector<std::string>& words) {
  ControlSession session;
  Load("normalize", words, session);
  bool failed = ReportInternalErrors(session);
  std::string definition = session.Control().Definition();
  if (ReportInternalErrors(session) || definition.empty()) {
    err_ << "zrsim normalize: the definition could not be written back\n";
    return kValidationFailed;
  }
  // Exactly what a host stores: no line end is added, none is changed.
  out_ << definition;
  return failed ? kValidationFailed : kSuccess;
}

int SimulationCommands::Show(const std::vector<std::string>& words) {
  ControlSession session;
  Load("show", words, session);
  bool failed = ReportInternalErrors(session);
  // Visiting every tab first gives the pages what the control hands over on the way (cluster and
  // covariate information, the Detectability rows), as a person looking at each tab would see them.
  PageChecker(session).CheckAll();
  std::ostringstream summary;
  DefinitionSummary(session.Control()).Write(summary);
  out_ << VisibleLines(summary.str());
  if (ReportInternalErrors(session)) failed = true;
  return failed ? kValidationFailed : kSuccess;
}

}  // namespace zrsim

#include "zrsim/SimulationCommands.h"

#include <ostream>

#include "zrsim/ArgumentParser.h"
#include "zrsim/DefinitionSummary.h"
#include "zrsim/ExitStatus.h"
#include "zrsim/PageChecker.h"
#include "zrsim/UsageError.h"

namespace zrsim {

std::string SimulationCommands::Usage(const std::string& command) {
  std::string purpose;
  if (command == "check") {
    purpose =
        "Loads the definition into the control, validates every page as a visit of each tab\n"
        "would, and prints one line per page: \"<page>: OK\" or \"<page>: <the page's message>\".\n"
        "Exit status: 0 all pages valid, 1 a page failed (or an internal error was reported),\n"
        "2 a mistake in the arguments or a file that cannot be used.\n";
  } else if (command == "normalize") {
    purpose =
        "Loads the definition into the control and prints the definition the control writes back.\n"
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
  ControlSession session;
  Load("check", words, session);
  bool failed = ReportInternalErrors(session);
  std::vector<PageVerdict> verdicts = PageChecker(session).CheckAll();
  for (const PageVerdict& verdict : verdicts) {
    if (verdict.valid) {
      out_ << verdict.page << ": OK\n";
    } else {
      failed = true;
      out_ << verdict.page << ": "
           << (verdict.message.empty() ? "the check could not be completed (see the error report)"
                                       : verdict.message)
           << "\n";
    }
  }
  if (ReportInternalErrors(session)) failed = true;
  return failed ? kValidationFailed : kSuccess;
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
  out_ << definition;
  if (definition.back() != '\n') out_ << "\n";
  return failed ? kValidationFailed : kSuccess;
}

int SimulationCommands::Show(const std::vector<std::string>& words) {
  ControlSession session;
  Load("show", words, session);
  bool failed = ReportInternalErrors(session);
  // Visiting every tab first gives the pages what the control hands over on the way (cluster and
  // covariate information, the Detectability rows), as a person looking at each tab would see them.
  PageChecker(session).CheckAll();
  DefinitionSummary(session.Control()).Write(out_);
  if (ReportInternalErrors(session)) failed = true;
  return failed ? kValidationFailed : kSuccess;
}

}  // namespace zrsim

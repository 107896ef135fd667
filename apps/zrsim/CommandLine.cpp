#include "zrsim/CommandLine.h"

#include <exception>
#include <ostream>

#include "zrsim/ArgumentParser.h"
#include "zrsim/ExitStatus.h"
#include "zrsim/InputFiles.h"
#include "zrsim/MapLauncher.h"
#include "zrsim/PreviewCommand.h"
#include "zrsim/ProjectTool.h"
#include "zrsim/SimulationCommands.h"
#include "zrsim/UsageError.h"
#include "zrsim/VisibleText.h"
#include "zrsimprp/Version.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsim {

std::string CommandLine::Usage() {
  return "Usage: zrsim COMMAND [options]\n"
         "\n"
         "Checks, rewrites and summarises simulation definitions the way the properties control\n"
         "reads them, and creates and fills project files.\n"
         "\n"
         "Commands:\n"
         "  check      validate every page of a simulation (or of all, --all) and report findings\n"
         "  normalize  print the definition the control writes back\n"
         "  show       print a readable summary of every page's values\n"
         "  map        draw a simulation's strata and density surface into a PNG file\n"
         "  preview    expected detections of a simulation before it runs, and one drawn survey\n"
         "  project    create the sample project, list a project, add layers, designs, surveys,\n"
         "             data filters, model definitions and simulations\n"
         "\n"
         "Run 'zrsim COMMAND --help' for the options of a command, 'zrsim --version' for the version.\n"
         "Exit status: 0 success, 1 a page failed validation (check: or an error finding), 2 a\n"
         "mistake in the arguments, a file that cannot be used or a text that is not a definition,\n"
         "3 check --strict found warnings only.\n";
}

int CommandLine::Run(const std::vector<std::string>& words) {
  try {
    return Dispatch(words);
  } catch (const UsageError& error) {
    // Messages quote names and values from the files; their control characters are shown, not sent.
    err_ << VisibleLines(error.what()) << "\n";
    return kUsageOrFileError;
  } catch (const zrsimprp::RuntimeError& error) {
    err_ << "zrsim: " << VisibleText(error.description) << " (error " << error.number << ", " << error.source
         << ")\n";
    return kUsageOrFileError;
  } catch (const std::exception& error) {
    err_ << "zrsim: " << VisibleText(error.what()) << "\n";
    return kUsageOrFileError;
  }
}

int CommandLine::Dispatch(const std::vector<std::string>& words) {
  if (words.empty()) throw UsageError("zrsim: missing command\n" + Usage());
  const std::string& command = words.front();
  std::vector<std::string> rest(words.begin() + 1, words.end());
  if (command == "--help" || command == "-h" || command == "help") {
    out_ << Usage();
    return kSuccess;
  }
  if (command == "--version") {
    out_ << "zrsim " << zrsimprp::kVersion << "\n";
    return kSuccess;
  }
  if (command == "map") return MapLauncher(err_).Run(rest);
  InputFiles files(in_);
  if (command == "project") return ProjectTool(out_, files).Run(rest);
  if (command == "preview") return PreviewCommand(out_, err_, files).Run(rest);
  if (command != "check" && command != "normalize" && command != "show") {
    throw UsageError("zrsim: unknown command '" + command + "'\n" + Usage());
  }
  if (ArgumentParser::AsksForHelp(rest)) {
    out_ << SimulationCommands::Usage(command);
    return kSuccess;
  }
  SimulationCommands commands(out_, err_, files);
  if (command == "check") return commands.Check(rest);
  if (command == "normalize") return commands.Normalize(rest);
  return commands.Show(rest);
}

}  // namespace zrsim

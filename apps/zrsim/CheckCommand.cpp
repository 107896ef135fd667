#include "zrsim/CheckCommand.h"

#include <ostream>

#include "zrsim/ArgumentParser.h"
#include "zrsim/CheckReportWriter.h"
#include "zrsim/ExitStatus.h"
#include "zrsim/SimulationChecker.h"
#include "zrsim/UsageError.h"
#include "zrsim/VisibleText.h"
#include "zrsimprp/host/ErrorTrap.h"

namespace zrsim {

std::string CheckCommand::Usage() {
  return "Usage: zrsim check --project FILE (--simulation NAME | --definition FILE | --definition - | "
         "--all)\n"
         "                   [--format text|json] [--strict]\n"
         "\n"
         "Loads the definition into the control, validates every page as a visit of each tab would,\n"
         "and prints one line per page: \"<page>: OK\" or \"<page>: <the page's message>\". Then it\n"
         "prints its own findings, one per line: a stable code, error or warning, the line and entry\n"
         "of the definition, and one sentence (unknown entries and fields, values that are not\n"
         "numbers or out of range, references the project does not have, entries lost on the next\n"
         "save, the error behind a page's unexpected-error message). See docs/check.md.\n"
         "\n"
         "Options:\n"
         "  --project FILE       the project file (GeoPackage) the definition refers to\n"
         "  --simulation NAME    a simulation stored in the project\n"
         "  --definition FILE    a definition text in a file; \"-\" reads the standard input\n"
         "  --all                every simulation of the project, in one run\n"
         "  --format text|json   lines for a person (default) or one JSON object\n"
         "  --strict             warnings alone make the exit status 3\n"
         "  --help               this text\n"
         "\n"
         "Exit status:\n"
         "  0  every page valid and no error finding (warnings allowed unless --strict)\n"
         "  1  a page refused its values, an internal error was reported, or an error finding\n"
         "  2  a mistake in the arguments, a file that cannot be used, or a text that is not a\n"
         "     definition (the message says the line and column where it breaks)\n"
         "  3  only warnings, with --strict\n"
         "Settings that the control changes while loading (remembered tabs) are not saved.\n";
}

int CheckCommand::ExitStatusOf(const std::vector<SimulationCheck>& checks, bool strict) {
  bool errors = false;
  bool warnings = false;
  for (const SimulationCheck& check : checks) {
    if (!check.is_definition) return kUsageOrFileError;
    errors = errors || check.HasErrors();
    warnings = warnings || check.HasWarnings();
  }
  if (errors) return kValidationFailed;
  return strict && warnings ? kWarningsWhenStrict : kSuccess;
}

int CheckCommand::Run(const std::vector<std::string>& words) {
  const std::string command = "zrsim check";
  ParsedArguments arguments = ArgumentParser(command)
                                  .Option("project")
                                  .Option("simulation")
                                  .Option("definition")
                                  .Flag("all")
                                  .Option("format")
                                  .Flag("strict")
                                  .Parse(words);
  if (!arguments.Has("project")) throw UsageError(command + ": --project FILE is required");
  const int sources = arguments.Has("simulation") + arguments.Has("definition") + arguments.Has("all");
  if (sources != 1) {
    throw UsageError(command + ": give exactly one of --simulation NAME, --definition FILE and --all");
  }
  const std::string format = arguments.Value("format", "text");
  if (format != "text" && format != "json") {
    throw UsageError(command + ": --format must be text or json, not '" + format + "'");
  }
  const bool strict = arguments.Has("strict");

  std::string definition;
  if (arguments.Has("definition")) definition = files_.ReadText(command, arguments.Value("definition"));
  auto project = files_.OpenProject(command, arguments.Value("project"));
  std::vector<std::pair<SimulationCheck, std::string>> inputs;
  if (arguments.Has("all")) {
    std::vector<std::string> names;
    std::string failure;
    if (!zrsimprp::RunTrapped([&] { names = project->SimulationNames(); },
                              [&](const zrsimprp::RuntimeError& error) { failure = error.description; })) {
      throw UsageError(command + ": cannot list the simulations: " + failure);
    }
    // Each name comes from the listing, so each definition is read directly: looking every name up in
    // the listing again would make a large project quadratic.
    for (const std::string& name : names) {
      SimulationCheck check;
      check.source = "simulation";
      check.name = name;
      std::string text;
      if (!zrsimprp::RunTrapped([&] { text = project->SimulationDefinition(name); },
                                [&](const zrsimprp::RuntimeError& error) { failure = error.description; })) {
        throw UsageError(command + ": cannot read the simulation '" + name + "': " + failure);
      }
      inputs.emplace_back(check, text);
    }
  } else {
    SimulationCheck check;
    if (arguments.Has("simulation")) {
      check.source = "simulation";
      check.name = arguments.Value("simulation");
      definition = files_.SimulationDefinition(command, *project, check.name);
    } else {
      check.source = arguments.Value("definition") == "-" ? "standard input" : "file";
      check.name = arguments.Value("definition");
    }
    inputs.emplace_back(check, definition);
  }

  SimulationChecker checker(project);
  std::vector<SimulationCheck> checks;
  checks.reserve(inputs.size());
  for (auto& [named, text] : inputs) {
    SimulationCheck check = checker.Check(text);
    check.source = named.source;
    check.name = named.name;
    checks.push_back(std::move(check));
  }
  const int status = ExitStatusOf(checks, strict);
  CheckReportWriter writer(checks, arguments.Has("all"), strict, status);
  if (format == "json") {
    writer.WriteJson(out_);
  } else {
    writer.WriteText(out_, err_);
  }
  for (const SimulationCheck& check : checks) {
    if (check.is_definition || check.findings.empty()) continue;
    err_ << command << ": " << (arguments.Has("all") ? VisibleText(check.name) + ": " : "")
         << VisibleText(check.findings.front().sentence) << "\n";
  }
  return status;
}

}  // namespace zrsim

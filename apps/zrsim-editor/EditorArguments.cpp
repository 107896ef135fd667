#include "zrsim-editor/EditorArguments.h"

#include <algorithm>
#include <filesystem>

#include "zrsim-editor/EditorError.h"
#include "zrsim/ArgumentParser.h"
#include "zrsim/UsageError.h"

namespace zrsim_editor {

std::string EditorArguments::Usage() {
  return "Usage: zrsim-editor [--project FILE] [--simulation NAME] [--dark] [--screenshot DIR | "
         "--exit-after-first-frame]\n"
         "\n"
         "Edits one simulation of a project in the simulation properties form.\n"
         "\n"
         "  --project FILE     the project file (default: the project opened last, else a choice of a\n"
         "                     new, an existing or the sample project; the sample for --screenshot)\n"
         "  --simulation NAME  the simulation to edit (default: the project's first)\n"
         "  --dark             the Fusion style with a dark palette\n"
         "  --screenshot DIR   draw every tab into DIR as PNG files and exit; needs no display\n"
         "  --exit-after-first-frame\n"
         "                     show the form, print the milliseconds from the start of the process to\n"
         "                     the window's first frame, and exit\n"
         "  --help             this text\n"
         "  --version          the version of the editor\n"
         "\n"
         "Exit status: 0 done, 2 a mistake in the arguments or a project that cannot be used.\n";
}

EditorOptions EditorArguments::Parse(const std::vector<std::string>& words) {
  EditorOptions options;
  if (zrsim::ArgumentParser::AsksForHelp(words)) {
    options.help = true;
    return options;
  }
  if (std::find(words.begin(), words.end(), "--version") != words.end()) {
    options.version = true;
    return options;
  }
  zrsim::ParsedArguments parsed;
  try {
    parsed = zrsim::ArgumentParser("zrsim-editor")
                 .Option("project")
                 .Option("simulation")
                 .Option("screenshot")
                 .Flag("exit-after-first-frame")
                 .Flag("dark")
                 .Parse(words);
  } catch (const zrsim::UsageError& error) {
    throw EditorError(error.what());
  }
  options.project = parsed.Value("project");
  options.simulation = parsed.Value("simulation");
  options.screenshot_dir = parsed.Value("screenshot");
  options.exit_after_first_frame = parsed.Has("exit-after-first-frame");
  options.dark = parsed.Has("dark");
  for (const char* option : {"project", "simulation", "screenshot"}) {
    if (parsed.Has(option) && parsed.Value(option).empty()) {
      throw EditorError(std::string("zrsim-editor: the value of --") + option + " is empty");
    }
  }
  if (options.exit_after_first_frame && parsed.Has("screenshot")) {
    throw EditorError(
        "zrsim-editor: --exit-after-first-frame shows the window, --screenshot draws into files; "
        "use one of them");
  }
  return options;
}

std::string EditorArguments::FirstExisting(const std::vector<std::string>& candidates) {
  for (const std::string& candidate : candidates) {
    std::error_code ignored;
    if (!candidate.empty() && std::filesystem::is_regular_file(candidate, ignored)) return candidate;
  }
  return "";
}

}  // namespace zrsim_editor

#include "zrsim/ProjectTool.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <ostream>

#include "projectdb/DesignDefinition.h"
#include "projectdb/EmptyProject.h"
#include "projectdb/LayerImportOptions.h"
#include "projectdb/LayerKind.h"
#include "projectdb/SampleProject.h"
#include "zrsim/ArgumentParser.h"
#include "zrsim/DefinitionWords.h"
#include "zrsim/ExitStatus.h"
#include "zrsim/ProjectEditCommands.h"
#include "zrsim/UsageError.h"
#include "zrsim/VisibleText.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/EngineDefaults.h"
#include "zrsimprp/host/ErrorTrap.h"

namespace zrsim {

namespace {

const char* const kSubcommands[][2] = {
    {"new", "FILE"},
    {"sample", "FILE [--force]"},
    {"list", "FILE"},
    {"import-layer",
     "FILE --from SOURCE [--table T] --id-field F [--label-field L] --name N --kind K [--parent P | "
     "--make-region R] [--to-crs auto|EPSG:N]"},
    {"add-design",
     "FILE --id I --name N --stratum-layer L [--type parallel|zigzag [--spacing S] [--truncation W]]"},
    {"add-survey", "FILE --id I --name N --design D [--status S]"},
    {"add-filter", "FILE --id I --name N"},
    {"add-model", "FILE --id I --name N --engine E [--method M]"},
    {"add-simulation", "FILE --name N [--definition FILE]"},
};

// One entry "key=value;" written by the host's codec, so that quoting follows the one syntax.
// A word as a POSIX shell reads it back: quoted when it holds anything but plain characters.
std::string ShellWord(const std::string& word) {
  if (!word.empty() && word.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                              "-_./:=+,@%") == std::string::npos) {
    return word;
  }
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string SingleEntry(const std::string& key, const std::string& value) {
  std::string text;
  std::vector<std::string> names(1);
  std::vector<std::string> values(1);
  zrsimprp::DefinitionEntryCodec::Instance().AppendEntry(text, key, value, names, values, 0, 0, false);
  return text;
}

}  // namespace

std::string ProjectTool::Usage() {
  std::string text = "Usage: zrsim project COMMAND FILE [options]\n\nCommands:\n";
  for (const auto& subcommand : kSubcommands) {
    text += std::string("  ") + subcommand[0] + " " + subcommand[1] + "\n";
  }
  for (const auto& [name, synopsis] : ProjectEditCommands::Synopses()) {
    text += "  " + name + " " + synopsis + "\n";
  }
  text +=
      "\nRun 'zrsim project COMMAND --help' for one command. Every change is one transaction of the\n"
      "project file. Exit status: 0 done, 2 a mistake in the arguments or a file that cannot be used.\n";
  return text;
}

std::string ProjectTool::Help(const std::string& subcommand) {
  std::string synopsis;
  for (const auto& entry : kSubcommands) {
    if (subcommand == entry[0]) synopsis = entry[1];
  }
  for (const auto& [name, edit_synopsis] : ProjectEditCommands::Synopses()) {
    if (subcommand == name) synopsis = edit_synopsis;
  }
  std::string text = "Usage: zrsim project " + subcommand + " " + synopsis + "\n\n";
  if (ProjectEditCommands::Handles(subcommand)) {
    text += ProjectEditCommands::Help(subcommand);
  } else if (subcommand == "new") {
    text +=
        "Writes an empty project to FILE: no layers, records or simulations, only the defaults a new\n"
        "simulation starts from. An existing file is never replaced.\n";
  } else if (subcommand == "sample") {
    text += "Writes the sample project to FILE. An existing file is replaced only with --force.\n";
  } else if (subcommand == "list") {
    text += "Lists the layers, designs, surveys, data filters, model definitions and simulations.\n";
  } else if (subcommand == "import-layer") {
    text +=
        "Imports the polygon layer T of the vector file SOURCE (any format GDAL reads: GeoPackage,\n"
        "Shapefile, GeoJSON, FlatGeobuf, KML, ...; T may be left out when SOURCE has one layer) into the\n"
        "project as the layer N of kind K (1 marks a study region, the top of a parent chain; 2 strata,\n"
        "which need their parent layer P), with F as its identifier field and L as its label field.\n"
        "--to-crs auto reprojects it to the WGS 84 UTM zone of its centre, --to-crs EPSG:N to that\n"
        "system; without it the coordinates are kept (a GeoPackage's geometry byte for byte), and\n"
        "coordinates in degrees are warned about, since distances in the simulation are then in degrees.\n"
        "--make-region R makes the study region R by dissolving the strata, and makes it their parent.\n"
        "A layer must share its parent's coordinate system and lie inside it (95 % of its area).\n";
  } else if (subcommand == "add-design") {
    text +=
        "Adds the design I named N whose strata come from the layer L. --type gives its transects'\n"
        "layout (parallel lines or a zigzag), --spacing S the distance between them and --truncation W\n"
        "the distance from a line beyond which detections are not recorded, in the layer's units.\n";
  } else if (subcommand == "add-survey") {
    text +=
        "Adds the survey I named N made with the design D. The status S says whether the survey's\n"
        "transects have been generated: 1 (the default) means they have, and only such surveys are\n"
        "offered to a simulation; 0 marks a draft that is kept but not offered.\n";
  } else if (subcommand == "add-filter") {
    text += "Adds the data filter I named N.\n";
  } else if (subcommand == "add-model") {
    text +=
        "Adds the model definition I named N for the analysis engine E (MRDS, MA, DSM, ...), with\n"
        "the method M as its \"Method\" entry when given (MRDS definitions are offered only with ds).\n";
  } else if (subcommand == "add-simulation") {
    text +=
        "Adds the simulation N with the definition read from FILE (\"-\" for the standard input), or\n"
        "with the project's default simulation definition.\n";
  }
  return text;
}

int ProjectTool::Run(const std::vector<std::string>& words) {
  if (words.empty()) throw UsageError("zrsim project: missing command\n" + Usage());
  const std::string& subcommand = words.front();
  std::vector<std::string> rest(words.begin() + 1, words.end());
  if (subcommand == "--help" || subcommand == "-h") {
    out_ << Usage();
    return kSuccess;
  }
  using Handler = int (ProjectTool::*)(const std::vector<std::string>&);
  const std::pair<const char*, Handler> handlers[] = {
      {"new", &ProjectTool::New},
      {"sample", &ProjectTool::Sample},
      {"list", &ProjectTool::List},
      {"import-layer", &ProjectTool::ImportLayer},
      {"add-design", &ProjectTool::AddDesign},
      {"add-survey", &ProjectTool::AddSurvey},
      {"add-filter", &ProjectTool::AddFilter},
      {"add-model", &ProjectTool::AddModel},
      {"add-simulation", &ProjectTool::AddSimulation},
  };
  for (const auto& [name, handler] : handlers) {
    if (subcommand != name) continue;
    if (ArgumentParser::AsksForHelp(rest)) {
      out_ << Help(subcommand);
      return kSuccess;
    }
    return (this->*handler)(rest);
  }
  if (ProjectEditCommands::Handles(subcommand)) {
    if (ArgumentParser::AsksForHelp(rest)) {
      out_ << Help(subcommand);
      return kSuccess;
    }
    return ProjectEditCommands(out_, files_).Run(subcommand, rest);
  }
  throw UsageError("zrsim project: unknown command '" + subcommand + "'\n" + Usage());
}

int ProjectTool::New(const std::vector<std::string>& words) {
  const std::string command = "zrsim project new";
  ParsedArguments arguments = ArgumentParser(command).Positionals(1, 1, "FILE").Parse(words);
  const std::string path = arguments.Positionals()[0];
  std::error_code error;
  if (std::filesystem::exists(path, error)) {
    throw UsageError(command + ": '" + path + "' already exists; a new project is never written over a file");
  }
  Change(command, [&] { zrsimprp::EmptyProject::Create(path); });
  out_ << "Wrote an empty project to " << path << "\n";
  return kSuccess;
}

int ProjectTool::Sample(const std::vector<std::string>& words) {
  const std::string command = "zrsim project sample";
  ParsedArguments arguments = ArgumentParser(command).Flag("force").Positionals(1, 1, "FILE").Parse(words);
  const std::string path = arguments.Positionals()[0];
  std::error_code error;
  if (std::filesystem::exists(path, error) && !arguments.Has("force")) {
    throw UsageError(command + ": '" + path + "' already exists; add --force to replace it");
  }
  Change(command, [&] { zrsimprp::SampleProject::Create(path); });
  out_ << "Wrote the sample project to " << path << "\n";
  return kSuccess;
}

int ProjectTool::List(const std::vector<std::string>& words) {
  const std::string command = "zrsim project list";
  ParsedArguments arguments = ArgumentParser(command).Positionals(1, 1, "FILE").Parse(words);
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  Change(command, [&] {
    out_ << "Layers:\n";
    for (const auto& layer : project->Layers()) {
      out_ << "  " << layer.name << " (kind " << layer.kind << ", table " << layer.table_name << ", id field "
           << layer.id_field << ", label field " << (layer.label_field.empty() ? "none" : layer.label_field)
           << ", parent " << (layer.parent.empty() ? "none" : layer.parent) << ", "
           << project->FeatureCount(layer.name) << " features)\n";
    }
    out_ << "Designs:\n";
    for (const auto& design : project->Designs()) {
      out_ << "  " << design.id << " " << VisibleText(design.name) << ": "
           << DefinitionWords(design.definition_text) << "\n";
    }
    out_ << "Surveys:\n";
    for (const auto& survey : project->Surveys()) {
      out_ << "  " << survey.id << " " << survey.name << " (status " << survey.status << ", design "
           << survey.design_id << ")\n";
    }
    out_ << "Data filters:\n";
    for (const auto& filter : project->DataFilterList())
      out_ << "  " << filter.id << " " << filter.name << "\n";
    out_ << "Model definitions:\n";
    for (const auto& model : project->ModelDefinitionList()) {
      out_ << "  " << model.id << " " << model.name << " (engine " << model.engine << ")"
           << (model.definition_text.empty() ? "" : ": " + DefinitionWords(model.definition_text)) << "\n";
    }
    out_ << "Simulations:\n";
    for (const auto& name : project->SimulationNames()) out_ << "  " << VisibleText(name) << "\n";
  });
  return kSuccess;
}

int ProjectTool::ImportLayer(const std::vector<std::string>& words) {
  const std::string command = "zrsim project import-layer";
  ParsedArguments arguments = ArgumentParser(command)
                                  .Option("from")
                                  .Option("table")
                                  .Option("id-field")
                                  .Option("label-field")
                                  .Option("name")
                                  .Option("kind")
                                  .Option("parent")
                                  .Option("to-crs")
                                  .Option("make-region")
                                  .Positionals(1, 1, "FILE")
                                  .Parse(words);
  zrsimprp::LayerImportOptions options;
  options.from = Required(command, arguments, "from");
  options.table = arguments.Value("table");
  options.id_field = Required(command, arguments, "id-field");
  options.label_field = arguments.Value("label-field");
  options.name = Required(command, arguments, "name");
  options.kind = Kind(command, arguments);
  options.parent = arguments.Value("parent");
  options.to_crs = arguments.Value("to-crs");
  options.make_region = arguments.Value("make-region");
  if (arguments.Has("to-crs") && options.to_crs.empty()) {
    throw UsageError(command + ": --to-crs must be auto or EPSG: and the number of a coordinate system");
  }
  const std::string path = arguments.Positionals()[0];
  auto project = files_.OpenProject(command, path);
  zrsimprp::LayerImportOutcome outcome;
  Change(command, [&] { outcome = project->ImportLayer(options); });
  if (!options.make_region.empty()) {
    out_ << "Made the study region '" << options.make_region << "' by dissolving the layer's polygons\n";
  }
  out_ << "Imported " << outcome.count << " features of '" << outcome.table << "' as the layer '"
       << options.name << "'" << (options.to_crs.empty() ? "" : " in " + outcome.crs) << "\n";
  if (outcome.geographic) {
    out_
        << "Warning: the layer '" << options.name
        << "' has geographic coordinates (degrees of longitude and latitude), so distances in the simulation "
           "will be in degrees. To import it in metres instead: "
        << ReimportCommand(path, words) << "\n";
  }
  return kSuccess;
}

std::string ProjectTool::ReimportCommand(const std::string& path, const std::vector<std::string>& words) {
  std::string name;
  std::string region;
  std::string import = "zrsim project import-layer";
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--to-crs") {
      ++i;  // replaced below
      continue;
    }
    if (words[i] == "--name" && i + 1 < words.size()) name = words[i + 1];
    if (words[i] == "--make-region" && i + 1 < words.size()) region = words[i + 1];
    import += " " + ShellWord(words[i]);
  }
  // The strata go first: their region is kept while they name it as their parent.
  std::string remove =
      "zrsim project remove-layer " + ShellWord(path) + " --name " + ShellWord(name) + " && ";
  if (!region.empty()) {
    remove += "zrsim project remove-layer " + ShellWord(path) + " --name " + ShellWord(region) + " && ";
  }
  return remove + import + " --to-crs auto";
}

int ProjectTool::AddDesign(const std::vector<std::string>& words) {
  const std::string command = "zrsim project add-design";
  ParsedArguments arguments = ArgumentParser(command)
                                  .Option("id")
                                  .Option("name")
                                  .Option("stratum-layer")
                                  .Option("type")
                                  .Option("spacing")
                                  .Option("truncation")
                                  .Positionals(1, 1, "FILE")
                                  .Parse(words);
  const int32_t id = Integer(command, arguments, "id");
  const std::string name = Required(command, arguments, "name");
  const std::string layer = Required(command, arguments, "stratum-layer");
  const std::string text = DesignDefinition(command, arguments);
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  Change(command, [&] { project->AddDesign(id, name, text, layer); });
  out_ << "Added the design " << id << " " << name << "\n";
  return kSuccess;
}

int ProjectTool::AddSurvey(const std::vector<std::string>& words) {
  const std::string command = "zrsim project add-survey";
  ParsedArguments arguments = ArgumentParser(command)
                                  .Option("id")
                                  .Option("name")
                                  .Option("design")
                                  .Option("status")
                                  .Positionals(1, 1, "FILE")
                                  .Parse(words);
  const int32_t id = Integer(command, arguments, "id");
  const std::string name = Required(command, arguments, "name");
  const int32_t design = Integer(command, arguments, "design");
  const int32_t status = Integer(command, arguments, "status", 1);
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  Change(command, [&] { project->AddSurvey(id, name, status, design); });
  out_ << "Added the survey " << id << " " << name << "\n";
  return kSuccess;
}

int ProjectTool::AddFilter(const std::vector<std::string>& words) {
  const std::string command = "zrsim project add-filter";
  ParsedArguments arguments =
      ArgumentParser(command).Option("id").Option("name").Positionals(1, 1, "FILE").Parse(words);
  const int32_t id = Integer(command, arguments, "id");
  const std::string name = Required(command, arguments, "name");
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  Change(command, [&] { project->AddDataFilter(id, name); });
  out_ << "Added the data filter " << id << " " << name << "\n";
  return kSuccess;
}

int ProjectTool::AddModel(const std::vector<std::string>& words) {
  const std::string command = "zrsim project add-model";
  ParsedArguments arguments = ArgumentParser(command)
                                  .Option("id")
                                  .Option("name")
                                  .Option("engine")
                                  .Option("method")
                                  .Positionals(1, 1, "FILE")
                                  .Parse(words);
  const int32_t id = Integer(command, arguments, "id");
  const std::string name = Required(command, arguments, "name");
  const std::string engine = Required(command, arguments, "engine");
  const std::string text = arguments.Has("method") ? SingleEntry("Method", arguments.Value("method")) : "";
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  Change(command, [&] { project->AddModelDefinition(id, name, engine, text); });
  out_ << "Added the model definition " << id << " " << name << "\n";
  return kSuccess;
}

int ProjectTool::AddSimulation(const std::vector<std::string>& words) {
  const std::string command = "zrsim project add-simulation";
  ParsedArguments arguments =
      ArgumentParser(command).Option("name").Option("definition").Positionals(1, 1, "FILE").Parse(words);
  const std::string name = Required(command, arguments, "name");
  if (zrsimprp::TrimBlanks(name).empty()) throw UsageError(command + ": the simulation name is blank");
  std::string text;
  if (arguments.Has("definition")) text = files_.ReadText(command, arguments.Value("definition"));
  auto project = files_.OpenProject(command, arguments.Positionals()[0]);
  Change(command, [&] {
    for (const std::string& existing : project->SimulationNames()) {
      if (zrsimprp::TextEquals(existing, name)) {
        throw UsageError(command + ": the project already has a simulation named '" + existing + "'");
      }
    }
    if (!arguments.Has("definition")) {
      text = zrsimprp::VariantToText(project->EngineDefaults()->DefaultDefinition("SIM"));
    }
  });
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
    throw UsageError(command + ": the definition is empty; a simulation needs at least one entry");
  }
  // Added only if no one else added it meanwhile: the check and the write are one transaction.
  Change(command, [&] {
    if (project->SaveSimulationDefinitionIfUnchanged(name, "", text) !=
        zrsimprp::GeoPackageProject::SaveOutcome::kSaved) {
      throw UsageError(command + ": the project already has a simulation named '" + name + "'");
    }
  });
  out_ << "Added the simulation " << name << "\n";
  return kSuccess;
}

std::string ProjectTool::DesignDefinition(const std::string& command, const ParsedArguments& arguments) {
  const std::string layer = arguments.Value("stratum-layer");
  if (!arguments.Has("type")) {
    if (arguments.Has("spacing") || arguments.Has("truncation")) {
      throw UsageError(command + ": --spacing and --truncation need --type, the layout of the transects");
    }
    return zrsimprp::DesignDefinition::LayerOnly(layer);
  }
  const std::string type(zrsimprp::TrimBlanks(arguments.Value("type")));
  if (!zrsimprp::TextEquals(type, "parallel") && !zrsimprp::TextEquals(type, "zigzag")) {
    throw UsageError(command + ": --type must be parallel or zigzag, not '" + arguments.Value("type") + "'");
  }
  for (const char* option : {"spacing", "truncation"}) {
    if (!arguments.Has(option)) continue;
    const std::string text(zrsimprp::TrimBlanks(arguments.Value(option)));
    const double value = zrsimprp::IsNumeric(text) ? zrsimprp::ToDouble(text) : 0.0;
    if (!(value > 0.0) || value > 1e12) {
      throw UsageError(command + ": --" + option + " must be a distance above 0, not '" +
                       arguments.Value(option) + "'");
    }
  }
  return zrsimprp::DesignDefinition::Text(layer, type, arguments.Value("spacing"),
                                          arguments.Value("truncation"));
}

std::string ProjectTool::Required(const std::string& command, const ParsedArguments& arguments,
                                  const std::string& option) {
  if (!arguments.Has(option)) throw UsageError(command + ": --" + option + " is required");
  return arguments.Value(option);
}

int32_t ProjectTool::Integer(const std::string& command, const ParsedArguments& arguments,
                             const std::string& option) {
  const std::string text = Required(command, arguments, option);
  const char* begin = text.c_str();
  char* end = nullptr;
  errno = 0;
  long long value = std::strtoll(begin, &end, 10);
  if (text.empty() || *end != '\0' || errno == ERANGE || value < std::numeric_limits<int32_t>::min() ||
      value > std::numeric_limits<int32_t>::max() || text.find_first_of(" \t") != std::string::npos) {
    throw UsageError(command + ": --" + option + " must be a whole number, not '" + text + "'");
  }
  return static_cast<int32_t>(value);
}

int32_t ProjectTool::Kind(const std::string& command, const ParsedArguments& arguments) {
  const std::string text = Required(command, arguments, "kind");
  const std::string trimmed(zrsimprp::TrimBlanks(text));
  const int32_t kind = trimmed == "1"   ? zrsimprp::LayerKind::kStudyRegion
                       : trimmed == "2" ? zrsimprp::LayerKind::kStrata
                                        : 0;
  if (!zrsimprp::LayerKind::IsDefined(kind)) {
    throw UsageError(command + ": --kind must be " + zrsimprp::LayerKind::AllowedValues() + ", not '" + text +
                     "'");
  }
  if (kind == zrsimprp::LayerKind::kStrata && arguments.Value("parent").empty() &&
      arguments.Value("make-region").empty()) {
    throw UsageError(
        command +
        ": a layer of kind 2 (strata) needs --parent, the layer its strata lie in, or --make-region");
  }
  return kind;
}

int32_t ProjectTool::Integer(const std::string& command, const ParsedArguments& arguments,
                             const std::string& option, int32_t fallback) {
  return arguments.Has(option) ? Integer(command, arguments, option) : fallback;
}

}  // namespace zrsim

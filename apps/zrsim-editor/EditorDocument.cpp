#include "zrsim-editor/EditorDocument.h"

#include <utility>

#include "zrsim-editor/EditorError.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsim_editor {

namespace {

std::string Describe(const std::exception& error) {
  if (const auto* runtime = dynamic_cast<const zrsimprp::RuntimeError*>(&error)) return runtime->description;
  return error.what();
}

bool IsBlank(const std::string& text) { return text.find_first_not_of(" \t\r\n") == std::string::npos; }

}  // namespace

EditorDocument::EditorDocument(std::shared_ptr<zrsimprp::GeoPackageProject> project, std::string simulation,
                               std::string definition)
    : project_(std::move(project)),
      simulation_(std::move(simulation)),
      saved_definition_(std::move(definition)) {}

std::unique_ptr<EditorDocument> EditorDocument::Open(const std::string& project_path,
                                                     const std::string& simulation) {
  std::shared_ptr<zrsimprp::GeoPackageProject> project;
  try {
    project = zrsimprp::GeoPackageProject::Open(project_path);
  } catch (const std::exception& error) {
    throw EditorError("Cannot open the project '" + project_path + "': " + Describe(error));
  }
  std::string chosen;
  std::string definition;
  try {
    for (const std::string& name : project->SimulationNames()) {
      if (chosen.empty() && (simulation.empty() || zrsimprp::TextEquals(name, simulation))) chosen = name;
    }
    if (!chosen.empty()) definition = project->SimulationDefinition(chosen);
  } catch (const std::exception& error) {
    throw EditorError("Cannot read the simulations of the project '" + project_path +
                      "': " + Describe(error));
  }
  if (chosen.empty()) {
    throw EditorError(simulation.empty() ? "The project '" + project_path + "' holds no simulation to edit."
                                         : "The project '" + project_path + "' has no simulation named '" +
                                               simulation + "'.");
  }
  return std::unique_ptr<EditorDocument>(new EditorDocument(project, chosen, definition));
}

EditorDocument::SaveOutcome EditorDocument::Save(const std::string& definition) {
  SaveOutcome outcome;
  if (IsBlank(definition)) {
    outcome.message = kNotWrittenMessage;
    return outcome;
  }
  try {
    project_->SaveSimulationDefinition(simulation_, definition);
  } catch (const std::exception& error) {
    outcome.message =
        "The simulation could not be saved: " + Describe(error) + " The definition saved before is kept.";
    return outcome;
  }
  saved_definition_ = definition;
  outcome.saved = true;
  return outcome;
}

}  // namespace zrsim_editor

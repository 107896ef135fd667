#include "zrsim-editor/EditorDocument.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "zrsim-editor/EditorError.h"
#include "zrsim-editor/RoutedProject.h"
#include "zrsim-editor/SettingsRouter.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsim_editor {

namespace {

bool IsBlank(const std::string& text) { return text.find_first_not_of(" \t\r\n") == std::string::npos; }

}  // namespace

EditorDocument::EditorDocument(std::shared_ptr<zrsimprp::GeoPackageProject> project, std::string simulation,
                               std::string definition)
    : project_(std::move(project)),
      simulation_(std::move(simulation)),
      saved_definition_(std::move(definition)) {}

std::unique_ptr<EditorDocument> EditorDocument::Open(const std::string& project_path,
                                                     const std::string& simulation, bool read_only) {
  std::shared_ptr<zrsimprp::GeoPackageProject> project;
  try {
    zrsimprp::GeoPackageProject::OpenOptions options;
    options.read_only = read_only;
    project = zrsimprp::GeoPackageProject::Open(project_path, options);
  } catch (const std::exception& error) {
    throw EditorError("Cannot open the project '" + project_path + "': " + ErrorText(error));
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
                      "': " + ErrorText(error));
  }
  if (chosen.empty()) {
    throw EditorError(simulation.empty() ? "The project '" + project_path + "' holds no simulation to edit."
                                         : "The project '" + project_path + "' has no simulation named '" +
                                               simulation + "'.");
  }
  auto document = std::unique_ptr<EditorDocument>(new EditorDocument(project, chosen, definition));
  document->read_only_ = project->IsReadOnly();
  return document;
}

std::shared_ptr<zrsimprp::ProjectDatabase> EditorDocument::RoutedDatabase(
    std::shared_ptr<zrsimprp::ProjectSettings> personal) const {
  return std::make_shared<RoutedProject>(
      project_, std::make_shared<SettingsRouter>(std::move(personal), project_->Settings()));
}

bool EditorDocument::ChangedElsewhere() const {
  try {
    return project_->SimulationDefinition(simulation_) != saved_definition_;
  } catch (const std::exception&) {
    // A simulation that can no longer be read was changed (or removed) by someone else.
    return true;
  }
}

EditorDocument::SaveOutcome EditorDocument::Save(const std::string& definition,
                                                 bool overwrite_changes_elsewhere) {
  SaveOutcome outcome;
  if (IsBlank(definition)) {
    outcome.message = kNotWrittenMessage;
    return outcome;
  }
  if (read_only_) {
    outcome.message = kReadOnlyMessage;
    return outcome;
  }
  try {
    if (overwrite_changes_elsewhere) {
      project_->SaveSimulationDefinition(simulation_, definition);
    } else if (project_->SaveSimulationDefinitionIfUnchanged(simulation_, saved_definition_, definition) ==
               zrsimprp::GeoPackageProject::SaveOutcome::kChangedSinceLoaded) {
      outcome.message = kChangedElsewhereMessage;
      return outcome;
    }
  } catch (const std::exception& error) {
    outcome.message =
        "The simulation could not be saved: " + ErrorText(error) + " The definition saved before is kept.";
    return outcome;
  }
  saved_definition_ = definition;
  outcome.saved = true;
  return outcome;
}

EditorDocument::SaveOutcome EditorDocument::SaveAs(const std::string& path, const std::string& definition) {
  namespace fs = std::filesystem;
  SaveOutcome outcome;
  if (IsBlank(definition)) {
    outcome.message = kNotWrittenMessage;
    return outcome;
  }
  std::error_code error;
  if (path.empty() || fs::equivalent(path, project_->Path(), error)) {
    outcome.message = "Save As needs a new file name, not the project file that is open. Nothing was saved.";
    return outcome;
  }
  const bool existed = fs::exists(path, error);
  fs::copy_file(project_->Path(), path, fs::copy_options::overwrite_existing, error);
  if (error) {
    outcome.message =
        "The project could not be copied to '" + path + "': " + error.message() + ". Nothing was saved.";
    return outcome;
  }
  // A copy of a read-only file is read-only too; the person asked for a file they can change.
  fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, error);
  std::shared_ptr<zrsimprp::GeoPackageProject> copy;
  try {
    copy = zrsimprp::GeoPackageProject::Open(path);
    copy->SaveSimulationDefinition(simulation_, definition);
  } catch (const std::exception& failure) {
    copy.reset();
    if (!existed) fs::remove(path, error);
    outcome.message =
        "The simulation could not be saved in '" + path + "': " + ErrorText(failure) + " Nothing was saved.";
    return outcome;
  }
  project_ = copy;
  read_only_ = copy->IsReadOnly();
  saved_definition_ = definition;
  outcome.saved = true;
  return outcome;
}

}  // namespace zrsim_editor

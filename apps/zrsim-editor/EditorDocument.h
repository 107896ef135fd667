#pragma once

#include <memory>
#include <string>

#include "projectdb/GeoPackageProject.h"

namespace zrsim_editor {

// The simulation being edited: which project and simulation, and the decisions about saving. Knows
// nothing of windows, so every rule here is tested without a display.
class EditorDocument {
 public:
  struct SaveOutcome {
    bool saved = false;
    std::string message;  // why nothing was saved
  };

  // Opens the project and picks the simulation (by name with case ignored, or the first one when
  // `simulation` is ""). EditorError, naming the file or the simulation, when either cannot be used.
  static std::unique_ptr<EditorDocument> Open(const std::string& project_path, const std::string& simulation);

  std::shared_ptr<zrsimprp::GeoPackageProject> Project() const { return project_; }
  const std::string& SimulationName() const { return simulation_; }
  // The definition as it was when the document was opened or last saved.
  const std::string& SavedDefinition() const { return saved_definition_; }

  // Saves the definition the control gave back, in one transaction of the project file. An empty
  // (or blank) text means the control could not write the definition: nothing is saved, the saved
  // definition stays as it was, and the outcome says so.
  SaveOutcome Save(const std::string& definition);

  static constexpr const char* kNotWrittenMessage =
      "The simulation's options could not be written into a definition, so nothing was saved. "
      "The definition saved before is kept.";

 private:
  EditorDocument(std::shared_ptr<zrsimprp::GeoPackageProject> project, std::string simulation,
                 std::string definition);

  std::shared_ptr<zrsimprp::GeoPackageProject> project_;
  std::string simulation_;
  std::string saved_definition_;
};

}  // namespace zrsim_editor

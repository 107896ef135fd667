#pragma once

#include <memory>
#include <string>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/host/ProjectSettings.h"

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
  // A project that may not be written (or `read_only`) is opened for reading only.
  static std::unique_ptr<EditorDocument> Open(const std::string& project_path, const std::string& simulation,
                                              bool read_only = false);

  std::shared_ptr<zrsimprp::GeoPackageProject> Project() const { return project_; }
  // The project as the control should see it: the person's own keys go to `personal`, the rest to
  // the project file.
  std::shared_ptr<zrsimprp::ProjectDatabase> RoutedDatabase(
      std::shared_ptr<zrsimprp::ProjectSettings> personal) const;
  bool IsReadOnly() const { return read_only_; }
  const std::string& SimulationName() const { return simulation_; }
  // The definition as it was when the document was opened or last saved.
  const std::string& SavedDefinition() const { return saved_definition_; }

  // Saves the definition the control gave back, in one transaction of the project file. An empty
  // (or blank) text means the control could not write the definition: nothing is saved, the saved
  // definition stays as it was, and the outcome says so. Unless `overwrite_changes_elsewhere`, the
  // save also refuses, in the same transaction, a stored definition that another window or program
  // changed since this document loaded or last saved it.
  SaveOutcome Save(const std::string& definition, bool overwrite_changes_elsewhere = false);
  // Copies the project file to `path` (a new file, or one the person chose to replace) and saves the
  // definition into the copy, which becomes the document's project. The original is not touched.
  SaveOutcome SaveAs(const std::string& path, const std::string& definition);
  // True when the definition stored in the project file now differs from the one this document
  // loaded or last saved: another window or program changed it meanwhile.
  bool ChangedElsewhere() const;

  static constexpr const char* kNotWrittenMessage =
      "The simulation's options could not be written into a definition, so nothing was saved. "
      "The definition saved before is kept.";
  static constexpr const char* kChangedElsewhereMessage =
      "Someone else saved this simulation just now, so nothing was saved and your changes are kept. "
      "Save again to choose whether to overwrite their version.";
  static constexpr const char* kReadOnlyMessage =
      "This project file may not be changed (it is read-only), so nothing was saved. Use Save As to keep "
      "your changes in a new project file.";

 private:
  EditorDocument(std::shared_ptr<zrsimprp::GeoPackageProject> project, std::string simulation,
                 std::string definition);

  std::shared_ptr<zrsimprp::GeoPackageProject> project_;
  std::string simulation_;
  std::string saved_definition_;
  bool read_only_ = false;
};

}  // namespace zrsim_editor

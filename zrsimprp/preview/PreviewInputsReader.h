#pragma once

#include <memory>
#include <string>

#include "zrsimprp/preview/PreviewInputs.h"

namespace zrsimprp {

class ProjectDatabase;
class SIMProperties;

// Copies what a preview reads from a loaded control and its project. The pages' controls are read
// directly (never their user-mode properties, which may raise, nor the values the pages hand over on
// leaving a tab, so that the preview follows every edit), and the geometry once per call.
// Never throws for anything typed; a project that fails to answer leaves the design or the layer
// missing with a sentence that says so.
class PreviewInputsReader {
 public:
  static PreviewInputs FromControl(SIMProperties& control, const std::shared_ptr<ProjectDatabase>& database);
  // Everything but the geometry: for a host that keeps the layers it has already loaded.
  static PreviewInputs FromPages(SIMProperties& control);
  // The design a simulation's transects name: a design by its number, or the design of a survey.
  static PreviewDesign DesignOf(ProjectDatabase& database, const std::string& object_type,
                                const std::string& object_id);
  // The design's own entries.
  static PreviewDesign DesignFromText(const std::string& name, const std::string& text);
};

}  // namespace zrsimprp

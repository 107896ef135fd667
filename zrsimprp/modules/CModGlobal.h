#pragma once

#include <memory>
#include <string>

#include "zrsimprp/host/LayerCatalogue.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/host/ProjectSettings.h"

namespace zrsimprp {

// The process-wide project globals, shared by every instance of the control (all on the host's
// user-interface thread), and the covariate-name check.
class CModGlobal {
 public:
  // Keeps the database, then fetches its settings object and its companion object, in that order.
  // A second call replaces all three. A failing host call leaves the globals as they were.
  static void SetProjectDatabase(std::shared_ptr<zrsimprp::ProjectDatabase> database);

  static std::shared_ptr<zrsimprp::ProjectDatabase> ProjectDatabase();  // null until set
  static std::shared_ptr<zrsimprp::ProjectSettings> ProjectSettings();
  static std::shared_ptr<LayerCatalogue> ProjectCompanion();

  // Drops all three globals (for tests and for hosts that close their project).
  static void Clear();

  // True when the name holds none of the forbidden characters; otherwise the first group's message,
  // followed by "  Please change the values you have provided.", goes into `message`.
  static bool CheckCovariateName(const std::string& name, std::string& message);
};

}  // namespace zrsimprp

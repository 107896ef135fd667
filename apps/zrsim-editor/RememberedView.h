#pragma once

#include <string>

namespace zrsim_editor {

// What the editor keeps per person about how a simulation was last viewed (its tabs, see
// PersonalSettings). It is a convenience, never a reason for a simulation not to open: when the
// control refuses it (a settings file of another version, or one edited by hand), it is forgotten.
class RememberedView {
 public:
  // Forgets the person's remembered view of one simulation; false when there was none to forget.
  static bool Forget(const std::string& project_path, const std::string& simulation);
  // Carries the remembered view over to the simulation's new name.
  static void Rename(const std::string& project_path, const std::string& from, const std::string& to);
  // The one line that tells the person the view was forgotten, and why.
  static std::string ForgottenMessage(const std::string& simulation, const std::string& reason);
};

}  // namespace zrsim_editor

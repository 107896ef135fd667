#include "zrsim-editor/RememberedView.h"

#include <QSettings>

#include "zrsim-editor/PersonalSettings.h"

namespace zrsim_editor {

bool RememberedView::Forget(const std::string& project_path, const std::string& simulation) {
  QSettings settings;
  settings.beginGroup(PersonalSettings::GroupFor(project_path, simulation));
  const bool had_any = !settings.allKeys().isEmpty();
  settings.remove(QString());  // the whole group, and only it
  settings.endGroup();
  settings.sync();
  return had_any;
}

std::string RememberedView::ForgottenMessage(const std::string& simulation, const std::string& reason) {
  return "The remembered view of the simulation '" + simulation + "' (its tabs) could not be used (" +
         reason + "), so it was forgotten.";
}

}  // namespace zrsim_editor

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

void RememberedView::Rename(const std::string& project_path, const std::string& from, const std::string& to) {
  QSettings settings;
  const QString old_group = PersonalSettings::GroupFor(project_path, from);
  const QString new_group = PersonalSettings::GroupFor(project_path, to);
  settings.beginGroup(old_group);
  const QStringList keys = settings.allKeys();
  settings.endGroup();
  for (const QString& key : keys) {
    settings.setValue(new_group + "/" + key, settings.value(old_group + "/" + key));
  }
  settings.remove(old_group);
  settings.sync();
}

std::string RememberedView::ForgottenMessage(const std::string& simulation, const std::string& reason) {
  return "The remembered view of the simulation '" + simulation + "' (its tabs) could not be used (" +
         reason + "), so it was forgotten.";
}

}  // namespace zrsim_editor

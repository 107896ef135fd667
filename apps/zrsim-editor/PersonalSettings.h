#pragma once

#include <QString>
#include <string>

#include "zrsimprp/host/ProjectSettings.h"

namespace zrsim_editor {

// A person's own settings for one simulation of one project, kept with QSettings (in the person's
// configuration, never in the project file). The values keep their type across runs.
class PersonalSettings : public zrsimprp::ProjectSettings {
 public:
  PersonalSettings(const std::string& project_path, const std::string& simulation);

  zrsimprp::Variant ReadSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                                const zrsimprp::Variant& default_value) override;
  void WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                    const zrsimprp::Variant& value) override;

  // The QSettings group of a project and simulation: the project by its canonical path, so that two
  // spellings of one file share their settings.
  static QString GroupFor(const std::string& project_path, const std::string& simulation);
  const QString& Group() const { return group_; }

 private:
  QString KeyFor(const std::string& section, const std::string& key) const;

  QString group_;
};

}  // namespace zrsim_editor

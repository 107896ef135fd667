#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "zrsimprp/host/ProjectSettings.h"

namespace zrsim {

// The project's settings as the command line's control sees them: reads come from the project,
// writes (the control remembers the tab it was on) stay in memory, so that checking or showing a
// simulation never changes the project file.
class SessionSettings : public zrsimprp::ProjectSettings {
 public:
  explicit SessionSettings(std::shared_ptr<zrsimprp::ProjectSettings> project_settings)
      : project_settings_(std::move(project_settings)) {}

  zrsimprp::Variant ReadSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                                const zrsimprp::Variant& default_value) override;
  void WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                    const zrsimprp::Variant& value) override;

  int Writes() const { return writes_; }

 private:
  static std::pair<std::string, std::string> Slot(const std::string& section, const std::string& key);

  std::shared_ptr<zrsimprp::ProjectSettings> project_settings_;
  std::map<std::pair<std::string, std::string>, zrsimprp::Variant> written_;
  int writes_ = 0;
};

}  // namespace zrsim

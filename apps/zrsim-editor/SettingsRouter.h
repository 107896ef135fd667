#pragma once

#include <memory>
#include <string>

#include "zrsimprp/host/ProjectSettings.h"

namespace zrsim_editor {

// The settings object the editor hands the control. Keys written with selector A = 0 record where a
// person was (the remembered tabs): they go to the person's own store, so that looking at a project
// never writes its file and read-only projects work. Every other key belongs to the project.
class SettingsRouter : public zrsimprp::ProjectSettings {
 public:
  SettingsRouter(std::shared_ptr<zrsimprp::ProjectSettings> personal,
                 std::shared_ptr<zrsimprp::ProjectSettings> project);

  zrsimprp::Variant ReadSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                                const zrsimprp::Variant& default_value) override;
  void WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                    const zrsimprp::Variant& value) override;

  static constexpr int32_t kPersonalSelector = 0;

 private:
  zrsimprp::ProjectSettings& Route(int32_t a);

  std::shared_ptr<zrsimprp::ProjectSettings> personal_;
  std::shared_ptr<zrsimprp::ProjectSettings> project_;
};

}  // namespace zrsim_editor

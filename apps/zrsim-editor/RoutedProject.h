#pragma once

#include <memory>

#include "zrsimprp/host/ForwardingProjectDatabase.h"

namespace zrsim_editor {

// The project as the editor hands it to the control: the project itself, except that its settings
// are routed (see SettingsRouter).
class RoutedProject : public zrsimprp::ForwardingProjectDatabase {
 public:
  RoutedProject(std::shared_ptr<zrsimprp::ProjectDatabase> project,
                std::shared_ptr<zrsimprp::ProjectSettings> settings);

  std::shared_ptr<zrsimprp::ProjectSettings> Settings() override { return settings_; }

 private:
  std::shared_ptr<zrsimprp::ProjectSettings> settings_;
};

}  // namespace zrsim_editor

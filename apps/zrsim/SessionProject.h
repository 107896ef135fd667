#pragma once

#include <memory>

#include "zrsim/SessionSettings.h"
#include "zrsimprp/host/ForwardingProjectDatabase.h"

namespace zrsim {

// A project database handed to the command line's control: everything comes from the project,
// except that settings written by the control are kept in memory (SessionSettings).
class SessionProject : public zrsimprp::ForwardingProjectDatabase {
 public:
  explicit SessionProject(std::shared_ptr<zrsimprp::ProjectDatabase> project);

  std::shared_ptr<zrsimprp::ProjectSettings> Settings() override;

 private:
  std::shared_ptr<SessionSettings> settings_;
};

}  // namespace zrsim

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/HeadlessPlatform.h"

namespace zrsim {

// One headless control loaded the way a host loads it: project database, definition, Initialize.
// Message boxes are recorded by the HeadlessPlatform; the internal-error reports among them are
// what the command line prints to its error stream.
class ControlSession {
 public:
  ControlSession();
  ControlSession(const ControlSession&) = delete;
  ControlSession& operator=(const ControlSession&) = delete;
  ~ControlSession();

  // Errors that Initialize lets through are caught and reported like the control's own reports.
  void Load(std::shared_ptr<zrsimprp::ProjectDatabase> project, const std::string& definition);

  zrsimprp::SIMProperties& Control() { return *control_; }
  zrsimprp::HeadlessPlatform& Platform() { return platform_; }

  // The texts of the internal-error reports (critical-stop boxes) shown since the last call.
  std::vector<std::string> TakeInternalErrors();

 private:
  zrsimprp::HeadlessPlatform platform_;
  std::unique_ptr<zrsimprp::SIMProperties> control_;
  std::size_t messages_seen_ = 0;
};

}  // namespace zrsim

#include "zrsim/SessionProject.h"

#include <utility>

namespace zrsim {

SessionProject::SessionProject(std::shared_ptr<zrsimprp::ProjectDatabase> project)
    : ForwardingProjectDatabase(std::move(project)) {}

std::shared_ptr<zrsimprp::ProjectSettings> SessionProject::Settings() {
  // Fetched once: later writes must be seen by later reads of the same session.
  if (!settings_) settings_ = std::make_shared<SessionSettings>(Wrapped().Settings());
  return settings_;
}

}  // namespace zrsim

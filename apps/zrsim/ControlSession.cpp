#include "zrsim/ControlSession.h"

#include <utility>

#include "zrsim/SessionProject.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsim {

ControlSession::ControlSession() : control_(std::make_unique<zrsimprp::SIMProperties>(platform_)) {}

ControlSession::~ControlSession() {
  control_.reset();
  // The globals would otherwise keep the project file open after the session.
  zrsimprp::CModGlobal::Clear();
}

void ControlSession::Load(std::shared_ptr<zrsimprp::ProjectDatabase> project, const std::string& definition) {
  auto session_project = std::make_shared<SessionProject>(std::move(project));
  zrsimprp::RunTrapped(
      [&] {
        control_->SetProjectDatabase(session_project);
        control_->SetDefinition(definition);
        control_->Initialize();
      },
      [&](const zrsimprp::RuntimeError& error) {
        zrsimprp::CModErrorHandling::ReportInternalError(platform_, "zrsim", "Load", error);
      });
}

std::vector<std::string> ControlSession::TakeInternalErrors() {
  std::vector<std::string> reports;
  const auto& messages = platform_.Messages();
  for (; messages_seen_ < messages.size(); ++messages_seen_) {
    if (messages[messages_seen_].icon == zrsimprp::MessageIcon::Critical) {
      reports.push_back(messages[messages_seen_].text);
    }
  }
  return reports;
}

}  // namespace zrsim

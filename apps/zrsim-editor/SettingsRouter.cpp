#include "zrsim-editor/SettingsRouter.h"

#include <utility>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsim_editor {

SettingsRouter::SettingsRouter(std::shared_ptr<zrsimprp::ProjectSettings> personal,
                               std::shared_ptr<zrsimprp::ProjectSettings> project)
    : personal_(std::move(personal)), project_(std::move(project)) {}

zrsimprp::ProjectSettings& SettingsRouter::Route(int32_t a) {
  zrsimprp::ProjectSettings* target = a == kPersonalSelector ? personal_.get() : project_.get();
  if (target == nullptr) {
    throw zrsimprp::RuntimeError(zrsimprp::error_number::kInvalidProcedureCall, "ProjectSettings",
                                 "The editor has no settings store for these keys.");
  }
  return *target;
}

zrsimprp::Variant SettingsRouter::ReadSetting(int32_t a, int32_t b, const std::string& section,
                                              const std::string& key,
                                              const zrsimprp::Variant& default_value) {
  return Route(a).ReadSetting(a, b, section, key, default_value);
}

void SettingsRouter::WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                                  const zrsimprp::Variant& value) {
  Route(a).WriteSetting(a, b, section, key, value);
}

}  // namespace zrsim_editor

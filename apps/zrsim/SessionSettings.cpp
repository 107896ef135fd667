#include "zrsim/SessionSettings.h"

#include "zrsimprp/host/Conversions.h"

namespace zrsim {

zrsimprp::Variant SessionSettings::ReadSetting(int32_t a, int32_t b, const std::string& section,
                                               const std::string& key,
                                               const zrsimprp::Variant& default_value) {
  auto found = written_.find(Slot(section, key));
  if (found != written_.end()) return found->second;
  if (!project_settings_) return default_value;
  return project_settings_->ReadSetting(a, b, section, key, default_value);
}

void SessionSettings::WriteSetting(int32_t, int32_t, const std::string& section, const std::string& key,
                                   const zrsimprp::Variant& value) {
  written_[Slot(section, key)] = value;
  ++writes_;
}

std::pair<std::string, std::string> SessionSettings::Slot(const std::string& section,
                                                          const std::string& key) {
  return {zrsimprp::ToLowerAscii(section), zrsimprp::ToLowerAscii(key)};
}

}  // namespace zrsim

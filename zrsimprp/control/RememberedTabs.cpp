#include "zrsimprp/control/RememberedTabs.h"

#include <utility>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {
namespace {

constexpr const char* kModule = "SIM";
constexpr int32_t kObjectNotSet = 91;
constexpr const char* kSection = "SIMProperties";

}  // namespace

RememberedTabs RememberedTabs::Fetch() {
  const std::shared_ptr<ProjectDatabase> database = CModGlobal::ProjectDatabase();
  if (!database) {
    throw RuntimeError(kObjectNotSet, kModule, "No project database has been given to the control");
  }
  std::shared_ptr<ProjectSettings> settings = database->Settings();
  if (!settings) throw RuntimeError(kObjectNotSet, kModule, "The project database supplies no settings");
  return RememberedTabs(std::move(settings));
}

bool RememberedTabs::RestoreWanted() const {
  return VariantToBoolean(settings_->ReadSetting(1, 3, "Analysis", "PropertyTabLastUsed", Variant(true)));
}

int16_t RememberedTabs::OuterTab() const {
  return VariantToInt16(settings_->ReadSetting(0, 2, kSection, "CurrentTab", Variant(int16_t{0})));
}

std::string RememberedTabs::InnerKey(const std::string& default_key) const {
  // Read under "CurrentDFTab" but written under "CurrentAOTab" (RememberInnerKey): the host has always
  // kept the two apart, and both names are kept on purpose.
  return VariantToText(settings_->ReadSetting(0, 0, kSection, "CurrentDFTab", Variant(default_key)));
}

void RememberedTabs::RememberOuterTab(int index) const {
  settings_->WriteSetting(0, 2, kSection, "CurrentTab", Variant(static_cast<int16_t>(index)));
}

void RememberedTabs::RememberInnerKey(const std::string& key) const {
  // "CurrentAOTab", not the "CurrentDFTab" that InnerKey reads: kept on purpose (see InnerKey).
  settings_->WriteSetting(0, 0, kSection, "CurrentAOTab", Variant(key));
}

}  // namespace zrsimprp

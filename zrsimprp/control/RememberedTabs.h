#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "zrsimprp/host/ProjectSettings.h"

namespace zrsimprp {

// The tab positions the control keeps in the host's settings, so that it opens where it was left.
class RememberedTabs {
 public:
  // The settings of the project database given to the control, asked for now; raises a run-time
  // error when there is no project database or it supplies no settings.
  static RememberedTabs Fetch();

  // Whether the host wants the last used tabs restored; a null value counts as no.
  bool RestoreWanted() const;
  // The outer tab last shown, 0 when none is kept.
  int16_t OuterTab() const;
  // The inner tab key last selected, `default_key` when none is kept.
  std::string InnerKey(const std::string& default_key) const;

  void RememberOuterTab(int index) const;
  void RememberInnerKey(const std::string& key) const;

 private:
  explicit RememberedTabs(std::shared_ptr<ProjectSettings> settings) : settings_(std::move(settings)) {}

  std::shared_ptr<ProjectSettings> settings_;
};

}  // namespace zrsimprp

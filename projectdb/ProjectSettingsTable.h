#pragma once

#include <memory>
#include <string>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/ProjectSettings.h"

namespace zrsimprp {

// Settings kept in the project file by section and key (case ignored), each value with its type so
// that a read gives back exactly the variant that was written. The selectors are stored with the value.
class ProjectSettingsTable : public ProjectSettings {
 public:
  explicit ProjectSettingsTable(std::shared_ptr<GeoPackageProject> project) : project_(std::move(project)) {}
  Variant ReadSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                      const Variant& default_value) override;
  void WriteSetting(int32_t a, int32_t b, const std::string& section, const std::string& key,
                    const Variant& value) override;

 private:
  std::shared_ptr<GeoPackageProject> project_;
};

}  // namespace zrsimprp

#pragma once

#include <memory>
#include <string>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/EngineDefaults.h"

namespace zrsimprp {

class ProjectEngineDefaults : public EngineDefaults {
 public:
  explicit ProjectEngineDefaults(std::shared_ptr<GeoPackageProject> project) : project_(std::move(project)) {}
  Variant DefaultDefinition(const std::string& engine) override;

 private:
  std::shared_ptr<GeoPackageProject> project_;
};

}  // namespace zrsimprp

#pragma once

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/DesignRecord.h"

namespace zrsimprp {

// A design as read from the project file.
class StoredDesign : public DesignRecord {
 public:
  explicit StoredDesign(GeoPackageProject::DesignInfo info) : info_(std::move(info)) {}
  int32_t ID() override { return info_.id; }
  std::string Name() override { return info_.name; }
  std::string DefinitionText() override { return info_.definition_text; }

 private:
  GeoPackageProject::DesignInfo info_;
};

}  // namespace zrsimprp

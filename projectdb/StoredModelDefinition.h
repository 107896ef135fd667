#pragma once

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/ModelDefinition.h"

namespace zrsimprp {

// A model definition as read from the project file: identifier, identifier again, name.
class StoredModelDefinition : public ModelDefinition {
 public:
  explicit StoredModelDefinition(GeoPackageProject::ModelDefinitionInfo info) : info_(std::move(info)) {}
  void ItemValues(int32_t& a, int32_t& b, std::string& s) override {
    a = info_.id;
    b = info_.id;
    s = info_.name;
  }
  std::string EngineName() override { return info_.engine; }
  std::string DefinitionText() override { return info_.definition_text; }

 private:
  GeoPackageProject::ModelDefinitionInfo info_;
};

}  // namespace zrsimprp

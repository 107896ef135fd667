#pragma once

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/SurveyRecord.h"

namespace zrsimprp {

// A survey as read from the project file.
class StoredSurvey : public SurveyRecord {
 public:
  explicit StoredSurvey(GeoPackageProject::SurveyInfo info) : info_(std::move(info)) {}
  int32_t ID() override { return info_.id; }
  std::string Name() override { return info_.name; }
  int32_t Status() override { return info_.status; }
  int32_t DesignID() override { return info_.design_id; }

 private:
  GeoPackageProject::SurveyInfo info_;
};

}  // namespace zrsimprp

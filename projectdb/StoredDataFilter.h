#pragma once

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/DataFilter.h"

namespace zrsimprp {

// A data filter as read from the project file: identifier, identifier again, name.
class StoredDataFilter : public DataFilter {
 public:
  explicit StoredDataFilter(GeoPackageProject::DataFilterInfo info) : info_(std::move(info)) {}
  void ItemValues(int32_t& a, int32_t& b, std::string& s) override {
    a = info_.id;
    b = info_.id;
    s = info_.name;
  }

 private:
  GeoPackageProject::DataFilterInfo info_;
};

}  // namespace zrsimprp

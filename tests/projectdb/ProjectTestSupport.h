#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp::testing {

// A folder of its own for each test, removed afterwards.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// The error a call raises; a test failure when it raises none.
RuntimeError CaptureError(const std::function<void()>& call);

void WriteBytes(const std::string& path, const std::string& bytes);
// Runs SQL on a file directly, as another program would.
void RunSql(const std::string& path, const std::string& sql);
int64_t QueryInteger(const std::string& path, const std::string& sql);

// A geometry blob as some other writers produce it: big-endian header without an envelope and a
// big-endian WKB MultiPolygon holding one square.
std::string BigEndianSquareBlob(double x, double y, double size, int32_t srs_id);

// A GeoPackage written in another tool's conventions: application id "GP10", no user version, a
// feature table named `table` whose key column OBJECTID is not the first column, geometry in SHAPE,
// a text code CODE and a label NAME.
void WriteForeignGeoPackage(const std::string& path, const std::string& table, int feature_count);

// A small project: region "Region" (kind 1) and "Strata" (child) with three labelled features.
std::shared_ptr<GeoPackageProject> MakeSmallProject(const std::string& path);
PolygonFeature Square(int32_t id, const std::string& label, double x, double y, double size);

}  // namespace zrsimprp::testing

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "projectdb/VectorReader.h"

class GDALDataset;
class OGRLayer;
class OGRSpatialReference;

namespace zrsimprp {

// A vector source opened with GDAL (in the GDAL module); VectorSource says what each member does.
class GdalVectorReader : public VectorReader {
 public:
  explicit GdalVectorReader(const std::string& path);
  ~GdalVectorReader() override;
  GdalVectorReader(const GdalVectorReader&) = delete;
  GdalVectorReader& operator=(const GdalVectorReader&) = delete;

  std::vector<std::string> LayerNames() const override;
  std::string ResolveLayer(const std::string& table) const override;
  std::vector<std::string> FieldNames(const std::string& table) const override;
  VectorSource::Layer Read(const std::string& table, const std::string& id_field,
                           const std::string& label_field, const std::string& to_crs) const override;

 private:
  OGRLayer* LayerNamed(const std::string& table) const;
  // The index of the field `field` of `layer`, refused naming the fields there are.
  static int FieldIndex(OGRLayer& layer, const std::string& field, const std::string& where);
  // The target system of `to_crs` for `layer`; null when the coordinates are kept.
  std::unique_ptr<OGRSpatialReference> TargetSystem(OGRLayer& layer, const std::string& to_crs,
                                                    const std::string& where) const;
  static VectorSource::CoordinateSystem Describe(const OGRSpatialReference* system);

  std::string path_;
  std::unique_ptr<GDALDataset> dataset_;
};

}  // namespace zrsimprp

#pragma once

#include <string>
#include <vector>

#include "projectdb/VectorSource.h"

namespace zrsimprp {

// One open vector source, as the GDAL module reads it: what VectorSource hands on (see there for each
// member). Made by GeoBackend::Open.
class VectorReader {
 public:
  virtual ~VectorReader() = default;
  virtual std::vector<std::string> LayerNames() const = 0;
  virtual std::string ResolveLayer(const std::string& table) const = 0;
  virtual std::vector<std::string> FieldNames(const std::string& table) const = 0;
  virtual VectorSource::Layer Read(const std::string& table, const std::string& id_field,
                                   const std::string& label_field, const std::string& to_crs) const = 0;
};

}  // namespace zrsimprp

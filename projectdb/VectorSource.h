#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "projectdb/PolygonFeature.h"

namespace zrsimprp {

class VectorReader;

// A polygon layer of any vector file GDAL reads (GeoPackage, Shapefile, GeoJSON, FlatGeobuf, KML, ...),
// read into the features a project layer is written from, reprojected on the way when asked. Every
// refusal is a RuntimeError whose one sentence names what the file has instead: the layers of the
// file when the asked one is not there, the fields of the layer when a field is not. GDAL itself is
// loaded with the first source opened (GeoBackend), so a program that reads none never loads it.
class VectorSource {
 public:
  // The coordinate system the features were read in, as a GeoPackage describes one.
  struct CoordinateSystem {
    std::string organization;  // "EPSG", or "" when the system has no code
    int32_t code = 0;
    std::string name;
    std::string definition;  // WKT; "" when the source says nothing of its coordinates
    bool geographic = false;
  };

  struct Layer {
    std::string name;  // as the source names it
    CoordinateSystem crs;
    std::vector<PolygonFeature> features;
  };

  // Opens `path` read-only; refused when it is missing, when GDAL cannot be loaded, or when GDAL cannot
  // read it as vector data.
  explicit VectorSource(const std::string& path);
  ~VectorSource();
  VectorSource(const VectorSource&) = delete;
  VectorSource& operator=(const VectorSource&) = delete;

  // The names of the source's layers, in its order.
  std::vector<std::string> LayerNames() const;
  // The layer `table` (case ignored), or the only layer when `table` is "". Refused naming the layers.
  std::string ResolveLayer(const std::string& table) const;

  // The fields of the layer `table` (as ResolveLayer finds it), in its order.
  std::vector<std::string> FieldNames(const std::string& table) const;

  // Reads the polygons of `table`, the identifier from `id_field` ("" for the feature id) and the label
  // from `label_field` ("" for none). `to_crs` is "" (keep the source's coordinates), "auto" (the WGS 84
  // UTM zone of the layer's centre) or "EPSG:N".
  Layer Read(const std::string& table, const std::string& id_field, const std::string& label_field,
             const std::string& to_crs) const;

  // "EPSG:N" of the WGS 84 UTM zone holding the point (longitude, latitude in degrees).
  static std::string UtmZoneFor(double longitude, double latitude) {
    double wrapped = std::fmod(longitude + 180.0, 360.0);
    if (wrapped < 0) wrapped += 360.0;
    const int zone = std::min(60, static_cast<int>(std::floor(wrapped / 6.0)) + 1);
    return "EPSG:" + std::to_string((latitude < 0 ? 32700 : 32600) + zone);
  }

 private:
  std::unique_ptr<VectorReader> reader_;
};

}  // namespace zrsimprp

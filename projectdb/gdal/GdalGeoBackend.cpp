#include "projectdb/GeoBackend.h"
#include "projectdb/gdal/GdalPolygonOverlay.h"
#include "projectdb/gdal/GdalVectorReader.h"

namespace zrsimprp {
namespace {

class GdalGeoBackend final : public GeoBackend {
 public:
  std::unique_ptr<VectorReader> Open(const std::string& path) override {
    return std::make_unique<GdalVectorReader>(path);
  }
  std::vector<PolygonRings> Union(const std::vector<PolygonFeature>& features) override {
    return GdalPolygonOverlay::Union(features);
  }
  double ShareInside(const std::vector<PolygonRings>& inner,
                     const std::vector<PolygonRings>& outer) override {
    return GdalPolygonOverlay::ShareInside(inner, outer);
  }
};

}  // namespace
}  // namespace zrsimprp

// The module's entry point (GeoBackend::kEntryPoint), looked up by name when the module is loaded.
extern "C" __attribute__((visibility("default"))) zrsimprp::GeoBackend* zrsimprp_geo_backend() {
  static zrsimprp::GdalGeoBackend backend;
  return &backend;
}

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "projectdb/PolygonFeature.h"

namespace zrsimprp {

class VectorReader;

// What the project needs of GDAL: reading vector files and overlaying polygons. GDAL and the hundred
// libraries it brings take as long to load as the rest of a program's start, and most runs of the
// editor and of zrsim never import a layer, so they live in a module of their own
// (libzrsimprp_gdal.so) that is loaded the first time one of them is needed.
class GeoBackend {
 public:
  // The module's one exported function: returns the backend, which lives as long as the process.
  static constexpr const char* kEntryPoint = "zrsimprp_geo_backend";
  // Names the module file to load instead of looking for it beside the program and where it was built
  // or installed.
  static constexpr const char* kModuleVariable = "ZRSIMPRP_GDAL_MODULE";

  virtual ~GeoBackend() = default;

  // Opens `path` read-only; refused when GDAL cannot read it as vector data.
  virtual std::unique_ptr<VectorReader> Open(const std::string& path) = 0;
  // See PolygonOverlay.
  virtual std::vector<PolygonRings> Union(const std::vector<PolygonFeature>& features) = 0;
  virtual double ShareInside(const std::vector<PolygonRings>& inner,
                             const std::vector<PolygonRings>& outer) = 0;

  // The backend, the module loaded at the first call. A module that cannot be found or loaded is a
  // RuntimeError saying so in one sentence, and the next call tries again.
  static GeoBackend& Loaded();
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <string>

namespace zrsimprp {

// What a person asks of an import of a layer into a project.
struct LayerImportOptions {
  std::string from;         // any vector file GDAL reads
  std::string table;        // the source's layer; "" when it has only one
  std::string id_field;     // "" for the source's feature id
  std::string label_field;  // "" for none
  std::string name;         // the new layer's name in the project
  int32_t kind = 0;
  std::string parent;  // "" for none
  // "" keeps the source's coordinates; "auto" (the WGS 84 UTM zone of the layer's centre) or "EPSG:N"
  // reprojects them.
  std::string to_crs;
  // When not "", a study region of this name is made by dissolving the imported polygons, and
  // becomes the layer's parent.
  std::string make_region;
};

// What an import did.
struct LayerImportOutcome {
  int32_t count = 0;        // features imported
  std::string table;        // the source's layer that was read
  std::string crs;          // the new layer's coordinate system ("EPSG:32633", ...)
  bool geographic = false;  // its coordinates are degrees
};

}  // namespace zrsimprp

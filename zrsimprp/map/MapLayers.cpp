#include "zrsimprp/map/MapLayers.h"

#include <cmath>
#include <exception>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

bool AllFinite(const LayerShapes& shapes) {
  for (const StratumGeometry& stratum : shapes.strata) {
    for (const MapPolygon& polygon : stratum.polygons) {
      for (const auto& ring : polygon.rings) {
        for (const MapPoint& point : ring) {
          if (!std::isfinite(point.x) || !std::isfinite(point.y)) return false;
        }
      }
    }
  }
  return true;
}

bool HasPolygons(const LayerShapes& shapes) {
  for (const StratumGeometry& stratum : shapes.strata) {
    for (const MapPolygon& polygon : stratum.polygons) {
      if (!polygon.rings.empty() && polygon.rings.front().size() >= 3) return true;
    }
  }
  return false;
}

std::string Reason(const std::exception& error) {
  if (const auto* runtime = dynamic_cast<const RuntimeError*>(&error)) return runtime->description;
  return error.what();
}

// The shapes of a layer, or null with the sentence that says why there are none.
// `consequence` ends the sentence: what cannot be drawn without this layer.
std::shared_ptr<const LayerShapes> ReadShapes(const std::shared_ptr<ProjectDatabase>& database,
                                              const std::string& layer_name, const std::string& role,
                                              const std::string& consequence, std::string& notice) {
  const std::shared_ptr<LayerGeometrySource> source = GeometrySourceOf(database);
  if (!source) {
    notice = "This project offers no map geometry, " + consequence;
    return nullptr;
  }
  try {
    std::optional<LayerShapes> shapes = source->LayerGeometry(layer_name);
    if (!shapes) {
      notice = "The " + role + " '" + layer_name + "' has no geometry in this project, " + consequence;
      return nullptr;
    }
    if (!AllFinite(*shapes)) {
      notice = "The " + role + " '" + layer_name +
               "' has a point whose coordinates are not finite numbers, " + consequence;
      return nullptr;
    }
    if (!HasPolygons(*shapes)) {
      notice = "The " + role + " '" + layer_name + "' has no polygons, " + consequence;
      return nullptr;
    }
    return std::make_shared<const LayerShapes>(std::move(*shapes));
  } catch (const std::exception& error) {
    notice = "The " + role + " '" + layer_name + "' could not be read: " + Reason(error);
    return nullptr;
  }
}

}  // namespace

std::shared_ptr<LayerGeometrySource> GeometrySourceOf(const std::shared_ptr<ProjectDatabase>& database) {
  return std::dynamic_pointer_cast<LayerGeometrySource>(database);
}

void MapLayers::LoadRegion(MapLayers& layers, const std::shared_ptr<ProjectDatabase>& database,
                           const std::string& layer_name) {
  layers.region_layer = layer_name;
  layers.region = nullptr;
  layers.region_notice.clear();
  if (!database) {
    layers.region_notice = "No project is open, so there is nothing to draw.";
  } else if (TrimBlanks(layer_name).empty() || TextEquals(layer_name, "None")) {
    layers.region_notice = "No region / strata layer is chosen, so there is nothing to draw.";
  } else {
    layers.region = ReadShapes(database, layer_name, "region / strata layer", "so there is nothing to draw.",
                               layers.region_notice);
  }
  layers.region_extent = MapExtent();
  if (!layers.region) return;
  for (const StratumGeometry& stratum : layers.region->strata) {
    for (const MapPolygon& polygon : stratum.polygons) {
      for (const auto& ring : polygon.rings) {
        for (const MapPoint& point : ring) layers.region_extent.Include(point.x, point.y);
      }
    }
  }
}

void MapLayers::LoadDsm(MapLayers& layers, const std::shared_ptr<ProjectDatabase>& database,
                        const std::string& layer_name, const std::string& field) {
  layers.dsm_layer = layer_name;
  layers.dsm_field = field;
  layers.dsm = nullptr;
  layers.dsm_values.clear();
  layers.dsm_notice.clear();
  if (TrimBlanks(layer_name).empty()) {
    layers.dsm_notice = "No DSM layer is chosen, so the surface cannot be drawn.";
    return;
  }
  if (TrimBlanks(field).empty()) {
    layers.dsm_notice = "No DSM field is chosen, so the surface cannot be drawn.";
    return;
  }
  if (!database) return;
  std::shared_ptr<const LayerShapes> shapes =
      ReadShapes(database, layer_name, "DSM layer", "so the surface cannot be drawn.", layers.dsm_notice);
  if (!shapes) return;
  try {
    const std::shared_ptr<LayerCatalogue> companion = database->Companion();
    const std::optional<std::vector<std::vector<Variant>>> rows =
        companion->LayerByName(layer_name)->GetRows(field, 0, 1);
    if (!rows || rows->empty() || rows->front().size() != shapes->strata.size()) {
      layers.dsm_notice = "The DSM field '" + field + "' of the layer '" + layer_name +
                          "' does not give one value per polygon, so the surface cannot be drawn.";
      return;
    }
    layers.dsm_values = rows->front();
    layers.dsm = std::move(shapes);
  } catch (const std::exception& error) {
    layers.dsm_notice =
        "The DSM field '" + field + "' of the layer '" + layer_name + "' could not be read: " + Reason(error);
  }
}

}  // namespace zrsimprp

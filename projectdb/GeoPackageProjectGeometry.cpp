// GeoPackageProject's optional geometry interface, kept apart from the project's records and builders.
#include "projectdb/GeoPackageLayerFields.h"
#include "projectdb/GeoPackageLayerGeometry.h"
#include "projectdb/GeoPackageProject.h"

namespace zrsimprp {

std::optional<LayerShapes> GeoPackageProject::LayerGeometry(const std::string& layer_name) {
  return GeoPackageLayerGeometry::Read(*connection_, layer_name);
}

std::vector<std::string> GeoPackageProject::NumericFields(const std::string& layer_name) {
  return GeoPackageLayerFields::Numeric(*connection_, layer_name);
}

}  // namespace zrsimprp

#include "projectdb/gdal/GdalVectorReader.h"

#include <cpl_error.h>
#include <gdal_priv.h>
#include <ogr_geometry.h>
#include <ogr_spatialref.h>
#include <ogrsf_frmts.h>

#include <cmath>
#include <limits>
#include <mutex>

#include "projectdb/ProjectChecks.h"
#include "projectdb/gdal/OgrPolygons.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

void RegisterDrivers() {
  static std::once_flag once;
  std::call_once(once, [] { GDALAllRegister(); });
}

std::string Quoted(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    text += (i == 0 ? "" : (i + 1 == names.size() ? " and " : ", ")) + ("'" + names[i] + "'");
  }
  return text;
}

std::string LastGdalError() {
  const std::string message = CPLGetLastErrorMsg();
  return message.empty() ? std::string() : " (" + message + ")";
}

bool IsPolygonal(OGRwkbGeometryType type) {
  switch (wkbFlatten(type)) {
    case wkbPolygon:
    case wkbMultiPolygon:
    case wkbCurvePolygon:
    case wkbMultiSurface:
    case wkbTriangle:
    case wkbPolyhedralSurface:
    case wkbTIN:
      return true;
    default:
      return false;
  }
}

// The feature's identifier from the field, which must hold a whole number that fits 32 bits.
int32_t Identifier(OGRFeature& feature, int field, const std::string& where, const std::string& field_name) {
  const std::string fid = std::to_string(feature.GetFID());
  if (field < 0) {
    if (feature.GetFID() < 1 || feature.GetFID() > std::numeric_limits<int32_t>::max()) {
      ProjectChecks::Refuse(where + " numbers its features from " + fid +
                            ", which cannot identify a stratum; name an identifier field with --id-field.");
    }
    return static_cast<int32_t>(feature.GetFID());
  }
  const std::string text(TrimBlanks(feature.GetFieldAsString(field)));
  const double value = feature.IsFieldSetAndNotNull(field) && IsNumeric(text) ? ToDouble(text) : 0.5;
  if (value != std::floor(value) || value < std::numeric_limits<int32_t>::min() ||
      value > std::numeric_limits<int32_t>::max()) {
    ProjectChecks::Refuse(where + " has a feature (" + fid + ") whose field '" + field_name + "' holds '" +
                          text + "', not a whole number that can identify it.");
  }
  return static_cast<int32_t>(value);
}

}  // namespace

GdalVectorReader::GdalVectorReader(const std::string& path) : path_(path) {
  RegisterDrivers();
  CPLErrorReset();
  CPLPushErrorHandler(CPLQuietErrorHandler);
  GDALDataset* opened =
      GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, nullptr, nullptr, nullptr);
  CPLPopErrorHandler();
  if (opened == nullptr) {
    ProjectChecks::Refuse("The file '" + path + "' is not vector data that GDAL can read" + LastGdalError() +
                          ".");
  }
  dataset_.reset(opened);
}

GdalVectorReader::~GdalVectorReader() { GDALClose(dataset_.release()); }

std::vector<std::string> GdalVectorReader::LayerNames() const {
  std::vector<std::string> names;
  for (int i = 0; i < dataset_->GetLayerCount(); ++i) names.emplace_back(dataset_->GetLayer(i)->GetName());
  return names;
}

std::string GdalVectorReader::ResolveLayer(const std::string& table) const {
  return LayerNamed(table)->GetName();
}

std::vector<std::string> GdalVectorReader::FieldNames(const std::string& table) const {
  OGRFeatureDefn* definition = LayerNamed(table)->GetLayerDefn();
  std::vector<std::string> names;
  for (int i = 0; i < definition->GetFieldCount(); ++i)
    names.emplace_back(definition->GetFieldDefn(i)->GetNameRef());
  return names;
}

OGRLayer* GdalVectorReader::LayerNamed(const std::string& table) const {
  const std::vector<std::string> names = LayerNames();
  if (names.empty()) ProjectChecks::Refuse("The file '" + path_ + "' has no layers.");
  if (table.empty()) {
    if (names.size() == 1) return dataset_->GetLayer(0);
    ProjectChecks::Refuse("The file '" + path_ + "' has " + std::to_string(names.size()) +
                          " layers, so --table must name one: " + Quoted(names) + ".");
  }
  for (int i = 0; i < dataset_->GetLayerCount(); ++i) {
    if (TextEquals(dataset_->GetLayer(i)->GetName(), table)) return dataset_->GetLayer(i);
  }
  ProjectChecks::Refuse("The file '" + path_ + "' has no layer named '" + table + "'; its layers are " +
                        Quoted(names) + ".");
}

int GdalVectorReader::FieldIndex(OGRLayer& layer, const std::string& field, const std::string& where) {
  OGRFeatureDefn* definition = layer.GetLayerDefn();
  std::vector<std::string> names;
  for (int i = 0; i < definition->GetFieldCount(); ++i) {
    names.emplace_back(definition->GetFieldDefn(i)->GetNameRef());
    if (TextEquals(names.back(), field)) return i;
  }
  ProjectChecks::Refuse(
      where + " has no field '" + field + "'; " +
      (names.empty() ? std::string("it has no fields.") : "its fields are " + Quoted(names) + "."));
}

std::unique_ptr<OGRSpatialReference> GdalVectorReader::TargetSystem(OGRLayer& layer,
                                                                    const std::string& to_crs,
                                                                    const std::string& where) const {
  if (to_crs.empty()) return nullptr;
  const OGRSpatialReference* source = layer.GetSpatialRef();
  if (source == nullptr) {
    ProjectChecks::Refuse(where +
                          " does not say which coordinate system it is in, so it cannot be reprojected.");
  }
  std::string code = to_crs;
  if (TextEquals(to_crs, "auto")) {
    OGREnvelope extent;
    if (layer.GetExtent(&extent, TRUE) != OGRERR_NONE) {
      ProjectChecks::Refuse(where + " has no features to place, so no UTM zone can be chosen for it.");
    }
    OGRSpatialReference wgs84;
    wgs84.importFromEPSG(4326);
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRSpatialReference from(*source);
    from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    std::unique_ptr<OGRCoordinateTransformation> to_degrees(OGRCreateCoordinateTransformation(&from, &wgs84));
    double x = (extent.MinX + extent.MaxX) / 2;
    double y = (extent.MinY + extent.MaxY) / 2;
    if (!to_degrees || !to_degrees->Transform(1, &x, &y)) {
      ProjectChecks::Refuse(where + " has a centre that cannot be put in longitude and latitude" +
                            LastGdalError() + ".");
    }
    code = VectorSource::UtmZoneFor(x, y);
  }
  const std::string prefix = "EPSG:";
  const std::string number = code.size() > prefix.size() ? code.substr(prefix.size()) : "";
  auto target = std::make_unique<OGRSpatialReference>();
  if (!TextEquals(code.substr(0, prefix.size()), prefix) ||
      number.find_first_not_of("0123456789") != std::string::npos || number.empty() || number.size() > 9 ||
      target->importFromEPSG(std::stoi(number)) != OGRERR_NONE) {
    ProjectChecks::Refuse("--to-crs must be auto or EPSG: and the number of a coordinate system, not '" +
                          to_crs + "'.");
  }
  target->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return target;
}

VectorSource::CoordinateSystem GdalVectorReader::Describe(const OGRSpatialReference* system) {
  VectorSource::CoordinateSystem crs;
  if (system == nullptr) return crs;
  OGRSpatialReference copy(*system);
  const char* authority = copy.GetAuthorityName(nullptr);
  if (authority == nullptr) {
    copy.AutoIdentifyEPSG();
    authority = copy.GetAuthorityName(nullptr);
  }
  if (authority != nullptr && TextEquals(authority, "EPSG") && copy.GetAuthorityCode(nullptr) != nullptr) {
    crs.organization = "EPSG";
    crs.code = static_cast<int32_t>(std::atol(copy.GetAuthorityCode(nullptr)));
  }
  crs.name = copy.GetName() != nullptr ? copy.GetName() : "";
  char* wkt = nullptr;
  if (copy.exportToWkt(&wkt) == OGRERR_NONE && wkt != nullptr) crs.definition = wkt;
  CPLFree(wkt);
  crs.geographic = copy.IsGeographic() != 0;
  return crs;
}

VectorSource::Layer GdalVectorReader::Read(const std::string& table, const std::string& id_field,
                                           const std::string& label_field, const std::string& to_crs) const {
  OGRLayer* layer = LayerNamed(table);
  const std::string where = "The layer '" + std::string(layer->GetName()) + "' of '" + path_ + "'";
  const int id = id_field.empty() ? -1 : FieldIndex(*layer, id_field, where);
  const int label = label_field.empty() ? -1 : FieldIndex(*layer, label_field, where);
  if (!IsPolygonal(layer->GetGeomType()) && wkbFlatten(layer->GetGeomType()) != wkbUnknown) {
    ProjectChecks::Refuse(where + " holds " + OGRGeometryTypeToName(layer->GetGeomType()) +
                          " geometries, not polygons.");
  }
  std::unique_ptr<OGRSpatialReference> target = TargetSystem(*layer, to_crs, where);
  std::unique_ptr<OGRCoordinateTransformation> transform;
  if (target) {
    OGRSpatialReference from(*layer->GetSpatialRef());
    from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    transform.reset(OGRCreateCoordinateTransformation(&from, target.get()));
    if (!transform)
      ProjectChecks::Refuse(where + " cannot be reprojected to " + to_crs + LastGdalError() + ".");
  }
  VectorSource::Layer read;
  read.name = layer->GetName();
  read.crs = Describe(target ? target.get() : layer->GetSpatialRef());
  layer->ResetReading();
  for (auto& feature : *layer) {
    PolygonFeature written;
    written.id = Identifier(*feature, id, where, id_field);
    if (label >= 0 && feature->IsFieldSetAndNotNull(label)) written.label = feature->GetFieldAsString(label);
    if (OGRGeometry* geometry = feature->GetGeometryRef()) {
      if (!IsPolygonal(geometry->getGeometryType())) {
        ProjectChecks::Refuse(where + " has a feature (" + std::to_string(feature->GetFID()) +
                              ") whose geometry is " + OGRGeometryTypeToName(geometry->getGeometryType()) +
                              ", not a polygon.");
      }
      if (transform && geometry->transform(transform.get()) != OGRERR_NONE) {
        ProjectChecks::Refuse(where + " has a feature (" + std::to_string(feature->GetFID()) +
                              ") that cannot be reprojected to " + to_crs + LastGdalError() + ".");
      }
      written.polygons = OgrPolygons::From(*geometry);
    }
    read.features.push_back(std::move(written));
  }
  return read;
}

}  // namespace zrsimprp

#include "projectdb/VectorSource.h"

#include "projectdb/GeoBackend.h"
#include "projectdb/ProjectChecks.h"
#include "projectdb/VectorReader.h"

namespace zrsimprp {

VectorSource::VectorSource(const std::string& path) {
  // A missing file is said without loading GDAL for it.
  ProjectChecks::CheckExistingFile(path, "vector file");
  reader_ = GeoBackend::Loaded().Open(path);
}

VectorSource::~VectorSource() = default;

std::vector<std::string> VectorSource::LayerNames() const { return reader_->LayerNames(); }

std::string VectorSource::ResolveLayer(const std::string& table) const {
  return reader_->ResolveLayer(table);
}

std::vector<std::string> VectorSource::FieldNames(const std::string& table) const {
  return reader_->FieldNames(table);
}

VectorSource::Layer VectorSource::Read(const std::string& table, const std::string& id_field,
                                       const std::string& label_field, const std::string& to_crs) const {
  return reader_->Read(table, id_field, label_field, to_crs);
}

}  // namespace zrsimprp

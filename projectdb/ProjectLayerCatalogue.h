#pragma once

#include <memory>
#include <string>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/LayerCatalogue.h"

namespace zrsimprp {

class ProjectLayerCatalogue : public LayerCatalogue {
 public:
  explicit ProjectLayerCatalogue(std::shared_ptr<GeoPackageProject> project) : project_(std::move(project)) {}
  std::shared_ptr<Layer> LayerByName(const std::string& name) override;

 private:
  std::shared_ptr<GeoPackageProject> project_;
};

}  // namespace zrsimprp

#include "projectdb/ProjectLayerCatalogue.h"

#include "projectdb/ProjectLayer.h"
#include "projectdb/SourcedCall.h"

namespace zrsimprp {

std::shared_ptr<Layer> ProjectLayerCatalogue::LayerByName(const std::string& name) {
  return SourcedCall("LayerCatalogue",
                     [&]() -> std::shared_ptr<Layer> { return ProjectLayer::Load(project_, name); });
}

}  // namespace zrsimprp

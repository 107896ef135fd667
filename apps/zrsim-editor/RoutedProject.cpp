#include "zrsim-editor/RoutedProject.h"

#include <utility>

namespace zrsim_editor {

RoutedProject::RoutedProject(std::shared_ptr<zrsimprp::ProjectDatabase> project,
                             std::shared_ptr<zrsimprp::ProjectSettings> settings)
    : project_(std::move(project)), settings_(std::move(settings)) {}

std::optional<zrsimprp::LayerShapes> RoutedProject::LayerGeometry(const std::string& layer_name) {
  const auto geometry = std::dynamic_pointer_cast<zrsimprp::LayerGeometrySource>(project_);
  if (geometry == nullptr) return std::nullopt;
  return geometry->LayerGeometry(layer_name);
}

}  // namespace zrsim_editor

#include "zrsim-editor/RoutedProject.h"

#include <utility>

namespace zrsim_editor {

RoutedProject::RoutedProject(std::shared_ptr<zrsimprp::ProjectDatabase> project,
                             std::shared_ptr<zrsimprp::ProjectSettings> settings)
    : ForwardingProjectDatabase(std::move(project)), settings_(std::move(settings)) {}

}  // namespace zrsim_editor

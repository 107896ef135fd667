#pragma once

#include <memory>

#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/host/ProjectDatabase.h"

namespace zrsim_editor {

// The project as the editor hands it to the control: the project itself, except that its settings
// are routed (see SettingsRouter). Everything else is passed through unchanged.
// It passes the project's layer geometry through as well, so that the pages' maps see what the
// project can draw.
class RoutedProject : public zrsimprp::ProjectDatabase, public zrsimprp::LayerGeometrySource {
 public:
  RoutedProject(std::shared_ptr<zrsimprp::ProjectDatabase> project,
                std::shared_ptr<zrsimprp::ProjectSettings> settings);

  std::shared_ptr<zrsimprp::ProjectSettings> Settings() override { return settings_; }
  std::shared_ptr<zrsimprp::LayerCatalogue> Companion() override { return project_->Companion(); }
  std::shared_ptr<zrsimprp::EngineDefaults> EngineDefaults() override { return project_->EngineDefaults(); }
  std::vector<std::shared_ptr<zrsimprp::RecordGroup<zrsimprp::DesignRecord>>> DesignGroups() override {
    return project_->DesignGroups();
  }
  std::vector<std::shared_ptr<zrsimprp::RecordGroup<zrsimprp::SurveyRecord>>> SurveyGroups() override {
    return project_->SurveyGroups();
  }
  std::vector<std::shared_ptr<zrsimprp::DataFilter>> DataFilters() override {
    return project_->DataFilters();
  }
  std::vector<std::shared_ptr<zrsimprp::ModelDefinition>> ModelDefinitions() override {
    return project_->ModelDefinitions();
  }
  // No value when the project offers no geometry, exactly as for a layer it does not know.
  std::optional<zrsimprp::LayerShapes> LayerGeometry(const std::string& layer_name) override;

 private:
  std::shared_ptr<zrsimprp::ProjectDatabase> project_;
  std::shared_ptr<zrsimprp::ProjectSettings> settings_;
};

}  // namespace zrsim_editor

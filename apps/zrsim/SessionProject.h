#pragma once

#include <memory>

#include "zrsim/SessionSettings.h"
#include "zrsimprp/host/ProjectDatabase.h"

namespace zrsim {

// A project database handed to the command line's control: everything comes from the project,
// except that settings written by the control are kept in memory (SessionSettings).
class SessionProject : public zrsimprp::ProjectDatabase {
 public:
  explicit SessionProject(std::shared_ptr<zrsimprp::ProjectDatabase> project);

  std::shared_ptr<zrsimprp::ProjectSettings> Settings() override;
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

 private:
  std::shared_ptr<zrsimprp::ProjectDatabase> project_;
  std::shared_ptr<SessionSettings> settings_;
};

}  // namespace zrsim

#pragma once

#include <memory>
#include <vector>

#include "zrsimprp/host/DataFilter.h"
#include "zrsimprp/host/DesignRecord.h"
#include "zrsimprp/host/EngineDefaults.h"
#include "zrsimprp/host/LayerCatalogue.h"
#include "zrsimprp/host/ModelDefinition.h"
#include "zrsimprp/host/ProjectSettings.h"
#include "zrsimprp/host/RecordGroup.h"
#include "zrsimprp/host/SurveyRecord.h"

namespace zrsimprp {

// The host's open project, as the control sees it. A failing call throws RuntimeError with the
// interface's name as source.
class ProjectDatabase {
 public:
  virtual ~ProjectDatabase() = default;
  virtual std::shared_ptr<ProjectSettings> Settings() = 0;
  virtual std::shared_ptr<LayerCatalogue> Companion() = 0;
  virtual std::shared_ptr<zrsimprp::EngineDefaults> EngineDefaults() = 0;
  virtual std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> DesignGroups() = 0;
  virtual std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> SurveyGroups() = 0;
  virtual std::vector<std::shared_ptr<DataFilter>> DataFilters() = 0;
  virtual std::vector<std::shared_ptr<ModelDefinition>> ModelDefinitions() = 0;
};

}  // namespace zrsimprp

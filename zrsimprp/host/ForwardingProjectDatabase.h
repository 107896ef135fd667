#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zrsimprp/host/LayerFieldSource.h"
#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/host/ProjectDatabase.h"

namespace zrsimprp {

// A project database that hands out another project's records, layers, layer geometry and fields unchanged
// and leaves its settings to the subclass: hosts wrap their project this way to keep some settings
// elsewhere (per person, or only for one session) without copying every other member.
class ForwardingProjectDatabase : public ProjectDatabase,
                                  public LayerGeometrySource,
                                  public LayerFieldSource {
 public:
  explicit ForwardingProjectDatabase(std::shared_ptr<ProjectDatabase> project);

  std::shared_ptr<ProjectSettings> Settings() override = 0;
  std::shared_ptr<LayerCatalogue> Companion() override;
  std::shared_ptr<zrsimprp::EngineDefaults> EngineDefaults() override;
  std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> DesignGroups() override;
  std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> SurveyGroups() override;
  std::vector<std::shared_ptr<DataFilter>> DataFilters() override;
  std::vector<std::shared_ptr<ModelDefinition>> ModelDefinitions() override;
  // No value when the wrapped project offers no geometry, exactly as for a layer it does not know.
  std::optional<LayerShapes> LayerGeometry(const std::string& layer_name) override;
  // None when the wrapped project cannot list its fields.
  std::vector<std::string> NumericFields(const std::string& layer_name) override;

 protected:
  ProjectDatabase& Wrapped() { return *project_; }

 private:
  std::shared_ptr<ProjectDatabase> project_;
};

}  // namespace zrsimprp

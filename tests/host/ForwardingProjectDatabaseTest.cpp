#include <gtest/gtest.h>

#include <memory>

#include "zrsimprp/host/ForwardingProjectDatabase.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"

namespace zrsimprp {
namespace {

// Settings of its own, everything else from the wrapped project.
class OwnSettingsProject : public ForwardingProjectDatabase {
 public:
  OwnSettingsProject(std::shared_ptr<ProjectDatabase> project, std::shared_ptr<ProjectSettings> settings)
      : ForwardingProjectDatabase(std::move(project)), settings_(std::move(settings)) {}
  std::shared_ptr<ProjectSettings> Settings() override { return settings_; }

 private:
  std::shared_ptr<ProjectSettings> settings_;
};

std::shared_ptr<MemoryProjectDatabase> ProjectWithOneOfEach() {
  auto project = std::make_shared<MemoryProjectDatabase>();
  project->AddSurvey(11, "Lines", 1, 10);
  project->AddDesign(10, "Design", "");
  project->AddDataFilter(5, "Truncate");
  project->AddModelDefinition(6, "HN", "MRDS", "");
  MemoryProjectDatabase::LayerData blocks;
  blocks.name = "Blocks";
  blocks.kind = 1;
  blocks.ids = {Variant(int32_t{1})};
  project->AddLayer(blocks);
  return project;
}

TEST(ForwardingProjectDatabase, HandsOutTheWrappedRecordsButItsOwnSettings) {
  auto project = ProjectWithOneOfEach();
  const std::shared_ptr<ProjectSettings> own = std::make_shared<MemoryProjectDatabase>()->Settings();
  OwnSettingsProject wrapper(project, own);
  EXPECT_EQ(wrapper.Settings(), own);
  ASSERT_EQ(wrapper.SurveyGroups().size(), 1u);
  EXPECT_EQ(wrapper.SurveyGroups()[0]->Records()[0]->Name(), "Lines");
  EXPECT_EQ(wrapper.DesignGroups()[0]->Records()[0]->Name(), "Design");
  EXPECT_EQ(wrapper.DataFilters().size(), 1u);
  EXPECT_EQ(wrapper.ModelDefinitions()[0]->EngineName(), "MRDS");
  EXPECT_NE(wrapper.Companion()->LayerByName("Blocks"), nullptr);
}

// A host that wraps its project must not hide the project's polygons from the maps.
TEST(ForwardingProjectDatabase, PassesTheWrappedLayerGeometryThrough) {
  auto project = ProjectWithOneOfEach();
  project->SetLayerShapes("Blocks", {{MapPolygon{{{{0, 0}, {1, 0}, {1, 1}}}}}}, {"EPSG:32630", false});
  OwnSettingsProject wrapper(project, project->Settings());
  const std::optional<LayerShapes> shapes = wrapper.LayerGeometry("Blocks");
  ASSERT_TRUE(shapes.has_value());
  EXPECT_EQ(shapes->reference.name, "EPSG:32630");
  ASSERT_EQ(shapes->strata.size(), 1u);
  EXPECT_EQ(shapes->strata[0].polygons[0].rings[0].size(), 3u);
}

// A layer the wrapped project has no shapes for, or does not know: no value, as from the project.
TEST(ForwardingProjectDatabase, ALayerWithoutGeometryGivesNoValue) {
  OwnSettingsProject wrapper(ProjectWithOneOfEach(), nullptr);
  EXPECT_FALSE(wrapper.LayerGeometry("Blocks").has_value());
  EXPECT_FALSE(wrapper.LayerGeometry("No such layer").has_value());
}

}  // namespace
}  // namespace zrsimprp

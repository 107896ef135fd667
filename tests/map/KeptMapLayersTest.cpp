#include <gtest/gtest.h>

#include "MapTestLayers.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/map/KeptMapLayers.h"
#include "zrsimprp/pages/CPagDensity/CPagDensity.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"

namespace zrsimprp {
namespace {

class KeptMapLayersTest : public ::testing::Test {
 protected:
  KeptMapLayersTest() : density(platform), simulation(platform) {
    project->AddLayer([] {
      MemoryProjectDatabase::LayerData other = map_test::TwoStrataLayer();
      other.name = "Other";
      return other;
    }());
    project->SetLayerShapes("Other", map_test::TwoStrataShapes());
    simulation.cboRegionLayer.AddItem("Blocks");
    simulation.cboRegionLayer.AddItem("Other");
    simulation.cboRegionLayer.SetListIndex(0);
  }

  HeadlessPlatform platform;
  CPagDensity density;
  CPagSimulation simulation;
  std::shared_ptr<MemoryProjectDatabase> project = map_test::TwoStrataProject();
  KeptMapLayers kept;
};

TEST_F(KeptMapLayersTest, TheRegionIsReadOnceWhileNothingChanges) {
  kept.Follow(project, density, simulation);
  ASSERT_NE(kept.Layers(), nullptr);
  EXPECT_EQ(kept.Layers()->region_layer, "Blocks");
  EXPECT_NE(kept.Layers()->region, nullptr);
  EXPECT_EQ(kept.Database(), project);
  const auto first = kept.Layers();
  const int reads = project->Calls("LayerGeometry");
  kept.Follow(project, density, simulation);
  EXPECT_EQ(kept.Layers(), first);
  EXPECT_EQ(project->Calls("LayerGeometry"), reads);
}

TEST_F(KeptMapLayersTest, AnotherRegionOrProjectIsReadAgain) {
  kept.Follow(project, density, simulation);
  const int reads = project->Calls("LayerGeometry");
  simulation.cboRegionLayer.SetListIndex(1);
  kept.Follow(project, density, simulation);
  EXPECT_EQ(kept.Layers()->region_layer, "Other");
  EXPECT_EQ(project->Calls("LayerGeometry"), reads + 1);
  kept.Follow(nullptr, density, simulation);
  EXPECT_EQ(kept.Database(), nullptr);
  EXPECT_EQ(kept.Layers()->region, nullptr);
  EXPECT_FALSE(kept.Layers()->region_notice.empty());
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include "EditorFixture.h"
#include "zrsimprp/map/MapModel.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/map/DensityMapPanel.h"

namespace {

using EditorMapTest = EditorFixture;

// The editor wraps the project to route its settings; the wrapper must still hand the map the
// project's polygons, or the Density tab would say there is nothing to draw.
TEST_F(EditorMapTest, TheDensityMapDrawsTheSampleProjectsStrataThroughTheRoutedProject) {
  OpenWindow();
  window_->Properties().ShowOuterTab(1);
  auto* panel = window_->findChild<zrsimprp::DensityMapPanel*>();
  ASSERT_NE(panel, nullptr);
  panel->RedrawNow();
  ASSERT_NE(panel->Model(), nullptr);
  EXPECT_TRUE(panel->Model()->Drawable());
  EXPECT_FALSE(panel->Model()->strata->strata.empty());
}

}  // namespace

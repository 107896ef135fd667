#include <gtest/gtest.h>

#include <cmath>

#include "tests/map/MapTestLayers.h"
#include "zrsimprp/map/DensityMapBuilder.h"
#include "zrsimprp/map/ScaleBar.h"
#include "zrsimprp/map/ScaleTicks.h"
#include "zrsimprp/map/ViridisScale.h"

namespace zrsimprp {
namespace {

using map_test::LoadedLayers;
using map_test::TwoStrataProject;
using map_test::UniformInputs;

MapModel Build(const DensityMapInputs& inputs) {
  return DensityMapBuilder::Build(LoadedLayers(TwoStrataProject(), "Blocks"), inputs);
}

TEST(DensityMap, UniformGivesEachStratumItsTypedValue) {
  const MapModel model = Build(UniformInputs("2", "5"));
  ASSERT_TRUE(model.HasSurface()) << (model.notices.empty() ? "" : model.notices.front());
  EXPECT_TRUE(model.notices.empty());
  EXPECT_EQ(model.raster->Columns(), 20);
  EXPECT_EQ(model.raster->Rows(), 10);
  EXPECT_DOUBLE_EQ(model.ValueAt(0.5, 0.5), 2.0);
  EXPECT_DOUBLE_EQ(model.ValueAt(9.5, 9.5), 2.0);
  EXPECT_DOUBLE_EQ(model.ValueAt(10.5, 0.5), 5.0);
  EXPECT_DOUBLE_EQ(model.ValueAt(19.5, 9.5), 5.0);
  EXPECT_DOUBLE_EQ(model.value_min, 2.0);
  EXPECT_DOUBLE_EQ(model.value_max, 5.0);
  EXPECT_EQ(model.legend, "Relative density: each stratum's typed density.");
}

TEST(DensityMap, CellsInAHoleHaveNoValue) {
  const MapModel model = Build(UniformInputs("2", "5"));
  EXPECT_TRUE(std::isnan(model.ValueAt(4.5, 4.5)));
  EXPECT_TRUE(std::isnan(model.ValueAt(5.5, 5.5)));
  EXPECT_DOUBLE_EQ(model.ValueAt(3.5, 4.5), 2.0);
  EXPECT_DOUBLE_EQ(model.ValueAt(6.5, 5.5), 2.0);
  // 200 cells, 4 of them in the hole.
  size_t inside = 0;
  for (const float value : model.values) inside += std::isnan(value) ? 0 : 1;
  EXPECT_EQ(inside, 196u);
}

TEST(DensityMap, LinearFormulaIsEvaluatedAtCellCentres) {
  DensityMapInputs inputs = UniformInputs("", "");
  inputs.description = "Simple";
  inputs.formula = "= 1 + 2*x + 3*Y";
  const MapModel model = Build(inputs);
  ASSERT_TRUE(model.HasSurface()) << (model.notices.empty() ? "" : model.notices.front());
  EXPECT_DOUBLE_EQ(model.ValueAt(0.2, 0.7), 1 + 2 * 0.5 + 3 * 0.5);
  EXPECT_DOUBLE_EQ(model.ValueAt(12.1, 3.9), 1 + 2 * 12.5 + 3 * 3.5);
  EXPECT_DOUBLE_EQ(model.value_min, 3.5);
  EXPECT_DOUBLE_EQ(model.value_max, 1 + 2 * 19.5 + 3 * 9.5);
  EXPECT_EQ(model.legend, "Relative density: the formula at each grid cell's centre.");
}

TEST(DensityMap, HotspotAddsAGaussianBumpAtItsCentre) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"15", "5", "2", "4"}};
  const MapModel model = Build(inputs);
  ASSERT_TRUE(model.HasSurface());
  ASSERT_EQ(model.hotspots.size(), 1u);
  EXPECT_TRUE(model.hotspots[0].inside);
  EXPECT_DOUBLE_EQ(model.hotspots[0].sigma, 2.0);
  // Cell centre (15.5, 5.5): d² = 0.5, so 1 + 4·exp(−0.5 / 8) = 1 + 4 × 0.9394130628.
  EXPECT_NEAR(model.ValueAt(15.5, 5.5), 4.7576522512, 1e-5);
  // Four sigma and more away the bump is not added.
  EXPECT_DOUBLE_EQ(model.ValueAt(0.5, 0.5), 1.0);
  EXPECT_EQ(model.legend,
            "Relative density: each stratum's typed density, plus each hotspot as a Gaussian bump: "
            "amplitude × exp(−d² / 2σ²); circles mark one sigma.");
}

TEST(DensityMap, HotspotOutsideEveryStratumIsNamed) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"5", "5", "1", "2"}, {"50", "5", "1", "2"}};
  const MapModel model = Build(inputs);
  ASSERT_EQ(model.hotspots.size(), 2u);
  EXPECT_FALSE(model.hotspots[0].inside);  // in West's hole
  EXPECT_FALSE(model.hotspots[1].inside);
  ASSERT_EQ(model.notices.size(), 2u);
  EXPECT_EQ(model.notices[0], "Hotspot 1 (Centre X 5, Centre Y 5) lies outside every stratum.");
  EXPECT_EQ(model.notices[1], "Hotspot 2 (Centre X 50, Centre Y 5) lies outside every stratum.");
  EXPECT_TRUE(model.HasSurface());
}

TEST(DensityMap, StrataOutlinesAndLabelsFollowTheLayer) {
  const MapModel model = Build(UniformInputs("1", "1"));
  ASSERT_EQ(model.labels.size(), 2u);
  EXPECT_EQ(model.labels[0].text, "West");
  EXPECT_DOUBLE_EQ(model.labels[1].at.x, 15.0);
  EXPECT_DOUBLE_EQ(model.labels[1].at.y, 5.0);
  EXPECT_DOUBLE_EQ(model.extent.max_x, 20.0);
  EXPECT_EQ(model.StratumAtPoint(5, 5), -1);
  EXPECT_EQ(model.StratumAtPoint(3, 5), 0);
  EXPECT_EQ(model.StratumAtPoint(13, 5), 1);
  EXPECT_FALSE(model.geographic);
}

TEST(DensityMap, StatusLineGivesPositionStratumAndValue) {
  const MapModel model = Build(UniformInputs("2", "5"));
  EXPECT_EQ(model.Describe(12.25, 3.5), "x 12.25   y 3.5000   stratum East   relative density 5");
  EXPECT_EQ(model.Describe(30, 3), "x 30.00   y 3.0000   outside the strata");
}

TEST(DensityMap, DensityEditReusesTheGridAndSpacingEditRebuildsIt) {
  const MapLayers layers = LoadedLayers(TwoStrataProject(), "Blocks");
  const MapModel first = DensityMapBuilder::Build(layers, UniformInputs("2", "5"));
  const MapModel edited = DensityMapBuilder::Build(layers, UniformInputs("3", "5"), &first);
  EXPECT_EQ(edited.raster, first.raster);
  EXPECT_DOUBLE_EQ(edited.ValueAt(0.5, 0.5), 3.0);
  const MapModel respaced = DensityMapBuilder::Build(layers, UniformInputs("3", "5", "2"), &edited);
  EXPECT_NE(respaced.raster, first.raster);
  EXPECT_EQ(respaced.raster->Columns(), 10);
}

TEST(DensityMap, MultipolygonPartsAreBothFilled) {
  auto project = TwoStrataProject();
  project->SetLayerShapes(
      "Blocks", {{MapPolygon{{map_test::Box(0, 0, 4, 10)}}, MapPolygon{{map_test::Box(6, 0, 10, 10)}}},
                 {MapPolygon{{map_test::Box(10, 0, 20, 10)}}}});
  const MapModel model = DensityMapBuilder::Build(LoadedLayers(project, "Blocks"), UniformInputs("2", "5"));
  EXPECT_DOUBLE_EQ(model.ValueAt(1.5, 1.5), 2.0);
  EXPECT_DOUBLE_EQ(model.ValueAt(7.5, 1.5), 2.0);
  EXPECT_TRUE(std::isnan(model.ValueAt(5.5, 1.5)));
}

TEST(DensityMap, DsmTakesTheFieldValueOfEachPolygon) {
  auto project = TwoStrataProject();
  project->AddLayerField("Blocks", "Abundance", {Variant(1.5), Variant(std::string("7"))});
  MapLayers layers = LoadedLayers(project, "Blocks");
  MapLayers::LoadDsm(layers, project, "Blocks", "Abundance");
  DensityMapInputs inputs = UniformInputs("", "");
  inputs.description = "DSM";
  const MapModel model = DensityMapBuilder::Build(layers, inputs);
  ASSERT_TRUE(model.HasSurface()) << (model.notices.empty() ? "" : model.notices.front());
  EXPECT_DOUBLE_EQ(model.ValueAt(0.5, 0.5), 1.5);
  EXPECT_DOUBLE_EQ(model.ValueAt(10.5, 0.5), 7.0);
  EXPECT_EQ(model.legend, "Relative density: the DSM field 'Abundance' of each polygon.");
}

TEST(DensityMap, StrataOnlyMapColoursByStratumWithoutSurface) {
  const MapModel model = DensityMapBuilder::StrataOnly(LoadedLayers(TwoStrataProject(), "Blocks"));
  EXPECT_TRUE(model.Drawable());
  EXPECT_TRUE(model.colour_by_stratum);
  EXPECT_FALSE(model.HasSurface());
}

TEST(DensityMap, GeographicCoordinatesAreDrawnButFlagged) {
  auto project = TwoStrataProject();
  project->SetLayerShapes("Blocks", map_test::TwoStrataShapes(), {"EPSG:4326", true});
  const MapModel model = DensityMapBuilder::Build(LoadedLayers(project, "Blocks"), UniformInputs("1", "2"));
  EXPECT_TRUE(model.HasSurface());
  EXPECT_TRUE(model.geographic);
  ASSERT_EQ(model.notices.size(), 1u);
  EXPECT_EQ(model.notices[0],
            "The layer's coordinates are degrees of longitude and latitude (EPSG:4326): the map is drawn "
            "unprojected and the grid spacing is read in degrees.");
}

TEST(MapScale, ScaleBarIsTheLongestRoundLengthThatFits) {
  EXPECT_DOUBLE_EQ(ScaleBar::Choose(10, 120, false).length, 1000);
  EXPECT_EQ(ScaleBar::Choose(10, 120, false).label, "1000 map units");
  EXPECT_DOUBLE_EQ(ScaleBar::Choose(10, 260, false).length, 2000);
  EXPECT_DOUBLE_EQ(ScaleBar::Choose(0.001, 90, true).length, 0.05);
  EXPECT_EQ(ScaleBar::Choose(0.001, 90, true).label, "0.05°");
  EXPECT_DOUBLE_EQ(ScaleBar::Choose(0, 100, false).length, 0);
}

TEST(MapScale, ColourScaleTicksAreRoundValuesWithinTheRange) {
  EXPECT_EQ(ScaleTicks::Between(1.5, 6.079, 4), (std::vector<double>{2, 4, 6}));
  EXPECT_EQ(ScaleTicks::Between(1.5, 6.079, 6), (std::vector<double>{2, 3, 4, 5, 6}));
  EXPECT_EQ(ScaleTicks::Between(0, 1, 4), (std::vector<double>{0, 0.5, 1}));
  EXPECT_EQ(ScaleTicks::Between(-120, 80, 4), (std::vector<double>{-100, -50, 0, 50}));
  EXPECT_EQ(ScaleTicks::Between(3, 3, 4), (std::vector<double>{3}));
}

TEST(MapScale, ViridisRunsFromVioletToYellow) {
  const ViridisScale::Rgb low = ViridisScale::At(0);
  const ViridisScale::Rgb high = ViridisScale::At(1);
  EXPECT_NEAR(low.r, 0x44, 3);
  EXPECT_NEAR(low.g, 0x01, 3);
  EXPECT_NEAR(low.b, 0x54, 3);
  EXPECT_NEAR(high.r, 0xfd, 3);
  EXPECT_NEAR(high.g, 0xe7, 3);
  EXPECT_NEAR(high.b, 0x25, 5);
  const ViridisScale::Rgb middle = ViridisScale::At(0.5);  // #21918c
  EXPECT_NEAR(middle.r, 0x21, 4);
  EXPECT_NEAR(middle.g, 0x91, 4);
  EXPECT_NEAR(middle.b, 0x8c, 4);
}

}  // namespace
}  // namespace zrsimprp

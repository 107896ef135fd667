#include <gtest/gtest.h>

#include <cmath>

#include "tests/map/MapTestLayers.h"
#include "zrsimprp/map/DensityMapBuilder.h"

namespace zrsimprp {
namespace {

using map_test::LoadedLayers;
using map_test::TwoStrataProject;
using map_test::UniformInputs;

MapModel Build(const DensityMapInputs& inputs) {
  return DensityMapBuilder::Build(LoadedLayers(TwoStrataProject(), "Blocks"), inputs);
}

// The model's one sentence, or what went wrong.
std::string OnlyNotice(const MapModel& model) {
  if (model.notices.size() != 1) return "expected one notice, got " + std::to_string(model.notices.size());
  return model.notices.front();
}

DensityMapInputs Formula(const std::string& formula) {
  DensityMapInputs inputs = UniformInputs("", "");
  inputs.description = "Simple";
  inputs.formula = formula;
  return inputs;
}

// A project whose database does not offer the geometry interface.
class NoGeometryProject : public ProjectDatabase {
 public:
  std::shared_ptr<ProjectSettings> Settings() override { return nullptr; }
  std::shared_ptr<LayerCatalogue> Companion() override { return nullptr; }
  std::shared_ptr<zrsimprp::EngineDefaults> EngineDefaults() override { return nullptr; }
  std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> DesignGroups() override { return {}; }
  std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> SurveyGroups() override { return {}; }
  std::vector<std::shared_ptr<DataFilter>> DataFilters() override { return {}; }
  std::vector<std::shared_ptr<ModelDefinition>> ModelDefinitions() override { return {}; }
};

TEST(DensityMapNotices, HostWithoutGeometrySaysThereIsNothingToDraw) {
  const MapModel model = DensityMapBuilder::Build(
      LoadedLayers(std::make_shared<NoGeometryProject>(), "Blocks"), UniformInputs("1", "1"));
  EXPECT_FALSE(model.Drawable());
  EXPECT_EQ(OnlyNotice(model), "This project offers no map geometry, so there is nothing to draw.");
}

TEST(DensityMapNotices, NoRegionLayerSaysThereIsNothingToDraw) {
  EXPECT_EQ(
      OnlyNotice(DensityMapBuilder::Build(LoadedLayers(TwoStrataProject(), "None"), UniformInputs("1", "1"))),
      "No region / strata layer is chosen, so there is nothing to draw.");
  EXPECT_EQ(
      OnlyNotice(DensityMapBuilder::Build(LoadedLayers(TwoStrataProject(), ""), UniformInputs("1", "1"))),
      "No region / strata layer is chosen, so there is nothing to draw.");
}

TEST(DensityMapNotices, LayerWithoutShapesNamesTheLayer) {
  auto project = TwoStrataProject();
  MemoryProjectDatabase::LayerData bare = map_test::TwoStrataLayer();
  bare.name = "Bare";
  project->AddLayer(bare);
  EXPECT_EQ(OnlyNotice(DensityMapBuilder::Build(LoadedLayers(project, "Bare"), UniformInputs("1", "1"))),
            "The region / strata layer 'Bare' has no geometry in this project, so there is nothing to draw.");
}

TEST(DensityMapNotices, FailingHostReadIsASentenceNotAnError) {
  auto project = TwoStrataProject();
  project->FailOn("LayerGeometry");
  EXPECT_EQ(
      OnlyNotice(DensityMapBuilder::Build(LoadedLayers(project, "Blocks"), UniformInputs("1", "1"))),
      "The region / strata layer 'Blocks' could not be read: LayerGeometry failed (injected by the test)");
}

TEST(DensityMapNotices, BlankGridSpacing) {
  const MapModel model = Build(UniformInputs("1", "1", " "));
  EXPECT_TRUE(model.Drawable());
  EXPECT_FALSE(model.HasSurface());
  EXPECT_EQ(OnlyNotice(model), "The grid spacing is blank, so the surface cannot be drawn.");
}

TEST(DensityMapNotices, NonNumericGridSpacing) {
  EXPECT_EQ(OnlyNotice(Build(UniformInputs("1", "1", "1.2.3"))),
            "The grid spacing '1.2.3' is not a number, so the surface cannot be drawn.");
}

TEST(DensityMapNotices, ZeroGridSpacing) {
  EXPECT_EQ(OnlyNotice(Build(UniformInputs("1", "1", "0"))),
            "The grid spacing must be greater than 0 for the surface to be drawn.");
  EXPECT_EQ(OnlyNotice(Build(UniformInputs("1", "1", "-5"))),
            "The grid spacing must be greater than 0 for the surface to be drawn.");
}

TEST(DensityMapNotices, GridSpacingTooSmallForTheCellCap) {
  // 20 by 10 map units at 0.001: 20,000 × 10,000 cells.
  EXPECT_EQ(
      OnlyNotice(Build(UniformInputs("1", "1", "0.001"))),
      "The grid spacing 0.001 would need 2e+08 cells, more than the 4e+06 the map draws, so the surface "
      "is not drawn; a larger grid spacing draws it.");
  EXPECT_TRUE(Build(UniformInputs("1", "1", "0.01")).HasSurface());  // 2 million cells
}

TEST(DensityMapNotices, OutlinesTooDetailedForTheSpacing) {
  // A comb of 20,000 teeth 0.02 wide and 1,000 high: 400 x 1,000 cells at spacing 1, but 40,000
  // edges that each cross all 1,000 rows.
  auto project = TwoStrataProject();
  std::vector<MapPoint> comb;
  for (int tooth = 0; tooth < 20000; ++tooth) {
    comb.push_back({tooth * 0.02, 0});
    comb.push_back({tooth * 0.02 + 0.01, 1000});
  }
  comb.push_back({400, 0});
  project->SetLayerShapes("Blocks", {{MapPolygon{{comb}}}, {MapPolygon{{map_test::Box(399, 0, 400, 1)}}}});
  const MapModel model =
      DensityMapBuilder::Build(LoadedLayers(project, "Blocks"), UniformInputs("1", "2", "1"));
  EXPECT_FALSE(model.HasSurface());
  EXPECT_EQ(OnlyNotice(model),
            "The outlines of the layer 'Blocks' cross the rows of grid spacing 1 4e+07 times, more than the "
            "1.6e+07 the map follows, so the surface is not drawn; a larger grid spacing draws it.");
  EXPECT_TRUE(
      DensityMapBuilder::Build(LoadedLayers(project, "Blocks"), UniformInputs("1", "2", "4")).HasSurface());
}

TEST(DensityMapNotices, NonNumericDensityNamesTheStratum) {
  const MapModel model = Build(UniformInputs("2", "lots"));
  EXPECT_FALSE(model.HasSurface());
  EXPECT_TRUE(model.Drawable());
  EXPECT_EQ(OnlyNotice(model),
            "The density of stratum 'East' ('lots') is not a number, so the surface cannot be drawn.");
}

TEST(DensityMapNotices, DensityTooLargeToDrawNamesTheStratum) {
  EXPECT_EQ(OnlyNotice(Build(UniformInputs("1e300", "1"))),
            "The density of stratum 'West' ('1e300') is too large to draw, so the surface cannot be drawn.");
}

TEST(DensityMapNotices, HotspotsThatOverflowTheSurface) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"15", "5", "2", "3e38"}, {"15", "5", "2", "3e38"}};
  EXPECT_EQ(OnlyNotice(Build(inputs)), "The surface reaches values too large to draw, so it is not drawn.");
}

TEST(DensityMapNotices, HotspotFarAwayAddsNothingAndIsNamed) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"1e300", "-1e300", "1e200", "4"}};
  const MapModel model = Build(inputs);
  EXPECT_TRUE(model.HasSurface());
  EXPECT_DOUBLE_EQ(model.value_max, 1.0);
  EXPECT_EQ(OnlyNotice(model), "Hotspot 1 (Centre X 1e+300, Centre Y -1e+300) lies outside every stratum.");
}

TEST(DensityMapNotices, LayerWithNonFiniteCoordinatesNamesTheLayer) {
  auto project = TwoStrataProject();
  project->SetLayerShapes("Blocks", {{MapPolygon{{{{0, 0}, {1, 0}, {std::nan(""), 1}}}}}});
  EXPECT_EQ(
      OnlyNotice(DensityMapBuilder::Build(LoadedLayers(project, "Blocks"), UniformInputs("1", "1"))),
      "The region / strata layer 'Blocks' has a point whose coordinates are not finite numbers, so there "
      "is nothing to draw.");
}

TEST(DensityMapNotices, BlankDensityNamesTheStratum) {
  EXPECT_EQ(OnlyNotice(Build(UniformInputs("", "1"))),
            "The density of stratum 'West' is blank, so the surface cannot be drawn.");
}

TEST(DensityMapNotices, DensityTableOfAnotherLayer) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.densities.push_back("3");
  EXPECT_EQ(OnlyNotice(Build(inputs)),
            "The density table has 3 strata but the layer 'Blocks' has 2, so the surface cannot be drawn.");
}

TEST(DensityMapNotices, FormulaThatDoesNotParse) {
  const MapModel model = Build(Formula("= 2 * + (x"));
  EXPECT_FALSE(model.HasSurface());
  ASSERT_EQ(model.notices.size(), 1u);
  EXPECT_EQ(model.notices[0].rfind("The formula '2 * + (x' cannot be evaluated (", 0), 0u)
      << model.notices[0];
  EXPECT_NE(model.notices[0].find("), so the surface is not drawn."), std::string::npos);
}

TEST(DensityMapNotices, FormulaWithUnknownNameIsNamed) {
  const MapModel model = Build(Formula("= 2*z"));
  ASSERT_EQ(model.notices.size(), 1u);
  EXPECT_NE(model.notices[0].find("z"), std::string::npos) << model.notices[0];
}

TEST(DensityMapNotices, EmptyFormula) {
  EXPECT_EQ(OnlyNotice(Build(Formula(" = "))),
            "The formula is empty: type one, such as = -100 + x*1.02 + y*1.15, to see the surface.");
  EXPECT_EQ(OnlyNotice(Build(Formula(""))),
            "The formula is empty: type one, such as = -100 + x*1.02 + y*1.15, to see the surface.");
}

TEST(DensityMapNotices, FormulaWithoutFiniteValue) {
  EXPECT_EQ(OnlyNotice(Build(Formula("= 1/(x-x)"))),
            "The formula has no finite value at x 0.5000, y 0.5000, so the surface is not drawn.");
}

TEST(DensityMapNotices, FormulaWithoutEqualsSignIsStillDrawn) {
  EXPECT_TRUE(Build(Formula("x + y")).HasSurface());
}

TEST(DensityMapNotices, HotspotWithNonNumericCellNamesItsColumn) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"15", "north", "2", "4"}};
  const MapModel model = Build(inputs);
  EXPECT_TRUE(model.HasSurface());
  EXPECT_TRUE(model.hotspots.empty());
  EXPECT_EQ(OnlyNotice(model),
            "Hotspot 1: the Centre Y 'north' is not a number, so the hotspot is not drawn.");
}

TEST(DensityMapNotices, HotspotWithBlankCell) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"15", "5", "2", "4"}, {"15", "5", "2", ""}};
  EXPECT_EQ(OnlyNotice(Build(inputs)), "Hotspot 2: the Amplitude is blank, so the hotspot is not drawn.");
}

TEST(DensityMapNotices, HotspotWithSigmaZero) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"15", "5", "0", "4"}};
  EXPECT_EQ(OnlyNotice(Build(inputs)),
            "Hotspot 1: the Sigma must be greater than 0, so the hotspot is not drawn.");
}

TEST(DensityMapNotices, NumbersBeyondADoubleAreNotNumbers) {
  EXPECT_EQ(OnlyNotice(Build(UniformInputs("1", "1", "1e999"))),
            "The grid spacing '1e999' is not a number, so the surface cannot be drawn.");
  EXPECT_EQ(OnlyNotice(Build(UniformInputs("1", "-1e999"))),
            "The density of stratum 'East' ('-1e999') is not a number, so the surface cannot be drawn.");
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"1e999", "5", "2", "4"}};
  EXPECT_EQ(OnlyNotice(Build(inputs)),
            "Hotspot 1: the Centre X '1e999' is not a number, so the hotspot is not drawn.");
}

TEST(DensityMapNotices, HotspotValueThatIsNotANumberComesBeforeItsSigma) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.hotspots = {{"15", "5", "0", "lots"}};
  EXPECT_EQ(OnlyNotice(Build(inputs)),
            "Hotspot 1: the Amplitude 'lots' is not a number, so the hotspot is not drawn.");
}

TEST(DensityMapNotices, NegativeDensityAndAmplitudeAreDrawnWithoutASentence) {
  DensityMapInputs inputs = UniformInputs("-2", "5");
  inputs.hotspots = {{"15", "5", "2", "-1"}};
  const MapModel model = Build(inputs);
  EXPECT_TRUE(model.HasSurface());
  EXPECT_TRUE(model.notices.empty());
  ASSERT_EQ(model.hotspots.size(), 1u);
  EXPECT_EQ(model.hotspots[0].amplitude, -1.0);
  EXPECT_LE(model.value_min, -2.0);  // the negative density, and the dip's tail reaching into it
  EXPECT_LT(model.value_max, 5.0);   // the dip, not a bump
}

TEST(DensityMapNotices, NoDensityOption) {
  DensityMapInputs inputs = UniformInputs("1", "1");
  inputs.description = "";
  EXPECT_EQ(OnlyNotice(Build(inputs)), "No density option is chosen, so the surface cannot be drawn.");
}

TEST(DensityMapNotices, DsmWithoutLayerOrField) {
  DensityMapInputs inputs = UniformInputs("", "");
  inputs.description = "DSM";
  auto project = TwoStrataProject();
  MapLayers layers = LoadedLayers(project, "Blocks");
  MapLayers::LoadDsm(layers, project, "", "");
  EXPECT_EQ(OnlyNotice(DensityMapBuilder::Build(layers, inputs)),
            "No DSM layer is chosen, so the surface cannot be drawn.");
  MapLayers::LoadDsm(layers, project, "Blocks", "");
  EXPECT_EQ(OnlyNotice(DensityMapBuilder::Build(layers, inputs)),
            "No DSM field is chosen, so the surface cannot be drawn.");
  MapLayers::LoadDsm(layers, project, "Blocks", "Abundance");
  EXPECT_EQ(
      OnlyNotice(DensityMapBuilder::Build(layers, inputs)),
      "The DSM field 'Abundance' of the layer 'Blocks' could not be read: The layer 'Blocks' has no field "
      "'Abundance'");
}

TEST(DensityMapNotices, DsmLayerWithoutGeometryKeepsTheStrata) {
  DensityMapInputs inputs = UniformInputs("", "");
  inputs.description = "DSM";
  auto project = TwoStrataProject();
  MapLayers layers = LoadedLayers(project, "Blocks");
  MapLayers::LoadDsm(layers, project, "Layer", "Field");
  const MapModel model = DensityMapBuilder::Build(layers, inputs);
  EXPECT_TRUE(model.Drawable());
  EXPECT_FALSE(model.HasSurface());
  EXPECT_EQ(OnlyNotice(model),
            "The DSM layer 'Layer' has no geometry in this project, so the surface cannot be drawn.");
}

TEST(DensityMapNotices, DsmValueThatIsNotANumberNamesTheRecord) {
  auto project = TwoStrataProject();
  project->AddLayerField("Blocks", "Abundance", {Variant(1.5), Variant(std::string("many"))});
  MapLayers layers = LoadedLayers(project, "Blocks");
  MapLayers::LoadDsm(layers, project, "Blocks", "Abundance");
  DensityMapInputs inputs = UniformInputs("", "");
  inputs.description = "DSM";
  EXPECT_EQ(
      OnlyNotice(DensityMapBuilder::Build(layers, inputs)),
      "The DSM field 'Abundance' holds 'many' for the record 2, not a number it can draw, so the surface "
      "cannot be drawn.");
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QStyleFactory>
#include <QTest>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "tests/mapview/MapViewFixture.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/map/MapModel.h"
#include "zrsimprp/map/ViridisScale.h"
#include "zrsimprp/qt/DarkPalette.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/map/DensityMapPanel.h"
#include "zrsimprp/qt/map/MapCanvas.h"
#include "zrsimprp/qt/map/StrataMapPanel.h"

namespace zrsimprp {
namespace {

class MapPanelsTest : public map_view_test::TempProject {
 protected:
  // The properties widget on the sample simulation, as the editor opens it.
  void Open(std::shared_ptr<ProjectDatabase> database, const std::string& definition) {
    widget_ = std::make_unique<SIMPropertiesWidget>();
    widget_->resize(900, 640);
    widget_->SetProjectDatabase(std::move(database));
    widget_->SetDefinition(definition);
    widget_->Initialize();
    widget_->show();
    density_map_ = widget_->findChild<DensityMapPanel*>();
    strata_map_ = widget_->findChild<StrataMapPanel*>();
    ASSERT_NE(density_map_, nullptr);
    ASSERT_NE(strata_map_, nullptr);
  }
  void OpenSample() {
    project_ = GeoPackageProject::Open(Sample());
    Open(project_, project_->SimulationDefinition("Sample simulation"));
  }
  CPagDensity& Density() { return widget_->Control().pagDensity; }
  // Waits (up to a second) for the map to show the computation after the last edit.
  bool WaitForRedraw(int64_t after) {
    return QTest::qWaitFor([&]() { return density_map_->Redraws() > after; }, 1000);
  }
  bool AnyMessageBox() const {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (qobject_cast<QMessageBox*>(top) != nullptr && top->isVisible()) return true;
    }
    return false;
  }
  void TearDown() override {
    widget_.reset();
    project_.reset();
    map_view_test::TempProject::TearDown();
  }

  std::shared_ptr<GeoPackageProject> project_;
  std::unique_ptr<SIMPropertiesWidget> widget_;
  DensityMapPanel* density_map_ = nullptr;
  StrataMapPanel* strata_map_ = nullptr;
};

TEST_F(MapPanelsTest, DensityMapShowsTheSampleStrataAndSurface) {
  OpenSample();
  density_map_->RedrawNow();
  const auto& model = density_map_->Model();
  ASSERT_TRUE(model);
  EXPECT_TRUE(model->HasSurface());
  ASSERT_EQ(model->labels.size(), 3u);
  EXPECT_EQ(model->labels[1].text, "Central");
  EXPECT_EQ(model->hotspots.size(), 2u);
  EXPECT_DOUBLE_EQ(model->value_min, 1.5);
}

TEST_F(MapPanelsTest, StatusLineGivesThePointersPositionAndValue) {
  OpenSample();
  widget_->ShowOuterTab(1);
  density_map_->RedrawNow();
  auto* canvas = density_map_->findChild<MapCanvas*>();
  auto* status = density_map_->findChild<QLabel*>();
  ASSERT_TRUE(canvas && status);
  canvas->repaint();  // the painter learns where the map lies when it draws it
  QString said;
  QObject::connect(canvas, &MapCanvas::PointerDescribed, [&said](const QString& text) { said = text; });
  // Scan a row across the upper part of the canvas until the pointer is over the North stratum.
  for (int x = 5; x < canvas->width() && !said.contains(QStringLiteral("North")); x += 5) {
    QTest::mouseMove(canvas, QPoint(x, 20));
  }
  EXPECT_TRUE(said.contains(QStringLiteral("stratum North"))) << said.toStdString();
  EXPECT_TRUE(said.contains(QStringLiteral("relative density"))) << said.toStdString();
  EXPECT_EQ(status->text(), said);
}

TEST_F(MapPanelsTest, AnEditRedrawsAMomentLaterWithoutWaitingForTheMap) {
  OpenSample();
  density_map_->RedrawNow();
  const int64_t before = density_map_->Redraws();
  Density().flxConstantDensity.UserEditCell(1, 2, "9");
  // Typing returns at once: the map follows after a short pause.
  EXPECT_EQ(density_map_->Redraws(), before);
  ASSERT_TRUE(WaitForRedraw(before));
  EXPECT_DOUBLE_EQ(density_map_->Model()->ValueAt(100, 1000), 9.0);
}

TEST_F(MapPanelsTest, FormulaEditRedrawsTheSurface) {
  OpenSample();
  Density().SetDescription("Simple");
  const int64_t before = density_map_->Redraws();
  Density().txtFormula.UserType("= 1 + x/1000");
  ASSERT_TRUE(WaitForRedraw(before));
  EXPECT_NEAR(density_map_->Model()->ValueAt(2050, 1650), 1 + 2.05, 1e-5);
  EXPECT_EQ(
      density_map_->Model()->legend.rfind("Relative density: the formula at each grid cell's centre", 0), 0u);
}

TEST_F(MapPanelsTest, LargeGridIsComputedAwayAndTheNewestEditWins) {
  OpenSample();
  density_map_->RedrawNow();
  // 3,300 x 2,000 map units: spacing 2 gives 1.65 million cells, more than are computed inline.
  for (const char* spacing : {"5", "4", "3", "2"}) {
    Density().txtGridSpace.UserType(spacing);
    QTest::qWait(60);  // past the pause after an edit, so each starts a computation
  }
  ASSERT_TRUE(QTest::qWaitFor(
      [&]() {
        const auto& model = density_map_->Model();
        return model && model->raster && model->raster->Spacing() == 2.0;
      },
      5000));
  EXPECT_EQ(density_map_->Model()->raster->Columns(), 1650);
  EXPECT_TRUE(density_map_->Model()->HasSurface());
  // Nothing older arrives afterwards.
  QTest::qWait(300);
  EXPECT_EQ(density_map_->Model()->raster->Spacing(), 2.0);
}

TEST_F(MapPanelsTest, UnusableValueIsASentenceOnTheMapNotAMessageBox) {
  OpenSample();
  const int64_t before = density_map_->Redraws();
  Density().txtGridSpace.UserType("0");
  ASSERT_TRUE(WaitForRedraw(before));
  const auto& model = density_map_->Model();
  EXPECT_FALSE(model->HasSurface());
  EXPECT_TRUE(model->Drawable());
  ASSERT_FALSE(model->notices.empty());
  EXPECT_EQ(model->notices.back(), "The grid spacing must be greater than 0 for the surface to be drawn.");
  EXPECT_FALSE(AnyMessageBox());
}

TEST_F(MapPanelsTest, GridSpacingBeyondADoubleIsASentenceOnTheMap) {
  OpenSample();
  const int64_t before = density_map_->Redraws();
  Density().txtGridSpace.UserType("1e999");
  ASSERT_TRUE(WaitForRedraw(before));
  const auto& model = density_map_->Model();
  EXPECT_FALSE(model->HasSurface());
  ASSERT_FALSE(model->notices.empty());
  EXPECT_EQ(model->notices.back(),
            "The grid spacing '1e999' is not a number, so the surface cannot be drawn.");
  EXPECT_FALSE(AnyMessageBox());
}

// A host that offers the project interfaces but not the geometry one.
class ProjectWithoutGeometry : public ProjectDatabase {
 public:
  explicit ProjectWithoutGeometry(std::shared_ptr<ProjectDatabase> project) : project_(std::move(project)) {}
  std::shared_ptr<ProjectSettings> Settings() override { return project_->Settings(); }
  std::shared_ptr<LayerCatalogue> Companion() override { return project_->Companion(); }
  std::shared_ptr<zrsimprp::EngineDefaults> EngineDefaults() override { return project_->EngineDefaults(); }
  std::vector<std::shared_ptr<RecordGroup<DesignRecord>>> DesignGroups() override {
    return project_->DesignGroups();
  }
  std::vector<std::shared_ptr<RecordGroup<SurveyRecord>>> SurveyGroups() override {
    return project_->SurveyGroups();
  }
  std::vector<std::shared_ptr<DataFilter>> DataFilters() override { return project_->DataFilters(); }
  std::vector<std::shared_ptr<ModelDefinition>> ModelDefinitions() override {
    return project_->ModelDefinitions();
  }

 private:
  std::shared_ptr<ProjectDatabase> project_;
};

TEST_F(MapPanelsTest, HostWithoutGeometryGetsThePagesAndAnEmptyMap) {
  auto project = GeoPackageProject::Open(Sample());
  Open(std::make_shared<ProjectWithoutGeometry>(project), project->SimulationDefinition("Sample simulation"));
  density_map_->RedrawNow();
  strata_map_->RedrawNow();
  EXPECT_EQ(Density().Densities(), "2.5,1.5,3");
  ASSERT_TRUE(density_map_->Model());
  EXPECT_FALSE(density_map_->Model()->Drawable());
  EXPECT_EQ(density_map_->Model()->notices,
            std::vector<std::string>{"This project offers no map geometry, so there is nothing to draw."});
  EXPECT_FALSE(strata_map_->Model()->Drawable());
}

TEST_F(MapPanelsTest, SimulationPageShowsTheChosenLayerByStratum) {
  OpenSample();
  strata_map_->RedrawNow();
  const auto& model = strata_map_->Model();
  ASSERT_TRUE(model);
  EXPECT_TRUE(model->colour_by_stratum);
  EXPECT_EQ(model->layer_name, "Strata");
  EXPECT_EQ(model->labels.size(), 3u);
}

// Both pages with their maps, in the light palette and a dark one, for a person to look at.
// Densities typed as 0.5, 1 and 3 get three clearly different colours: the scale spreads the typed
// values evenly instead of leaving 0.5 and 1 in the dark sixth of a 0.5 to 3 range.
TEST_F(MapPanelsTest, HalfAndOneGetClearlyDifferentColoursBesideAThree) {
  project_ = GeoPackageProject::Open(Sample());
  std::string definition;
  std::istringstream lines(project_->SimulationDefinition("Sample simulation"));
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("Hotspot", 0) == 0) continue;
    const size_t densities = line.find("2.5,1.5,3");
    if (densities != std::string::npos) line.replace(densities, 9, "0.5,1,3");
    definition += line + "\n";
  }
  Open(project_, definition);
  widget_->ShowOuterTab(1);
  density_map_->RedrawNow();
  QApplication::processEvents();
  ASSERT_TRUE(density_map_->Model());
  EXPECT_EQ(density_map_->Model()->colour_stops.Values(), (std::vector<double>{0.5, 1, 3}));
  const QImage shot = density_map_->grab().toImage().convertToFormat(QImage::Format_RGB32);
  const auto pixels_of = [&shot](double t) {
    // The surface is drawn through a table of 256 colours.
    const ViridisScale::Rgb rgb = ViridisScale::At(static_cast<int>(t * 255.0 + 0.5) / 255.0);
    const QRgb wanted = qRgb(rgb.r, rgb.g, rgb.b);
    int count = 0;
    for (int y = 0; y < shot.height(); ++y) {
      const auto* line = reinterpret_cast<const QRgb*>(shot.constScanLine(y));
      for (int x = 0; x < shot.width(); ++x) count += (line[x] & 0xffffff) == (wanted & 0xffffff) ? 1 : 0;
    }
    return count;
  };
  // Each stratum is drawn in its own colour: the lowest, the middle and the highest of the scale.
  EXPECT_GT(pixels_of(0.0), 500);
  EXPECT_GT(pixels_of(0.5), 500);
  EXPECT_GT(pixels_of(1.0), 500);
  const ViridisScale::Rgb half = ViridisScale::At(density_map_->Model()->colour_stops.Position(0.5));
  const ViridisScale::Rgb one = ViridisScale::At(density_map_->Model()->colour_stops.Position(1));
  const int apart = std::abs(half.r - one.r) + std::abs(half.g - one.g) + std::abs(half.b - one.b);
  EXPECT_GT(apart, 150);
}

TEST_F(MapPanelsTest, ScreenshotsOfBothPagesLightAndDark) {
  const std::filesystem::path folder = std::filesystem::path(ZRSIMPRP_BINARY_DIR) / "map-screenshots";
  std::filesystem::create_directories(folder);
  const QPalette light = QApplication::palette();
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  const QPalette dark = DarkPalette::Make();
  for (const auto& [name, palette] : {std::pair<const char*, QPalette>{"light", light}, {"dark", dark}}) {
    QApplication::setPalette(palette);
    OpenSample();
    for (const auto& [tab, file] : {std::pair<int, const char*>{0, "simulation"}, {1, "density"}}) {
      widget_->ShowOuterTab(tab);
      density_map_->RedrawNow();
      strata_map_->RedrawNow();
      QApplication::processEvents();
      const QImage shot = widget_->grab().toImage();
      const std::string path = (folder / (std::string(name) + "-" + file + ".png")).string();
      ASSERT_TRUE(shot.save(QString::fromStdString(path))) << path;
    }
    const QImage density =
        QImage(QString::fromStdString((folder / (std::string(name) + "-density.png")).string()));
    // The map's own background follows the palette.
    const QColor corner = density.pixelColor(density.width() - 30, 60);
    EXPECT_EQ(corner.lightness() < 100, std::string(name) == "dark") << name;
    widget_.reset();
  }
  QApplication::setPalette(light);
}

}  // namespace
}  // namespace zrsimprp

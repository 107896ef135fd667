// Painting the density map: turning a model into what the view draws (paths and the surface image)
// and drawing it into an 800 x 600 picture, for the sample-sized map and for 5,000 strata, and a
// person panning and zooming the map of 5,000 strata (each step repaints the map once, the strata
// drawn again at the new scale or place).
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "bench/MapBenchLayers.h"
#include "bench/QtBench.h"
#include "zrsimprp/map/DensityMapBuilder.h"
#include "zrsimprp/qt/map/MapPainter.h"

namespace zrsimprp {
namespace {

std::shared_ptr<const MapModel> Model(int strata, const std::string& spacing) {
  const MapLayers layers = map_bench::TiledLayers(strata);
  return std::make_shared<const MapModel>(
      DensityMapBuilder::Build(layers, map_bench::UniformFor(layers, spacing)));
}

// Draws the map into the whole of `picture`.
void PaintInto(MapPainter& map, QImage& picture) {
  QPainter painter(&picture);
  map.Paint(painter, QRectF(0, 0, picture.width(), picture.height()), QGuiApplication::palette());
}

// Three strata and a 30 x 20 grid, as large as the sample project's map.
void BM_PaintSmallMap(benchmark::State& state) {
  const auto model = Model(3, "100");
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    MapPainter painter_model;
    painter_model.SetModel(model);
    PaintInto(painter_model, picture);
  }
}
BENCHMARK(BM_PaintSmallMap)->Unit(benchmark::kMillisecond);

// 5,000 strata and 500,000 cells: a new model (after an edit) painted once.
void BM_PaintFiveThousandStrataNewModel(benchmark::State& state) {
  const auto model = Model(5000, "100");
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    MapPainter painter_model;
    painter_model.SetModel(model);
    PaintInto(painter_model, picture);
  }
}
BENCHMARK(BM_PaintFiveThousandStrataNewModel)->Unit(benchmark::kMillisecond);

// A density edit at 5,000 strata: the painter keeps the strata it drew and only remakes the surface.
void BM_PaintFiveThousandStrataAfterDensityEdit(benchmark::State& state) {
  const MapLayers layers = map_bench::TiledLayers(5000);
  DensityMapInputs inputs = map_bench::UniformFor(layers, "100");
  const auto before = std::make_shared<const MapModel>(DensityMapBuilder::Build(layers, inputs));
  inputs.densities[2500] = "9";
  const auto after = std::make_shared<const MapModel>(DensityMapBuilder::Build(layers, inputs, before.get()));
  MapPainter painter_model;
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  painter_model.SetModel(before);
  { PaintInto(painter_model, picture); }
  bool flip = false;
  for (auto _ : state) {
    painter_model.SetModel((flip = !flip) ? after : before);
    PaintInto(painter_model, picture);
  }
}
BENCHMARK(BM_PaintFiveThousandStrataAfterDensityEdit)->Unit(benchmark::kMillisecond);

// The same model repainted (a window resize or the pointer moving over it).
void BM_RepaintFiveThousandStrata(benchmark::State& state) {
  MapPainter painter_model;
  painter_model.SetModel(Model(5000, "100"));
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    PaintInto(painter_model, picture);
  }
}
BENCHMARK(BM_RepaintFiveThousandStrata)->Unit(benchmark::kMillisecond);

void BM_PanFiveThousandStrata(benchmark::State& state) {
  MapPainter map;
  map.SetModel(Model(5000, "100"));
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  PaintInto(map, picture);
  map.ZoomAbout(QPointF(400, 300), 4);
  int step = 0;
  for (auto _ : state) {
    map.Pan(QPointF((step++ % 2) == 0 ? 12 : -12, 5));
    PaintInto(map, picture);
  }
}
BENCHMARK(BM_PanFiveThousandStrata)->Unit(benchmark::kMillisecond);

void BM_ZoomFiveThousandStrata(benchmark::State& state) {
  MapPainter map;
  map.SetModel(Model(5000, "100"));
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  PaintInto(map, picture);
  int step = 0;
  for (auto _ : state) {
    map.ZoomAbout(QPointF(380, 260), (step++ % 2) == 0 ? 1.25 : 0.8);
    PaintInto(map, picture);
  }
}
BENCHMARK(BM_ZoomFiveThousandStrata)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zrsimprp

int main(int argc, char** argv) { return zrsimprp::bench::RunQtBenchmarks<QGuiApplication>(argc, argv); }

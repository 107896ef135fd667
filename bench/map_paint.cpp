// Painting the density map: turning a model into what the view draws (paths and the surface image)
// and drawing it into an 800 x 600 picture, for the sample-sized map and for 5,000 strata.
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

// Three strata and a 30 x 20 grid, as large as the sample project's map.
void BM_PaintSmallMap(benchmark::State& state) {
  const auto model = Model(3, "100");
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    MapPainter painter_model;
    painter_model.SetModel(model);
    QPainter painter(&picture);
    painter_model.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
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
    QPainter painter(&picture);
    painter_model.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
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
  {
    QPainter painter(&picture);
    painter_model.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
  }
  bool flip = false;
  for (auto _ : state) {
    painter_model.SetModel((flip = !flip) ? after : before);
    QPainter painter(&picture);
    painter_model.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
  }
}
BENCHMARK(BM_PaintFiveThousandStrataAfterDensityEdit)->Unit(benchmark::kMillisecond);

// The same model repainted (a window resize or the pointer moving over it).
void BM_RepaintFiveThousandStrata(benchmark::State& state) {
  MapPainter painter_model;
  painter_model.SetModel(Model(5000, "100"));
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter painter(&picture);
    painter_model.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
  }
}
BENCHMARK(BM_RepaintFiveThousandStrata)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zrsimprp

int main(int argc, char** argv) { return zrsimprp::bench::RunQtBenchmarks<QGuiApplication>(argc, argv); }

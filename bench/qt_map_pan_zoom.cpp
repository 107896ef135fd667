// A person panning and zooming the density map of 5,000 strata: each step repaints the 800 x 600
// map once (the strata are drawn again at the new scale or place).
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

std::shared_ptr<const MapModel> FiveThousandStrata() {
  const MapLayers layers = map_bench::TiledLayers(5000);
  return std::make_shared<const MapModel>(
      DensityMapBuilder::Build(layers, map_bench::UniformFor(layers, "100")));
}

void BM_PanFiveThousandStrata(benchmark::State& state) {
  MapPainter map;
  map.SetModel(FiveThousandStrata());
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  {
    QPainter painter(&picture);
    map.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
  }
  map.ZoomAbout(QPointF(400, 300), 4);
  int step = 0;
  for (auto _ : state) {
    map.Pan(QPointF((step++ % 2) == 0 ? 12 : -12, 5));
    QPainter painter(&picture);
    map.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
  }
}
BENCHMARK(BM_PanFiveThousandStrata)->Unit(benchmark::kMillisecond);

void BM_ZoomFiveThousandStrata(benchmark::State& state) {
  MapPainter map;
  map.SetModel(FiveThousandStrata());
  QImage picture(800, 600, QImage::Format_ARGB32_Premultiplied);
  {
    QPainter painter(&picture);
    map.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
  }
  int step = 0;
  for (auto _ : state) {
    map.ZoomAbout(QPointF(380, 260), (step++ % 2) == 0 ? 1.25 : 0.8);
    QPainter painter(&picture);
    map.Paint(painter, QRectF(0, 0, 800, 600), QGuiApplication::palette());
  }
}
BENCHMARK(BM_ZoomFiveThousandStrata)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zrsimprp

int main(int argc, char** argv) { return zrsimprp::bench::RunQtBenchmarks<QGuiApplication>(argc, argv); }

// Creating, loading and drawing the Qt widget for a simulation over 1,000 strata.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCoreApplication>
#include <memory>
#include <string>

#include "bench/QtBench.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"

namespace {

void BM_CreateLoadAndRender(benchmark::State& state) {
  const int strata = static_cast<int>(state.range(0));
  auto database = zrsimprp::bench::OneSurveyProject(strata);
  const std::string definition = "Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n";
  for (auto _ : state) {
    zrsimprp::CModGlobal::Clear();
    zrsimprp::SIMPropertiesWidget widget;
    widget.Platform().SetMessageSink([](const std::string&, const std::string&, zrsimprp::MessageIcon) {});
    widget.SetProjectDatabase(database);
    widget.SetDefinition(definition);
    widget.Initialize();
    widget.resize(800, 600);
    QImage image = widget.Render();
    benchmark::DoNotOptimize(image.bits());
    widget.ShowOuterTab(1);
    image = widget.Render();
    benchmark::DoNotOptimize(image.bits());
  }
  zrsimprp::CModGlobal::Clear();
}
BENCHMARK(BM_CreateLoadAndRender)->Arg(3)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return zrsimprp::bench::RunQtBenchmarks<QApplication>(argc, argv); }

// Creating, loading and drawing the Qt widget for a simulation over 1,000 strata.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCoreApplication>
#include <memory>
#include <string>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"

namespace {

std::shared_ptr<zrsimprp::MemoryProjectDatabase> MakeProject(int strata) {
  using zrsimprp::Variant;
  auto database = std::make_shared<zrsimprp::MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  zrsimprp::MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.label_field = "Label";
  for (int i = 1; i <= strata; ++i) {
    layer.ids.emplace_back(int32_t{i});
    layer.labels.emplace_back(std::string("S") + std::to_string(i));
  }
  database->AddLayer(layer);
  return database;
}

void BM_CreateLoadAndRender(benchmark::State& state) {
  const int strata = static_cast<int>(state.range(0));
  auto database = MakeProject(strata);
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

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

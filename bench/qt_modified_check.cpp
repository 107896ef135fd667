// What the editor's modified check costs: the definition written from a loaded widget, as the check
// writes it after each pause in typing, for a simulation over 3 and 1,000 strata.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <memory>
#include <string>

#include "bench/QtBench.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"

namespace {

void BM_ModifiedCheck(benchmark::State& state) {
  const int strata = static_cast<int>(state.range(0));
  zrsimprp::CModGlobal::Clear();
  zrsimprp::SIMPropertiesWidget widget;
  widget.Platform().SetMessageSink([](const std::string&, const std::string&, zrsimprp::MessageIcon) {});
  widget.SetProjectDatabase(zrsimprp::bench::OneSurveyProject(strata));
  widget.SetDefinition("Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n");
  widget.Initialize();
  const std::string saved = widget.Definition();
  for (auto _ : state) {
    widget.Platform().SetQuiet(true);
    const bool modified = widget.Definition() != saved;
    widget.Platform().SetQuiet(false);
    benchmark::DoNotOptimize(modified);
  }
  zrsimprp::CModGlobal::Clear();
}
BENCHMARK(BM_ModifiedCheck)->Arg(3)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) { return zrsimprp::bench::RunQtBenchmarks<QApplication>(argc, argv); }

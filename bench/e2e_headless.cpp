// The whole control, headless, on a project of 10,000 surveys: loading a definition that gives a
// density, a population size and a scale parameter for every stratum and writing it back, for 10 to
// 10,000 strata; and leaving the Simulation tab with 1,000 strata (its check plus the strata
// hand-over to three pages). Loading and writing must grow linearly with the strata: the program
// prints the growth exponent between 100 and 10,000 strata after the table.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace {

using zrsimprp::CModGlobal;
using zrsimprp::HeadlessPlatform;
using zrsimprp::MemoryProjectDatabase;
using zrsimprp::SIMProperties;
using zrsimprp::Variant;

constexpr int kSurveys = 10000;
constexpr const char* kLoadBenchmark = "BM_LoadAndWriteDefinition";

std::shared_ptr<MemoryProjectDatabase> MakeProject(int strata) {
  auto project = std::make_shared<MemoryProjectDatabase>();
  project->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  for (int id = 1; id <= kSurveys; ++id) project->AddSurvey(id, "Survey " + std::to_string(id), 1, 10);
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.label_field = "Label";
  layer.ids.reserve(static_cast<size_t>(strata));
  layer.labels.reserve(static_cast<size_t>(strata));
  for (int i = 1; i <= strata; ++i) {
    layer.ids.emplace_back(int32_t{i});
    layer.labels.emplace_back(std::string("Stratum ") + std::to_string(i));
  }
  project->AddLayer(std::move(layer));
  project->AddDataFilter(5, "All data");
  project->AddModelDefinition(7, "HN model", "MA", "");
  project->SetDefaultDefinition("SIM", Variant(std::string("Engine=SIM;")));
  return project;
}

std::string ValueList(int count, const std::string& suffix) {
  std::string list;
  for (int i = 1; i <= count; ++i) {
    if (i > 1) list += ',';
    list += std::to_string(i) + suffix;
  }
  return list;
}

std::string Definition(int strata) {
  return "Engine=SIM;Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;"
         "Density=Uniform /Densities=" +
         ValueList(strata, ".5") +
         " /GridSpace=10;"
         "PopSize=\"Fixed N\" /Values=" +
         ValueList(strata, "00") +
         ";Clusters=False;"
         "Detectability=Half-Normal /ParamByStratum=True;"
         "DetFuncParam=\"\" /Scale=" +
         ValueList(strata, "0") + ";Analyse=False;ParallelProcessing=False /cores=1;";
}

// The load must have read every entry: no report, and the values back for every stratum.
bool Faithful(const std::string& written, int strata, const HeadlessPlatform& platform) {
  return platform.Messages().empty() &&
         written.find("/Densities=" + ValueList(strata, ".5") + " ") != std::string::npos &&
         written.find("/Values=" + ValueList(strata, "00") + ";") != std::string::npos &&
         written.find("/Scale=" + ValueList(strata, "0") + ";") != std::string::npos;
}

void BM_LoadAndWriteDefinition(benchmark::State& state) {
  const int strata = static_cast<int>(state.range(0));
  const auto project = MakeProject(strata);
  const std::string definition = Definition(strata);
  HeadlessPlatform platform;
  for (auto _ : state) {
    SIMProperties control(platform);
    control.SetProjectDatabase(project);
    control.SetDefinition(definition);
    control.Initialize();
    const std::string written = control.Definition();
    benchmark::DoNotOptimize(written.data());
    state.PauseTiming();
    const bool faithful = Faithful(written, strata, platform);
    state.ResumeTiming();
    if (!faithful) {
      state.SkipWithError("the definition did not load and write back whole");
      break;
    }
  }
  state.SetComplexityN(strata);
  state.counters["strata"] = strata;
  CModGlobal::Clear();
}
BENCHMARK(BM_LoadAndWriteDefinition)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

// Leaving the Simulation tab: its check, then the strata hand-over to the Density, Population and
// Detectability pages. Only the change away is timed; the way back is not.
void BM_TabChangeAwayFromSimulation(benchmark::State& state) {
  const int strata = static_cast<int>(state.range(0));
  const auto project = MakeProject(strata);
  HeadlessPlatform platform;
  SIMProperties control(platform);
  control.SetProjectDatabase(project);
  control.SetDefinition(Definition(strata));
  control.Initialize();
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    control.tapSimulationDefinition.SetCurrentTab(1);
    const auto stop = std::chrono::steady_clock::now();
    state.SetIterationTime(std::chrono::duration<double>(stop - start).count());
    const bool moved = control.tapSimulationDefinition.CurrentTab() == 1;
    control.tapSimulationDefinition.SetCurrentTab(0);
    if (!moved || control.tapSimulationDefinition.CurrentTab() != 0 || !platform.Messages().empty()) {
      state.SkipWithError("a page check refused the tab change");
      break;
    }
  }
  state.counters["strata"] = strata;
  CModGlobal::Clear();
}
BENCHMARK(BM_TabChangeAwayFromSimulation)
    ->Arg(1000)
    ->Arg(10000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Loading many hotspots, as the definition reader adds them one row at a time, and writing them back.
void BM_LoadAndWriteHotspots(benchmark::State& state) {
  const int hotspots = static_cast<int>(state.range(0));
  const auto project = MakeProject(3);
  std::string definition = "StrataLayer=Strata;";
  for (int i = 1; i <= hotspots; ++i)
    definition += "Hotspot=\"\" /X,Y,Sig,Amp=" + std::to_string(i) + ",2,3,4;";
  HeadlessPlatform platform;
  for (auto _ : state) {
    SIMProperties control(platform);
    control.SetProjectDatabase(project);
    control.SetDefinition(definition);
    control.Initialize();
    const std::string written = control.Definition();
    benchmark::DoNotOptimize(written.data());
    if (control.pagDensity.NumHotspots() != hotspots || !platform.Messages().empty()) {
      state.SkipWithError("the hotspots did not load whole");
      break;
    }
  }
  state.SetComplexityN(hotspots);
  CModGlobal::Clear();
}
BENCHMARK(BM_LoadAndWriteHotspots)
    ->Arg(500)
    ->Arg(5000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

// Shows the table as usual and keeps the time per iteration of each load run by its stratum count.
class GrowthReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations == 0) continue;
      if (run.run_name.function_name != kLoadBenchmark) continue;
      const auto strata = run.counters.find("strata");
      if (strata == run.counters.end()) continue;
      const int count = static_cast<int>(strata->second.value);
      const double iterations = static_cast<double>(run.iterations);
      real_seconds_[count] = run.real_accumulated_time / iterations;
      cpu_seconds_[count] = run.cpu_accumulated_time / iterations;
    }
    ConsoleReporter::ReportRuns(runs);
  }

  // log(t10000 / t100) / log(100): 1 is linear, 2 quadratic. On a shared machine the process time
  // is the steadier of the two.
  void PrintGrowth() const {
    PrintGrowth("wall", real_seconds_);
    PrintGrowth("process", cpu_seconds_);
  }

 private:
  static void PrintGrowth(const char* clock, const std::map<int, double>& seconds) {
    const auto small = seconds.find(100);
    const auto large = seconds.find(10000);
    if (small == seconds.end() || large == seconds.end() || small->second <= 0) {
      std::printf("growth exponent 100 -> 10000 strata (%s time): not measured\n", clock);
      return;
    }
    const double exponent = std::log(large->second / small->second) / std::log(100.0);
    std::printf(
        "load and write (%s time): 100 strata %.3f ms, 10000 strata %.3f ms; "
        "growth exponent 100 -> 10000 strata: %.3f (target at most 1.15)\n",
        clock, small->second * 1e3, large->second * 1e3, exponent);
  }

  std::map<int, double> real_seconds_;
  std::map<int, double> cpu_seconds_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  GrowthReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintGrowth();
  benchmark::Shutdown();
  return 0;
}

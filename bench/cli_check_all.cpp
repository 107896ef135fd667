// "zrsim check --all" on a project file with 10 to 1,000 simulations (every tenth with a few findings),
// JSON output into memory. The cost per simulation must stay flat: the project's lists are gathered
// once per run, each simulation gets one headless control. The Complexity fit after the table gives
// the growth; a linear check reads O(N) with a steady per-simulation time.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsim/CommandLine.h"

namespace {

std::string SampleSimulationText(const std::string& path) {
  auto project = zrsimprp::GeoPackageProject::Open(path);
  return project->SimulationDefinition("Sample simulation");
}

// A project file with `count` simulations in the temporary folder, made once per count.
const std::string& ProjectWith(int count) {
  static std::map<int, std::string> made;
  auto found = made.find(count);
  if (found != made.end()) return found->second;
  const std::string path =
      (std::filesystem::temp_directory_path() / ("zrsim-bench-check-all-" + std::to_string(count) + ".gpkg"))
          .string();
  std::filesystem::remove(path);
  zrsimprp::SampleProject::Create(path);
  const std::string good = SampleSimulationText(path);
  auto project = zrsimprp::GeoPackageProject::Open(path);
  // The sample itself is the first; the others are copies, every tenth with a misspelt entry, a
  // negative density and a hotspot off the region so that findings are written too, the layer's
  // polygons among what they read.
  for (int i = 2; i <= count; ++i) {
    std::string text = good;
    if (i % 10 == 0) {
      text.replace(text.find("Densities=2.5,1.5,3"), 19, "Densities=2.5,-1.5,3");
      text.replace(text.find("800,1700"), 8, "90000,1700");
      text += "Repss=30;\r\n";
    }
    project->SaveSimulationDefinition("Simulation " + std::to_string(i), text);
  }
  return made.emplace(count, path).first->second;
}

void BM_CheckAll(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const std::string& path = ProjectWith(count);
  std::size_t bytes = 0;
  for (auto _ : state) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    int status =
        zrsim::CommandLine(in, out, err).Run({"check", "--project", path, "--all", "--format", "json"});
    if (status != 1) state.SkipWithError("check --all did not find the planted errors");
    bytes = out.str().size();
    benchmark::DoNotOptimize(bytes);
  }
  state.SetComplexityN(count);
  state.counters["simulations"] = count;
  state.counters["per_simulation"] =
      benchmark::Counter(static_cast<double>(count),
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.counters["json_bytes"] = static_cast<double>(bytes);
}

BENCHMARK(BM_CheckAll)
    ->Arg(10)
    ->Arg(100)
    ->Arg(300)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN)
    ->Iterations(2);

}  // namespace

BENCHMARK_MAIN();

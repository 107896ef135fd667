// Timings of the Detectability page's table work as strata and covariate levels grow.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/pages/CPagDetectability/CPagDetectability.h"

namespace {

using zrsimprp::CPagDetectability;
using zrsimprp::HeadlessPlatform;

std::vector<std::string> Names(const std::string& prefix, int count, int first = 0) {
  std::vector<std::string> names;
  names.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) names.push_back(prefix + std::to_string(first + i));
  return names;
}

// Stratifying a table of n strata: one column per stratum, headings, zeros in the new cells.
void BM_UpdateStrataInfoStratified(benchmark::State& state) {
  const int strata = static_cast<int>(state.range(0));
  const std::vector<std::string> names = Names("Stratum ", strata);
  HeadlessPlatform platform;
  for (auto _ : state) {
    state.PauseTiming();
    CPagDetectability page(platform);
    page.SetDetFunction("Hazard Rate");
    page.UpdateFlxDetect(true, 2, "wind", 1, {"a", "b", "c"});
    page.SetParamByStratum("True");
    state.ResumeTiming();
    page.UpdateStrataInfo(strata, names);
    benchmark::DoNotOptimize(page.flxDetect.Cols());
  }
  state.SetComplexityN(strata);
}
BENCHMARK(BM_UpdateStrataInfoStratified)->Arg(1000)->RangeMultiplier(4)->Range(64, 4096)->Complexity();

// Putting n categorical levels into the table for the first time.
void BM_UpdateFlxDetectNewLevels(benchmark::State& state) {
  const int levels = static_cast<int>(state.range(0));
  const std::vector<std::string> names = Names("level", levels);
  HeadlessPlatform platform;
  for (auto _ : state) {
    state.PauseTiming();
    CPagDetectability page(platform);
    state.ResumeTiming();
    page.UpdateFlxDetect(true, 2, "wind", 1, names);
    benchmark::DoNotOptimize(page.NumParams());
  }
  state.SetComplexityN(levels);
}
BENCHMARK(BM_UpdateFlxDetectNewLevels)->Arg(200)->RangeMultiplier(4)->Range(50, 12800)->Complexity();

// Replacing every other level of n: half the rows go, the rest move up, n/2 rows are appended.
void BM_UpdateFlxDetectChangedLevels(benchmark::State& state) {
  const int levels = static_cast<int>(state.range(0));
  const std::vector<std::string> before = Names("level", levels);
  std::vector<std::string> after;
  for (int i = 0; i < levels; i += 2) after.push_back(before[static_cast<size_t>(i)]);
  for (const std::string& added : Names("new", levels / 2)) after.push_back(added);
  HeadlessPlatform platform;
  for (auto _ : state) {
    state.PauseTiming();
    CPagDetectability page(platform);
    page.UpdateFlxDetect(true, 2, "wind", 1, before);
    state.ResumeTiming();
    page.UpdateFlxDetect(true, 2, "wind", 1, after);
    benchmark::DoNotOptimize(page.NumParams());
  }
  state.SetComplexityN(levels);
}
BENCHMARK(BM_UpdateFlxDetectChangedLevels)->Arg(200)->RangeMultiplier(4)->Range(50, 12800)->Complexity();

// Checking a table of 200 levels over n strata, every cell editable and numeric.
void BM_IsValidStratifiedTable(benchmark::State& state) {
  const int strata = static_cast<int>(state.range(0));
  HeadlessPlatform platform;
  CPagDetectability page(platform);
  page.SetDetFunction("Hazard Rate");
  page.UpdateFlxDetect(true, 2, "wind", 1, Names("level", 200));
  page.UpdateStrataInfo(strata, Names("Stratum ", strata));
  page.SetParamByStratum("True");
  std::string message;
  for (auto _ : state) {
    message.clear();
    benchmark::DoNotOptimize(page.IsValid(message));
  }
  state.SetComplexityN(static_cast<int64_t>(strata) * page.NumParams());
  state.counters["cells"] = static_cast<double>(strata) * page.NumParams();
}
BENCHMARK(BM_IsValidStratifiedTable)->Arg(1000)->RangeMultiplier(4)->Range(16, 1024)->Complexity();

}  // namespace

BENCHMARK_MAIN();

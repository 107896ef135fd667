// Density page costs with many strata and hotspots: the strata hand-over, the "Density" entry's value
// written and read back, and the page check. Each must grow linearly.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/pages/CPagDensity/CPagDensity.h"

namespace {

using zrsimprp::CPagDensity;
using zrsimprp::HeadlessPlatform;

std::vector<std::string> StrataNames(int count) {
  std::vector<std::string> names;
  names.reserve(static_cast<size_t>(count));
  for (int i = 1; i <= count; ++i) names.push_back("Stratum " + std::to_string(i));
  return names;
}

std::string DensityText(int count) {
  std::string text;
  for (int i = 1; i <= count; ++i) {
    if (i > 1) text += ',';
    text += std::to_string(i) + ".5";
  }
  return text;
}

void BM_UpdateFlxConstantDensity(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const std::vector<std::string> names = StrataNames(count);
  HeadlessPlatform platform;
  for (auto _ : state) {
    state.PauseTiming();
    CPagDensity page(platform);
    page.Initialize();
    state.ResumeTiming();
    page.UpdateFlxConstantDensity(count, names);
    benchmark::DoNotOptimize(page.flxConstantDensity.Cols());
  }
  state.SetComplexityN(count);
}
BENCHMARK(BM_UpdateFlxConstantDensity)->Arg(1000)->Arg(10000)->Complexity(benchmark::oN);

void BM_StrataChangeKeepingDensities(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const std::vector<std::string> names = StrataNames(count);
  HeadlessPlatform platform;
  CPagDensity page(platform);
  page.Initialize();
  page.UpdateFlxConstantDensity(count, names);
  page.SetDensities(DensityText(count));
  for (auto _ : state) {
    page.UpdateFlxConstantDensity(count, names);
    benchmark::DoNotOptimize(page.flxConstantDensity.Cols());
  }
  state.SetComplexityN(count);
}
BENCHMARK(BM_StrataChangeKeepingDensities)->Arg(1000)->Arg(10000)->Complexity(benchmark::oN);

void BM_DensitiesRoundTrip(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const std::string text = DensityText(count);
  HeadlessPlatform platform;
  CPagDensity page(platform);
  page.Initialize();
  page.UpdateFlxConstantDensity(count, StrataNames(count));
  for (auto _ : state) {
    page.SetDensities(text);
    std::string back = page.Densities();
    benchmark::DoNotOptimize(back.data());
    if (back != text) state.SkipWithError("densities did not round-trip");
  }
  state.SetComplexityN(count);
}
BENCHMARK(BM_DensitiesRoundTrip)->Arg(1000)->Arg(10000)->Complexity(benchmark::oN);

void BM_IsValidUniform(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  HeadlessPlatform platform;
  CPagDensity page(platform);
  page.Initialize();
  page.UpdateFlxConstantDensity(count, StrataNames(count));
  page.SetDensities(DensityText(count));
  page.SetGridSpacing("10");
  for (auto _ : state) {
    std::string message;
    if (!page.IsValid(message)) state.SkipWithError(message.c_str());
    benchmark::DoNotOptimize(message.data());
  }
  state.SetComplexityN(count);
}
BENCHMARK(BM_IsValidUniform)->Arg(1000)->Arg(10000)->Complexity(benchmark::oN);

// Loading hotspots as the definition reader does (add a row, then fill the last one), reading them
// back, and checking the page.
void BM_HotspotsLoadReadCheck(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  HeadlessPlatform platform;
  for (auto _ : state) {
    CPagDensity page(platform);
    page.Initialize();
    page.SetGridSpacing("10");
    for (int i = 0; i < count; ++i) {
      page.AddHotspot();
      page.SetHotspotValues(page.NumHotspots(), std::to_string(i) + ",20,5,2");
    }
    size_t total = 0;
    for (int16_t k = 1; k <= page.NumHotspots(); ++k) total += page.HotspotValues(k).size();
    std::string message;
    if (!page.IsValid(message)) state.SkipWithError(message.c_str());
    benchmark::DoNotOptimize(total);
  }
  state.SetComplexityN(count);
}
BENCHMARK(BM_HotspotsLoadReadCheck)->Arg(1000)->Arg(10000)->Complexity(benchmark::oN);

}  // namespace

BENCHMARK_MAIN();

// The preview of a simulation: expected detections over 5,000 strata, one drawn survey of 100,000
// animals over 5,000 strata with 200 lines, and how both grow with the strata, the animals and the
// length of line.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "bench/CheckedGrowth.h"
#include "bench/MapBenchLayers.h"
#include "zrsimprp/map/DensityMapBuilder.h"
#include "zrsimprp/preview/PreviewCalculator.h"
#include "zrsimprp/preview/SurveyDrawer.h"

namespace zrsimprp {
namespace {

// The tiled strata of the map benchmarks (1 km cells, 100 to a row), Fixed N of `per_stratum` each, a
// hazard-rate detection function and parallel lines `spacing` apart with truncation 100.
PreviewInputs TiledInputs(int strata, double per_stratum, const std::string& spacing) {
  PreviewInputs inputs;
  inputs.layers = map_bench::TiledLayers(strata);
  inputs.density = map_bench::UniformFor(inputs.layers, "100");
  inputs.strata = inputs.density.strata;
  inputs.population_size = "Fixed N";
  inputs.population_values.assign(static_cast<size_t>(strata), std::to_string(per_stratum));
  inputs.key_function = "Hazard Rate";
  inputs.detection_columns = {"Study Area"};
  inputs.parameter_names = {"Scale", "Shape"};
  inputs.parameters = {{"40"}, {"3"}};
  inputs.design.found = true;
  inputs.design.name = "Lines";
  inputs.design.type = "Parallel";
  inputs.design.spacing = spacing;
  inputs.design.truncation = "100";
  return inputs;
}

// Each stratum with a scale of its own: one integral per stratum (half-normal: erf).
PreviewInputs ByStratum(PreviewInputs inputs) {
  inputs.key_function = "Half-Normal";
  inputs.detection_columns = inputs.strata;
  inputs.parameters = {{}, {}};
  for (size_t s = 0; s < inputs.strata.size(); ++s) {
    inputs.parameters[0].push_back(std::to_string(30 + s % 50));
    inputs.parameters[1].push_back("");
  }
  return inputs;
}

void BM_PreviewExpectedDetections5000Strata(benchmark::State& state) {
  const PreviewInputs inputs = TiledInputs(5000, 20, "500");
  for (auto _ : state) benchmark::DoNotOptimize(PreviewCalculator::Compute(inputs, nullptr, false));
}
BENCHMARK(BM_PreviewExpectedDetections5000Strata)->Unit(benchmark::kMillisecond);

void BM_PreviewExpectedDetections5000StrataOwnScales(benchmark::State& state) {
  const PreviewInputs inputs = ByStratum(TiledInputs(5000, 20, "500"));
  for (auto _ : state) benchmark::DoNotOptimize(PreviewCalculator::Compute(inputs, nullptr, false));
}
BENCHMARK(BM_PreviewExpectedDetections5000StrataOwnScales)->Unit(benchmark::kMillisecond);

void BM_PreviewExpectedDetectionsGrowthInStrata(benchmark::State& state) {
  const PreviewInputs inputs = TiledInputs(static_cast<int>(state.range(0)), 20, "500");
  for (auto _ : state) benchmark::DoNotOptimize(PreviewCalculator::Compute(inputs, nullptr, false));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PreviewExpectedDetectionsGrowthInStrata)->Apply(bench::CheckedGrowth)->Range(625, 10000);

// 100,000 animals (20 in each of 5,000 strata) over a 100 km wide layer with lines 500 apart: 200
// lines. The surface is the map's, computed once.
void BM_PreviewDrawnSurvey100000Animals(benchmark::State& state) {
  const PreviewInputs inputs = TiledInputs(5000, 20, "500");
  const Preview preview = PreviewCalculator::Compute(inputs);
  uint64_t seed = 0;
  for (auto _ : state) benchmark::DoNotOptimize(SurveyDrawer::Draw(preview, *inputs.layers.region, ++seed));
}
BENCHMARK(BM_PreviewDrawnSurvey100000Animals)->Unit(benchmark::kMillisecond);

void BM_PreviewDrawnSurveyGrowthInAnimals(benchmark::State& state) {
  const PreviewInputs inputs = TiledInputs(5000, static_cast<double>(state.range(0)) / 5000, "500");
  const Preview preview = PreviewCalculator::Compute(inputs);
  uint64_t seed = 0;
  for (auto _ : state) benchmark::DoNotOptimize(SurveyDrawer::Draw(preview, *inputs.layers.region, ++seed));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PreviewDrawnSurveyGrowthInAnimals)->Apply(bench::CheckedGrowth)->Range(25000, 400000);

// Line length: 50 to 800 lines across the same strata and 5,000 animals, the spacing halving each step.
void BM_PreviewDrawnSurveyGrowthInLineLength(benchmark::State& state) {
  const double lines = static_cast<double>(state.range(0));
  const PreviewInputs inputs = TiledInputs(5000, 1, std::to_string(100000 / lines));
  const Preview preview = PreviewCalculator::Compute(inputs);
  uint64_t seed = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        SurveyDrawer::ClipLines(*inputs.layers.region, ++seed % 7, 100000, preview.spacing));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_PreviewDrawnSurveyGrowthInLineLength)->Apply(bench::CheckedGrowth)->Range(50, 800);

}  // namespace
}  // namespace zrsimprp

BENCHMARK_MAIN();

// Timings of the population pages with many strata and many categorical levels: the strata hand-over
// and the page check, and the covariate properties, check and summary.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/pages/CPagPopulationCovars/CPagPopulationCovars.h"
#include "zrsimprp/pages/CPagPopulationDescription/CPagPopulationDescription.h"

namespace {

using zrsimprp::CPagPopulationCovars;
using zrsimprp::CPagPopulationDescription;
using zrsimprp::HeadlessPlatform;

std::vector<std::string> StratumNames(int count) {
  std::vector<std::string> names;
  names.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) names.push_back("Stratum" + std::to_string(i + 1));
  return names;
}

std::string CommaList(int count, const std::string& prefix) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    if (i > 0) text += ',';
    text += prefix + std::to_string(i);
  }
  return text;
}

// Probabilities that add up to exactly 1 in double precision: all but two levels take 1/4096, the
// last two share the rest (every term and partial sum is a short binary fraction).
std::string ExactProbabilities(int count) {
  const int small = count - 2;
  const int rest = 4096 - small;
  std::string text;
  for (int i = 0; i < small; ++i) text += zrsimprp::DoubleText(1.0 / 4096.0) + ",";
  text += zrsimprp::DoubleText((rest / 2) / 4096.0) + "," + zrsimprp::DoubleText((rest - rest / 2) / 4096.0);
  return text;
}

void BM_StrataThroughUpdateFlxNAndIsValid(benchmark::State& state) {
  const int strata = static_cast<int>(state.range(0));
  HeadlessPlatform platform;
  CPagPopulationDescription page(platform);
  page.Initialize();
  const std::vector<std::string> names = StratumNames(strata);
  const std::string values = CommaList(strata, "");
  std::string message;
  for (auto _ : state) {
    page.UpdateFlxN(1, names);  // back to one stratum, so every round rebuilds the whole table
    page.UpdateFlxN(strata, names);
    page.SetPopSizeValues(values);
    message.clear();
    const bool valid = page.IsValid(message);
    if (!valid) state.SkipWithError(message.c_str());
    benchmark::DoNotOptimize(page.PopSizeValues());
  }
  state.SetComplexityN(strata);
}
BENCHMARK(BM_StrataThroughUpdateFlxNAndIsValid)
    ->Arg(1000)
    ->RangeMultiplier(4)
    ->Range(250, 16000)
    ->Complexity();

void BM_CategoricalLevelsThroughCovariateProperties(benchmark::State& state) {
  const int levels = static_cast<int>(state.range(0));
  HeadlessPlatform platform;
  CPagPopulationCovars page(platform);
  const std::string level_text = CommaList(levels, "level");
  const std::string probability_text = ExactProbabilities(levels);
  std::string message;
  for (auto _ : state) {
    page.Initialize();
    page.SetCategoricalCov(true);
    page.SetCategoricalName("group");
    page.SetCategoricalLevels(level_text);
    page.SetCategoricalProbs(probability_text);
    benchmark::DoNotOptimize(page.CategoricalValues(0));
    benchmark::DoNotOptimize(page.CategoricalValues(1));
    message.clear();
    if (!page.IsValid(message)) state.SkipWithError(message.c_str());
    page.UpdateCovariateInfo();
    benchmark::DoNotOptimize(page.CatCovLevels());
  }
  state.SetComplexityN(levels);
}
BENCHMARK(BM_CategoricalLevelsThroughCovariateProperties)
    ->Arg(200)
    ->RangeMultiplier(4)
    ->Range(50, 3200)
    ->Complexity();

}  // namespace

BENCHMARK_MAIN();

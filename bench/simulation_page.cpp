// Timings of the Simulation page on a large project: filling the survey and design lists, choosing the
// first survey (which walks every survey and design and computes the strata), and switching layers.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"

namespace zrsimprp {
namespace {

std::string DesignText(const std::string& stratum_layer) {
  std::string text;
  std::vector<std::string> names{""};
  std::vector<std::string> values{""};
  auto& codec = DefinitionEntryCodec::Instance();
  codec.AppendEntry(text, "Sampler", "Line", names, values, 0, 0, false);
  codec.AppendEntry(text, "STRATUM LAYER", stratum_layer, names, values, 0, 0, false);
  return text;
}

MemoryProjectDatabase::LayerData Layer(const std::string& name, int32_t kind, const std::string& parent,
                                       int32_t features) {
  MemoryProjectDatabase::LayerData layer;
  layer.name = name;
  layer.kind = kind;
  layer.parent = parent;
  layer.label_field = "Label";
  for (int32_t i = 1; i <= features; ++i) {
    layer.ids.emplace_back(i);
    layer.labels.emplace_back("Stratum " + std::to_string(i));
  }
  return layer;
}

std::shared_ptr<MemoryProjectDatabase> Project(int32_t surveys, int32_t designs, int32_t strata) {
  auto db = std::make_shared<MemoryProjectDatabase>();
  db->AddLayer(Layer("Region", 1, "", 1));
  db->AddLayer(Layer("Strata", 0, "Region", strata));
  for (int32_t d = 1; d <= designs; ++d)
    db->AddDesign(d, "Design " + std::to_string(d), DesignText("Strata"));
  for (int32_t s = 1; s <= surveys; ++s) {
    db->AddSurvey(s, "Survey " + std::to_string(s), 1, 1 + (s % designs), static_cast<size_t>(s % 4));
  }
  return db;
}

// The brief's project: 10,000 surveys, 1,000 designs and a strata layer of 5,000 features.
void BM_InitializeLargeProject(benchmark::State& state) {
  HeadlessPlatform platform;
  CModGlobal::SetProjectDatabase(Project(10000, 1000, 5000));
  for (auto _ : state) {
    CPagSimulation page(platform);
    page.Initialize();
    benchmark::DoNotOptimize(page.StrataNum());
  }
  CModGlobal::Clear();
}
BENCHMARK(BM_InitializeLargeProject)->Unit(benchmark::kMillisecond);

// Switching between the region and the 5,000 strata: each switch computes the newly chosen layer.
void BM_SelectLayerLargeProject(benchmark::State& state) {
  HeadlessPlatform platform;
  CModGlobal::SetProjectDatabase(Project(10000, 1000, 5000));
  CPagSimulation page(platform);
  page.Initialize();
  for (auto _ : state) {
    page.SetStrataLayer("Region");
    page.SetStrataLayer("Strata");
    benchmark::DoNotOptimize(page.StrataNum());
  }
  CModGlobal::Clear();
}
BENCHMARK(BM_SelectLayerLargeProject)->Unit(benchmark::kMillisecond);

// Choosing another survey walks every survey and design once and recomputes the strata.
void BM_SelectSurveyLargeProject(benchmark::State& state) {
  HeadlessPlatform platform;
  CModGlobal::SetProjectDatabase(Project(10000, 1000, 5000));
  CPagSimulation page(platform);
  page.Initialize();
  int32_t survey = 1;
  for (auto _ : state) {
    survey = survey % 10000 + 1;
    page.SetSurveyObjectID(std::to_string(survey));
  }
  CModGlobal::Clear();
}
BENCHMARK(BM_SelectSurveyLargeProject)->Unit(benchmark::kMillisecond);

// Initialize against a growing number of surveys and designs (strata fixed): must grow linearly.
void BM_InitializeBySurveys(benchmark::State& state) {
  HeadlessPlatform platform;
  const auto surveys = static_cast<int32_t>(state.range(0));
  CModGlobal::SetProjectDatabase(Project(surveys, surveys / 10, 100));
  for (auto _ : state) {
    CPagSimulation page(platform);
    page.Initialize();
    benchmark::DoNotOptimize(page.StrataNum());
  }
  state.SetComplexityN(state.range(0));
  CModGlobal::Clear();
}
BENCHMARK(BM_InitializeBySurveys)
    ->RangeMultiplier(2)
    ->Range(2500, 40000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

// Computing the strata of a layer against its number of features: must grow linearly.
void BM_ComputeStrataByFeatures(benchmark::State& state) {
  HeadlessPlatform platform;
  const auto strata = static_cast<int32_t>(state.range(0));
  CModGlobal::SetProjectDatabase(Project(10, 10, strata));
  CPagSimulation page(platform);
  page.Initialize();
  for (auto _ : state) {
    page.SetStrataLayer("Region");
    page.SetStrataLayer("Strata");
    benchmark::DoNotOptimize(page.StrataNum());
  }
  state.SetComplexityN(state.range(0));
  CModGlobal::Clear();
}
BENCHMARK(BM_ComputeStrataByFeatures)
    ->RangeMultiplier(2)
    ->Range(1250, 20000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zrsimprp

BENCHMARK_MAIN();

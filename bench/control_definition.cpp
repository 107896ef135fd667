// Loading and saving a whole definition through the control: SetDefinition + Initialize (the pages are
// initialised and the text is read into them), then Definition (the text is rebuilt from the pages),
// for a stratified project whose strata layer has as many features as the definition has strata values.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace {

using zrsimprp::MemoryProjectDatabase;
using zrsimprp::Variant;

std::shared_ptr<MemoryProjectDatabase> MakeProject(int32_t strata) {
  auto database = std::make_shared<MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.id_field = "ID";
  layer.label_field = "Label";
  for (int32_t i = 1; i <= strata; ++i) {
    layer.ids.emplace_back(i);
    layer.labels.emplace_back("Stratum" + std::to_string(i));
  }
  database->AddLayer(layer);
  database->AddDataFilter(5, "All data");
  database->AddModelDefinition(7, "HN model", "MA", "");
  return database;
}

std::string Values(int32_t count, const std::string& value) {
  std::string text;
  for (int32_t i = 0; i < count; ++i) {
    if (i > 0) text += ",";
    text += value;
  }
  return text;
}

// One value per stratum in the density, population size and both detection parameters.
std::string MakeDefinition(int32_t strata) {
  return "Engine=SIM;\r\nTransects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=100;\r\n"
         "Density=Uniform /Densities=" +
         Values(strata, "1.5") +
         " /GridSpace=10;\r\n"
         "Hotspot=\"\" /X,Y,Sig,Amp=10,20,5,2;\r\n"
         "PopSize=\"Fixed N\" /Values=" +
         Values(strata, "100") +
         ";\r\n"
         "Clusters=True /Distribution=Poisson /param=3;\r\n"
         "CategoricalCov=sex /categories=m,f /prob=0.5,0.5;\r\n"
         "ContinuousCov=size /distribution=Normal /param=3,1;\r\n"
         "Detectability=\"Hazard Rate\" /ParamByStratum=True;\r\n"
         "DetFuncParam=\"\" /Scale=" +
         Values(strata, "20") + ";\r\nDetFuncParam=\"\" /Shape=" + Values(strata, "2") +
         ";\r\nAnalyse=True;\r\nDataFilter=5;\r\nModelDef=7;\r\nModelSelection=AIC;\r\n"
         "ParallelProcessing=True /cores=3;\r\n";
}

void BM_ReadAndWriteDefinition(benchmark::State& state) {
  const auto strata = static_cast<int32_t>(state.range(0));
  zrsimprp::CModGlobal::Clear();
  zrsimprp::HeadlessPlatform platform;
  auto database = MakeProject(strata);
  const std::string definition = MakeDefinition(strata);
  zrsimprp::SIMProperties control(platform);
  control.SetProjectDatabase(database);
  std::string written;
  for (auto _ : state) {
    control.SetDefinition(definition);
    control.Initialize();
    written = control.Definition();
    benchmark::DoNotOptimize(written);
  }
  // A load that went wrong would be measured as a fast one: refuse to report it.
  if (!platform.Messages().empty() || written != definition) {
    state.SkipWithError("the definition did not round-trip");
  }
  state.SetComplexityN(strata);
  state.counters["definition_bytes"] = static_cast<double>(definition.size());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(definition.size()));
  zrsimprp::CModGlobal::Clear();
}

BENCHMARK(BM_ReadAndWriteDefinition)
    ->Arg(1000)
    ->Arg(250)
    ->Arg(4000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

}  // namespace

BENCHMARK_MAIN();

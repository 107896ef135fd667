// Timings of the Simulation page on a large project: filling the survey and design lists, choosing the
// first survey (which walks every survey and design and computes the strata), and switching layers.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"

namespace zrsimprp {
namespace {

// Project files are written where a commit costs no disk flush when the system offers such a place,
// so that building the large projects does not dominate the run.
std::filesystem::path ScratchFile(const std::string& name) {
  const std::filesystem::path memory_backed("/dev/shm");
  std::error_code error;
  const bool in_memory = std::filesystem::is_directory(memory_backed, error);
  return (in_memory ? memory_backed : std::filesystem::temp_directory_path()) / name;
}

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
    ->Complexity(benchmark::oN)
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
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

// The same switch on a project file whose strata layer holds 5,000 square features.
void BM_SelectLayerGeoPackage(benchmark::State& state) {
  const std::filesystem::path path = ScratchFile("zrsim-bench-simulation.gpkg");
  std::filesystem::remove(path);
  {
    auto project = GeoPackageProject::Create(path.string());
    auto square = [](int32_t id, const std::string& label, double x, double y) {
      return PolygonFeature{id, label, {{{{x, y}, {x + 10, y}, {x + 10, y + 10}, {x, y + 10}, {x, y}}}}};
    };
    project->AddLayer("Region", 1, "", "RegionID", "RegionName", {square(1, "Everything", 0, 0)});
    std::vector<PolygonFeature> cells;
    for (int32_t i = 1; i <= 5000; ++i) {
      cells.push_back(square(i, "Cell " + std::to_string(i), 10.0 * (i % 100), 10.0 * (i / 100)));
    }
    project->AddLayer("Strata", 2, "Region", "CellID", "CellName", cells);
    for (int32_t d = 1; d <= 1000; ++d)
      project->AddDesign(d, "Design " + std::to_string(d), DesignText("Strata"));
    for (int32_t s = 1; s <= 10000; ++s)
      project->AddSurvey(s, "Survey " + std::to_string(s), 1, 1 + (s % 1000));
  }
  HeadlessPlatform platform;
  CModGlobal::SetProjectDatabase(GeoPackageProject::Open(path.string()));
  CPagSimulation page(platform);
  page.Initialize();
  if (page.StrataNum() != 5000) state.SkipWithError("the strata were not computed");
  for (auto _ : state) {
    page.SetStrataLayer("Region");
    page.SetStrataLayer("Strata");
    benchmark::DoNotOptimize(page.StrataNum());
  }
  CModGlobal::Clear();
  std::filesystem::remove(path);
}
BENCHMARK(BM_SelectLayerGeoPackage)->Unit(benchmark::kMillisecond);

// The project file of BM_InitializeGeoPackage: 10,000 surveys, 1,000 designs, 5,000 strata.
void WriteInitializeProject(const std::filesystem::path& path) {
  std::filesystem::remove(path);
  auto project = GeoPackageProject::Create(path.string());
  std::vector<PolygonFeature> cells;
  for (int32_t i = 1; i <= 5000; ++i) {
    const double x = 10.0 * (i % 100);
    const double y = 10.0 * (i / 100);
    cells.push_back(PolygonFeature{
        i, "Cell " + std::to_string(i), {{{{x, y}, {x + 10, y}, {x + 10, y + 10}, {x, y + 10}, {x, y}}}}});
  }
  project->AddLayer("Strata", 1, "", "CellID", "CellName", cells);
  for (int32_t d = 1; d <= 1000; ++d)
    project->AddDesign(d, "Design " + std::to_string(d), DesignText("Strata"));
  for (int32_t s = 1; s <= 10000; ++s)
    project->AddSurvey(s, "Survey " + std::to_string(s), 1, 1 + (s % 1000));
}

// Initialize on the same kind of project file, kept open as an editor keeps it: the project reads
// each table once and serves later pages from what it read until the file changes.
void BM_InitializeGeoPackage(benchmark::State& state) {
  const std::filesystem::path path = ScratchFile("zrsim-bench-simulation-init.gpkg");
  WriteInitializeProject(path);
  HeadlessPlatform platform;
  CModGlobal::SetProjectDatabase(GeoPackageProject::Open(path.string()));
  for (auto _ : state) {
    CPagSimulation page(platform);
    page.Initialize();
    if (page.StrataNum() != 5000) state.SkipWithError("the strata were not computed");
  }
  CModGlobal::Clear();
  std::filesystem::remove(path);
}
BENCHMARK(BM_InitializeGeoPackage)->Unit(benchmark::kMillisecond);

// The first Initialize after opening the file: every table read from the file.
void BM_OpenAndInitializeGeoPackage(benchmark::State& state) {
  const std::filesystem::path path = ScratchFile("zrsim-bench-simulation-open.gpkg");
  WriteInitializeProject(path);
  HeadlessPlatform platform;
  for (auto _ : state) {
    CModGlobal::SetProjectDatabase(GeoPackageProject::Open(path.string()));
    CPagSimulation page(platform);
    page.Initialize();
    if (page.StrataNum() != 5000) state.SkipWithError("the strata were not computed");
    CModGlobal::Clear();
  }
  std::filesystem::remove(path);
}
BENCHMARK(BM_OpenAndInitializeGeoPackage)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zrsimprp

BENCHMARK_MAIN();

// Timings of the Simulation page on a large project: filling the survey and design lists, choosing the
// first survey (which walks every survey and design and computes the strata), and switching layers.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "bench/CheckedGrowth.h"
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

// Identifiers of one width at every size, for the benchmarks that measure growth: numbered from 1, a
// project of 40,000 items has longer texts than one of 2,500 (too long for a string's inline buffer),
// which is another cost per item, not another growth.
constexpr int32_t kOneWidthFirstId = 100001;

MemoryProjectDatabase::LayerData Layer(const std::string& name, int32_t kind, const std::string& parent,
                                       int32_t features, int32_t first_id = 1) {
  MemoryProjectDatabase::LayerData layer;
  layer.name = name;
  layer.kind = kind;
  layer.parent = parent;
  layer.label_field = "Label";
  for (int32_t i = first_id; i < first_id + features; ++i) {
    layer.ids.emplace_back(i);
    layer.labels.emplace_back("Stratum " + std::to_string(i));
  }
  return layer;
}

// Surveys spread over four record groups and designs in one, unless `group_size` puts both in groups of
// that many records.
std::shared_ptr<MemoryProjectDatabase> Project(int32_t surveys, int32_t designs, int32_t strata,
                                               int32_t first_id = 1, int32_t group_size = 0) {
  auto db = std::make_shared<MemoryProjectDatabase>();
  db->AddLayer(Layer("Region", 1, "", 1));
  db->AddLayer(Layer("Strata", 0, "Region", strata, first_id));
  for (int32_t d = 0; d < designs; ++d) {
    const int32_t id = first_id + d;
    const auto group = static_cast<size_t>(group_size > 0 ? d / group_size : 0);
    db->AddDesign(id, "Design " + std::to_string(id), DesignText("Strata"), group);
  }
  for (int32_t s = 0; s < surveys; ++s) {
    const int32_t id = first_id + s;
    const auto group = static_cast<size_t>(group_size > 0 ? s / group_size : id % 4);
    db->AddSurvey(id, "Survey " + std::to_string(id), 1, first_id + (id % designs), group);
  }
  return db;
}

// A fresh page initialised on `project` in every iteration; a growth sweep starts each one cold
// (bench::StartCold).
enum class Start { kWarm, kCold };
void InitializeEveryIteration(benchmark::State& state, std::shared_ptr<MemoryProjectDatabase> project,
                              Start start = Start::kWarm) {
  HeadlessPlatform platform;
  CModGlobal::SetProjectDatabase(std::move(project));
  for (auto _ : state) {
    if (start == Start::kCold) bench::StartCold(state);
    CPagSimulation page(platform);
    page.Initialize();
    benchmark::DoNotOptimize(page.StrataNum());
  }
  CModGlobal::Clear();
}

// The brief's project: 10,000 surveys, 1,000 designs and a strata layer of 5,000 features.
void BM_InitializeLargeProject(benchmark::State& state) {
  InitializeEveryIteration(state, Project(10000, 1000, 5000));
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
  const auto surveys = static_cast<int32_t>(state.range(0));
  InitializeEveryIteration(state, Project(surveys, surveys / 10, 100, kOneWidthFirstId), Start::kCold);
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_InitializeBySurveys)->Apply(bench::CheckedGrowth)->Range(2500, 40000);

// Choosing another survey against a growing number of surveys and designs: finds the entry, walks the
// surveys for its design and computes the strata again; must grow linearly.
void BM_SelectSurveyBySurveys(benchmark::State& state) {
  HeadlessPlatform platform;
  const auto surveys = static_cast<int32_t>(state.range(0));
  CModGlobal::SetProjectDatabase(Project(surveys, surveys / 10, 100, kOneWidthFirstId));
  CPagSimulation page(platform);
  page.Initialize();
  int32_t survey = 0;
  for (auto _ : state) {
    survey = (survey + 7) % surveys;
    page.SetSurveyObjectID(std::to_string(kOneWidthFirstId + survey));
    benchmark::DoNotOptimize(page.StrataNum());
  }
  state.SetComplexityN(state.range(0));
  CModGlobal::Clear();
}
BENCHMARK(BM_SelectSurveyBySurveys)->Apply(bench::CheckedGrowth)->Range(2500, 40000);

// Surveys and designs in many groups of ten: the lists are filled group by group and must still grow
// linearly in the records, not in records times groups.
void BM_InitializeBySurveyGroups(benchmark::State& state) {
  const auto surveys = static_cast<int32_t>(state.range(0));
  InitializeEveryIteration(state, Project(surveys, surveys / 10, 100, kOneWidthFirstId, 10), Start::kCold);
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_InitializeBySurveyGroups)->Apply(bench::CheckedGrowth)->Range(2500, 40000);

// Computing the strata of a layer against its number of features: must grow linearly.
void BM_ComputeStrataByFeatures(benchmark::State& state) {
  HeadlessPlatform platform;
  const auto strata = static_cast<int32_t>(state.range(0));
  CModGlobal::SetProjectDatabase(Project(10, 10, strata, kOneWidthFirstId));
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
BENCHMARK(BM_ComputeStrataByFeatures)->Apply(bench::CheckedGrowth)->Range(1250, 20000);

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

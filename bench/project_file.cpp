// How loading a project grows with its size, for the in-memory host and for the project file: the
// Simulation page's Initialize against the number of surveys, designs and strata, and the Analyses
// page's against the number of data filters and model definitions. Every fit must come out O(N)
// (scripts/complexity_exponent.py gives the fitted exponent; it must stay at or below 1.05).
//
// The project-file benchmarks open the file afresh in every iteration, so they measure reading it,
// not the project's cache of what it read. Every iteration starts cold (bench::StartCold).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/CheckedGrowth.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagAnalyses/CPagAnalyses.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"

namespace zrsimprp {
namespace {

struct Sizes {
  int32_t surveys = 100;
  int32_t designs = 10;
  int32_t strata = 100;
  int32_t data_filters = 10;
  int32_t model_definitions = 10;
};

std::filesystem::path ScratchFile(const std::string& name) {
  const std::filesystem::path memory_backed("/dev/shm");
  std::error_code error;
  const bool in_memory = std::filesystem::is_directory(memory_backed, error);
  return (in_memory ? memory_backed : std::filesystem::temp_directory_path()) / name;
}

std::string Entry(const std::string& key, const std::string& value) {
  std::string text;
  std::vector<std::string> names{""};
  std::vector<std::string> values{""};
  DefinitionEntryCodec::Instance().AppendEntry(text, key, value, names, values, 0, 0, false);
  return text;
}

std::string DesignText() { return Entry("Sampler", "Line") + Entry("STRATUM LAYER", "Strata"); }

// Identifiers of one width at every size: numbered from 1, a project of 40,000 items has longer texts
// than one of 2,500 (too long for a string's inline buffer), which is another cost per item, not another
// growth. The strata layer's rows and every list's entries are then of one size whatever their number.
constexpr int32_t kFirstId = 100001;

std::shared_ptr<MemoryProjectDatabase> MemoryProject(const Sizes& sizes) {
  auto db = std::make_shared<MemoryProjectDatabase>();
  MemoryProjectDatabase::LayerData region;
  region.name = "Region";
  region.kind = 1;
  region.ids.emplace_back(int32_t{1});
  db->AddLayer(region);
  MemoryProjectDatabase::LayerData strata;
  strata.name = "Strata";
  strata.kind = 2;
  strata.parent = "Region";
  strata.label_field = "Label";
  for (int32_t i = kFirstId; i < kFirstId + sizes.strata; ++i) {
    strata.ids.emplace_back(i);
    strata.labels.emplace_back("Stratum " + std::to_string(i));
  }
  db->AddLayer(strata);
  for (int32_t d = kFirstId; d < kFirstId + sizes.designs; ++d) {
    db->AddDesign(d, "Design " + std::to_string(d), DesignText());
  }
  for (int32_t s = kFirstId; s < kFirstId + sizes.surveys; ++s) {
    db->AddSurvey(s, "Survey " + std::to_string(s), 1, kFirstId + (s % sizes.designs));
  }
  for (int32_t f = kFirstId; f < kFirstId + sizes.data_filters; ++f) {
    db->AddDataFilter(f, "Filter " + std::to_string(f));
  }
  for (int32_t m = kFirstId; m < kFirstId + sizes.model_definitions; ++m) {
    db->AddModelDefinition(m, "Model " + std::to_string(m), "MA", Entry("Engine", "MA"));
  }
  return db;
}

// Rows of one table, identifiers from kFirstId, written in one transaction, as a project that grew over
// time would hold them.
void InsertRows(GeoPackageProject& project, const std::string& sql, int32_t count,
                const std::function<void(SqliteStatement&, int32_t)>& bind) {
  project.Write([&] {
    SqliteStatement insert = project.Connection().Prepare(sql);
    for (int32_t i = kFirstId; i < kFirstId + count; ++i) {
      bind(insert, i);
      insert.Run();
      insert.Reset();
    }
  });
}

std::string ProjectFile(const std::string& name, const Sizes& sizes) {
  const std::filesystem::path path = ScratchFile("zrsim-bench-" + name + ".gpkg");
  std::filesystem::remove(path);
  auto project = GeoPackageProject::Create(path.string());
  auto square = [](int32_t id, double x, double y) {
    return PolygonFeature{id,
                          "Stratum " + std::to_string(id),
                          {{{{x, y}, {x + 10, y}, {x + 10, y + 10}, {x, y + 10}, {x, y}}}}};
  };
  project->AddLayer("Region", 1, "", "RegionID", "", {square(1, 0, 0)});
  std::vector<PolygonFeature> cells;
  for (int32_t i = 0; i < sizes.strata; ++i) {
    cells.push_back(square(kFirstId + i, 10.0 * (i % 200), 10.0 * (i / 200)));
  }
  project->AddLayer("Strata", 2, "Region", "StratumID", "Label", cells);
  const std::string design = DesignText();
  InsertRows(*project, "INSERT INTO zrsim_designs (id, name, definition) VALUES (?1, ?2, ?3)", sizes.designs,
             [&](SqliteStatement& row, int32_t i) {
               row.Bind(1, int64_t{i}).Bind(2, "Design " + std::to_string(i)).Bind(3, design);
             });
  InsertRows(*project, "INSERT INTO zrsim_surveys (id, name, status, design_id) VALUES (?1, ?2, 1, ?3)",
             sizes.surveys, [&](SqliteStatement& row, int32_t i) {
               row.Bind(1, int64_t{i}).Bind(2, "Survey " + std::to_string(i));
               row.Bind(3, int64_t{kFirstId + (i % sizes.designs)});
             });
  InsertRows(*project, "INSERT INTO zrsim_data_filters (id, name) VALUES (?1, ?2)", sizes.data_filters,
             [](SqliteStatement& row, int32_t i) {
               row.Bind(1, int64_t{i}).Bind(2, "Filter " + std::to_string(i));
             });
  const std::string model = Entry("Engine", "MA");
  InsertRows(*project,
             "INSERT INTO zrsim_model_definitions (id, name, engine, definition) VALUES (?1, ?2, 'MA', ?3)",
             sizes.model_definitions, [&](SqliteStatement& row, int32_t i) {
               row.Bind(1, int64_t{i}).Bind(2, "Model " + std::to_string(i)).Bind(3, model);
             });
  return path.string();
}

void InitializeSimulationPage(benchmark::State& state) {
  HeadlessPlatform platform;
  CPagSimulation page(platform);
  page.Initialize();
  if (page.StrataNum() == 0) state.SkipWithError("the strata were not computed");
}

void InitializeAnalysesPage(benchmark::State&) {
  HeadlessPlatform platform;
  CPagAnalyses page(platform);
  page.Initialize();
}

using PageLoad = void (*)(benchmark::State&);

void FromMemory(benchmark::State& state, const Sizes& sizes, PageLoad load) {
  CModGlobal::SetProjectDatabase(MemoryProject(sizes));
  for (auto _ : state) {
    bench::StartCold(state);
    load(state);
  }
  state.SetComplexityN(state.range(0));
  CModGlobal::Clear();
}

void FromProjectFile(benchmark::State& state, const std::string& name, const Sizes& sizes, PageLoad load) {
  const std::string path = ProjectFile(name, sizes);
  for (auto _ : state) {
    bench::StartCold(state);
    CModGlobal::SetProjectDatabase(GeoPackageProject::Open(path));
    load(state);
    CModGlobal::Clear();
  }
  state.SetComplexityN(state.range(0));
  std::filesystem::remove(path);
}

// The default sizes with one of them set to `n`.
Sizes With(int32_t Sizes::*count, int64_t n) {
  Sizes sizes;
  sizes.*count = static_cast<int32_t>(n);
  return sizes;
}
// Surveys come with a design for every ten.
Sizes WithSurveys(int64_t n) {
  Sizes sizes = With(&Sizes::surveys, n);
  sizes.designs = static_cast<int32_t>(n / 10);
  return sizes;
}

void BM_InitializeByDesigns(benchmark::State& state) {
  FromMemory(state, With(&Sizes::designs, state.range(0)), InitializeSimulationPage);
}
void BM_InitializeByStrata(benchmark::State& state) {
  FromMemory(state, With(&Sizes::strata, state.range(0)), InitializeSimulationPage);
}
void BM_AnalysesByDataFilters(benchmark::State& state) {
  FromMemory(state, With(&Sizes::data_filters, state.range(0)), InitializeAnalysesPage);
}
void BM_AnalysesByModelDefinitions(benchmark::State& state) {
  FromMemory(state, With(&Sizes::model_definitions, state.range(0)), InitializeAnalysesPage);
}
void BM_LoadGeoPackageBySurveys(benchmark::State& state) {
  FromProjectFile(state, "surveys", WithSurveys(state.range(0)), InitializeSimulationPage);
}
void BM_LoadGeoPackageByDesigns(benchmark::State& state) {
  FromProjectFile(state, "designs", With(&Sizes::designs, state.range(0)), InitializeSimulationPage);
}
void BM_LoadGeoPackageByStrata(benchmark::State& state) {
  FromProjectFile(state, "strata", With(&Sizes::strata, state.range(0)), InitializeSimulationPage);
}
void BM_LoadGeoPackageByDataFilters(benchmark::State& state) {
  FromProjectFile(state, "filters", With(&Sizes::data_filters, state.range(0)), InitializeAnalysesPage);
}
void BM_LoadGeoPackageByModelDefinitions(benchmark::State& state) {
  FromProjectFile(state, "models", With(&Sizes::model_definitions, state.range(0)), InitializeAnalysesPage);
}

#define ZRSIM_LINEAR_BENCHMARK(name) BENCHMARK(name)->Apply(bench::CheckedGrowth)->Range(2500, 40000)

ZRSIM_LINEAR_BENCHMARK(BM_InitializeByDesigns);
ZRSIM_LINEAR_BENCHMARK(BM_InitializeByStrata);
ZRSIM_LINEAR_BENCHMARK(BM_AnalysesByDataFilters);
ZRSIM_LINEAR_BENCHMARK(BM_AnalysesByModelDefinitions);
ZRSIM_LINEAR_BENCHMARK(BM_LoadGeoPackageBySurveys);
ZRSIM_LINEAR_BENCHMARK(BM_LoadGeoPackageByDesigns);
ZRSIM_LINEAR_BENCHMARK(BM_LoadGeoPackageByStrata);
ZRSIM_LINEAR_BENCHMARK(BM_LoadGeoPackageByDataFilters);
ZRSIM_LINEAR_BENCHMARK(BM_LoadGeoPackageByModelDefinitions);

}  // namespace
}  // namespace zrsimprp

BENCHMARK_MAIN();

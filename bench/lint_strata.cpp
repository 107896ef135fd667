// The lint of a definition on a layer of 5,000 strata (squares of 1,000 map units, 100 by 50), with a
// density and a population size per stratum, two hotspots, a grid spacing of 100 and a detection
// function: every check against the layer's polygons runs. BM_LintFreshProject reads the project
// (its lists and the layer's polygons) afresh in every iteration, as the editor's first check after
// opening does; BM_LintKnownProject reuses what was read, as `check --all` and the editor's later
// checks do. Both must stay under 50 ms.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/lint/DefinitionLint.h"
#include "zrsimprp/lint/ProjectFacts.h"

namespace {

constexpr int kColumns = 100;
constexpr int kRows = 50;
constexpr double kSide = 1000;

std::shared_ptr<zrsimprp::MemoryProjectDatabase> Project() {
  auto project = std::make_shared<zrsimprp::MemoryProjectDatabase>();
  project->AddDesign(1, "Lines",
                     "Engine=DES;\r\nType=Parallel /Spacing=500;\r\n\"STRATUM LAYER\"=Blocks;\r\n"
                     "Truncation=200;\r\n");
  project->AddSurvey(1, "Survey", 1, 1);
  project->AddLayer({"Region", 1, "", "ID", "Name", {zrsimprp::Variant(int32_t{1})}, {}});
  zrsimprp::MemoryProjectDatabase::LayerData blocks{"Blocks", 2, "Region", "ID", "Name", {}, {}};
  std::vector<std::vector<zrsimprp::MapPolygon>> shapes;
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      const int id = row * kColumns + column + 1;
      blocks.ids.push_back(zrsimprp::Variant(static_cast<int32_t>(id)));
      blocks.labels.push_back(zrsimprp::Variant("Block " + std::to_string(id)));
      const double x = column * kSide;
      const double y = row * kSide;
      zrsimprp::MapPolygon square;
      square.rings.push_back({{x, y}, {x + kSide, y}, {x + kSide, y + kSide}, {x, y + kSide}});
      shapes.push_back({square});
    }
  }
  project->AddLayer(blocks);
  project->SetLayerShapes("Blocks", shapes);
  project->AddDataFilter(1, "All");
  project->AddModelDefinition(1, "HN", "MRDS", "Method=ds;");
  return project;
}

std::string Definition() {
  std::string densities;
  std::string sizes;
  for (int i = 0; i < kColumns * kRows; ++i) {
    densities += (i ? "," : "") + std::to_string(1 + i % 7);
    sizes += (i ? "," : "") + std::to_string(10 + i % 13);
  }
  return "Engine=SIM;\r\nTransects=Survey /ObjectID=1;\r\nStrataLayer=Blocks;\r\nReps=10;\r\n"
         "Density=Uniform /Densities=" +
         densities +
         " /GridSpace=100;\r\n"
         "Hotspot=\"\" /X,Y,Sig,Amp=25000,12000,3000,4;\r\nHotspot=\"\" /X,Y,Sig,Amp=-9000,12000,300,2;\r\n"
         "PopSize=\"Fixed N\" /Values=" +
         sizes +
         ";\r\nClusters=False;\r\nDetectability=\"Hazard Rate\" /ParamByStratum=False;\r\n"
         "DetFuncParam=\"\" /Scale=60;\r\nDetFuncParam=\"\" /Shape=3;\r\nAnalyse=True;\r\nDataFilter=1;\r\n"
         "ModelDef=1;\r\nModelSelection=AIC;\r\nParallelProcessing=False /cores=\"max cores\";\r\n";
}

void BM_LintFreshProject(benchmark::State& state) {
  const auto project = Project();
  const std::string text = Definition();
  std::size_t findings = 0;
  for (auto _ : state) {
    zrsimprp::ProjectFacts facts(project);
    findings = zrsimprp::DefinitionLint(&facts).Check(text).findings.size();
    benchmark::DoNotOptimize(findings);
  }
  // The hotspot off the region is the one finding.
  if (findings != 1) state.SkipWithError("the lint did not find the hotspot off the region");
  state.counters["strata"] = kColumns * kRows;
}

void BM_LintKnownProject(benchmark::State& state) {
  const auto project = Project();
  const std::string text = Definition();
  zrsimprp::ProjectFacts facts(project);
  std::size_t findings = zrsimprp::DefinitionLint(&facts).Check(text).findings.size();
  for (auto _ : state) {
    findings = zrsimprp::DefinitionLint(&facts).Check(text).findings.size();
    benchmark::DoNotOptimize(findings);
  }
  if (findings != 1) state.SkipWithError("the lint did not find the hotspot off the region");
  state.counters["strata"] = kColumns * kRows;
}

BENCHMARK(BM_LintFreshProject)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LintKnownProject)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

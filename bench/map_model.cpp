// Building the density map model: the sample project, a 5,000-stratum layer, a density edit at 5,000
// strata (the grid is reused), and the growth with the number of polygons and of grid cells.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>

#include "bench/MapBenchLayers.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/map/DensityMapBuilder.h"

namespace zrsimprp {
namespace {

// The sample simulation's map, from the project file as the editor reads it.
void BM_SampleProjectMap(benchmark::State& state) {
  const std::string path =
      (std::filesystem::temp_directory_path() / ("zrsim-bench-map-" + std::to_string(::getpid()) + ".gpkg"))
          .string();
  SampleProject::Create(path);
  auto project = GeoPackageProject::Open(path);
  HeadlessPlatform platform;
  SIMProperties control(platform);
  control.SetProjectDatabase(project);
  control.SetDefinition(project->SimulationDefinition("Sample simulation"));
  control.Initialize();
  MapLayers layers;
  MapLayers::LoadRegion(layers, project, control.pagSimulation.cboRegionLayer.Text());
  for (auto _ : state) {
    const DensityMapInputs inputs = DensityMapInputs::FromPage(control.pagDensity);
    benchmark::DoNotOptimize(DensityMapBuilder::Build(layers, inputs));
  }
  std::filesystem::remove(path);
}
BENCHMARK(BM_SampleProjectMap)->Unit(benchmark::kMicrosecond);

// Reading the sample's strata from the project file (once per layer chosen).
void BM_SampleProjectGeometryRead(benchmark::State& state) {
  const std::string path =
      (std::filesystem::temp_directory_path() / ("zrsim-bench-geom-" + std::to_string(::getpid()) + ".gpkg"))
          .string();
  SampleProject::Create(path);
  auto project = GeoPackageProject::Open(path);
  for (auto _ : state) benchmark::DoNotOptimize(project->LayerGeometry("Strata"));
  std::filesystem::remove(path);
}
BENCHMARK(BM_SampleProjectGeometryRead)->Unit(benchmark::kMicrosecond);

// 5,000 strata, grid spacing 100 (1,000 x 500 = 500,000 cells): the first map of a layer.
void BM_FiveThousandStrataFirstMap(benchmark::State& state) {
  const MapLayers layers = map_bench::TiledLayers(5000);
  const DensityMapInputs inputs = map_bench::UniformFor(layers, "100");
  for (auto _ : state) benchmark::DoNotOptimize(DensityMapBuilder::Build(layers, inputs));
}
BENCHMARK(BM_FiveThousandStrataFirstMap)->Unit(benchmark::kMillisecond);

// The same after a person types a new density: the grid is the previous model's.
void BM_FiveThousandStrataDensityEdit(benchmark::State& state) {
  const MapLayers layers = map_bench::TiledLayers(5000);
  DensityMapInputs inputs = map_bench::UniformFor(layers, "100");
  const MapModel previous = DensityMapBuilder::Build(layers, inputs);
  int edit = 0;
  for (auto _ : state) {
    inputs.densities[2500] = std::to_string(++edit % 9 + 1);
    benchmark::DoNotOptimize(DensityMapBuilder::Build(layers, inputs, &previous));
  }
}
BENCHMARK(BM_FiveThousandStrataDensityEdit)->Unit(benchmark::kMillisecond);

// A formula edit at 5,000 strata: muParser at each of the cells inside the strata.
void BM_FiveThousandStrataFormulaEdit(benchmark::State& state) {
  const MapLayers layers = map_bench::TiledLayers(5000);
  DensityMapInputs inputs = map_bench::UniformFor(layers, "100");
  inputs.description = "Simple";
  inputs.formula = "= 1 + x*0.00002 + y*0.00003";
  const MapModel previous = DensityMapBuilder::Build(layers, inputs);
  for (auto _ : state) benchmark::DoNotOptimize(DensityMapBuilder::Build(layers, inputs, &previous));
}
BENCHMARK(BM_FiveThousandStrataFormulaEdit)->Unit(benchmark::kMillisecond);

// Growth with the number of polygons at a fixed number of cells per polygon (100 x 100 m cells).
void BM_FirstMapByPolygons(benchmark::State& state) {
  const MapLayers layers = map_bench::TiledLayers(static_cast<int>(state.range(0)));
  const DensityMapInputs inputs = map_bench::UniformFor(layers, "100");
  for (auto _ : state) benchmark::DoNotOptimize(DensityMapBuilder::Build(layers, inputs));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_FirstMapByPolygons)
    ->RangeMultiplier(2)
    ->Range(500, 8000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

// Growth with the number of grid cells over the same 5,000 strata (the spacing shrinks).
void BM_FirstMapByCells(benchmark::State& state) {
  const MapLayers layers = map_bench::TiledLayers(5000);
  // range(0) thousand cells over the 100 km x 50 km region.
  const double spacing = std::sqrt(100000.0 * 50000.0 / (state.range(0) * 1000.0));
  const DensityMapInputs inputs = map_bench::UniformFor(layers, std::to_string(spacing));
  for (auto _ : state) benchmark::DoNotOptimize(DensityMapBuilder::Build(layers, inputs));
  state.SetComplexityN(state.range(0) * 1000);
}
BENCHMARK(BM_FirstMapByCells)
    ->RangeMultiplier(2)
    ->Range(125, 2000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zrsimprp

BENCHMARK_MAIN();

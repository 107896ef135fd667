// Importing a person's strata: a Shapefile of N polygons in degrees, reprojected to the UTM zone of its
// centre and dissolved into its study region, in one transaction of a new project. The Shapefile is
// written once per size by ogr2ogr (gdal-bin) from GeoJSON, outside the timing.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "bench/CheckedGrowth.h"
#include "projectdb/EmptyProject.h"
#include "projectdb/GeoPackageProject.h"

namespace zrsimprp {
namespace {

std::filesystem::path Folder() {
  static const std::filesystem::path folder = [] {
    auto path = std::filesystem::temp_directory_path() / "zrsim-bench-import";
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
    return path;
  }();
  return folder;
}

// A square grid of `count` cells of 0.001 degrees (about 80 m by 110 m) near 15 E, 45 N, each cell a
// stratum with an identifier and a name.
std::string GridGeoJson(int64_t count) {
  const int64_t side = static_cast<int64_t>(std::ceil(std::sqrt(static_cast<double>(count))));
  std::string text = "{\"type\":\"FeatureCollection\",\"features\":[";
  for (int64_t i = 0; i < count; ++i) {
    const double x = 15.0 + 0.001 * static_cast<double>(i % side);
    const double y = 45.0 + 0.001 * static_cast<double>(i / side);
    const auto point = [](double px, double py) {
      return "[" + std::to_string(px) + "," + std::to_string(py) + "]";
    };
    text += std::string(i ? "," : "") +
            "{\"type\":\"Feature\",\"properties\":{\"CELL\":" + std::to_string(i + 1) + ",\"NAME\":\"Cell " +
            std::to_string(i + 1) + "\"},\"geometry\":{\"type\":\"Polygon\",\"coordinates\":[[" +
            point(x, y) + "," + point(x + 0.001, y) + "," + point(x + 0.001, y + 0.001) + "," +
            point(x, y + 0.001) + "," + point(x, y) + "]]}}";
  }
  return text + "]}";
}

// The Shapefile of `count` cells, written on first use.
std::string Shapefile(int64_t count) {
  static std::map<int64_t, std::string> written;
  auto found = written.find(count);
  if (found != written.end()) return found->second;
  const std::string json = (Folder() / ("grid" + std::to_string(count) + ".geojson")).string();
  std::ofstream(json) << GridGeoJson(count);
  const std::string shapefile = (Folder() / ("grid" + std::to_string(count) + ".shp")).string();
  const std::string command = "ogr2ogr -f 'ESRI Shapefile' '" + shapefile + "' '" + json + "'";
  if (std::system(command.c_str()) != 0) return {};
  return written[count] = shapefile;
}

void BM_ImportShapefileReprojectedAndDissolved(benchmark::State& state) {
  const std::string source = Shapefile(state.range(0));
  if (source.empty()) {
    state.SkipWithError("ogr2ogr (gdal-bin) could not write the Shapefile");
    return;
  }
  LayerImportOptions options;
  options.from = source;
  options.id_field = "CELL";
  options.label_field = "NAME";
  options.name = "Cells";
  options.kind = 2;
  options.make_region = "Study area";
  options.to_crs = "auto";
  const std::string project = (Folder() / "project.gpkg").string();
  for (auto _ : state) {
    bench::StartCold(state);
    state.PauseTiming();
    std::filesystem::remove(project);
    EmptyProject::Create(project);
    auto opened = GeoPackageProject::Open(project);
    state.ResumeTiming();
    const LayerImportOutcome outcome = opened->ImportLayer(options);
    benchmark::DoNotOptimize(outcome.count);
  }
  state.SetComplexityN(state.range(0));
  state.counters["polygons"] = static_cast<double>(state.range(0));
}

BENCHMARK(BM_ImportShapefileReprojectedAndDissolved)->Apply(bench::CheckedGrowth)->Range(1250, 10000);

}  // namespace
}  // namespace zrsimprp

BENCHMARK_MAIN();

// Writes the sample project to the path given on the command line; with --strata N, a project whose
// study region is cut into N strata and whose simulation gives every stratum its own density,
// population size and detection function parameters (for start-up and memory measurements).
#include <cmath>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/RuntimeError.h"

namespace {

constexpr int kMaxStrata = 100000;
constexpr int32_t kRegionKind = 1;
constexpr int32_t kStrataKind = 2;
constexpr double kCellSize = 100;

const char* const kUsage = "usage: zrsim-make-sample [--strata N] <file.gpkg>\n";

std::string DefinitionEntry(const std::string& key, const std::string& value,
                            std::vector<std::string> names = {}, std::vector<std::string> values = {}) {
  const int32_t count = static_cast<int32_t>(names.size());
  if (names.empty()) {
    names.emplace_back();
    values.emplace_back();
  }
  std::string text;
  zrsimprp::DefinitionEntryCodec::Instance().AppendEntry(text, key, value, names, values, count, 0, true);
  return text;
}

// "first,second,...": one value per stratum made by `value_of(stratum)`.
template <class ValueOf>
std::string PerStratum(int strata, ValueOf value_of) {
  std::string list;
  for (int stratum = 1; stratum <= strata; ++stratum) {
    if (stratum > 1) list += ',';
    list += value_of(stratum);
  }
  return list;
}

zrsimprp::PolygonRing Square(double x, double y) {
  return {{x, y}, {x + kCellSize, y}, {x + kCellSize, y + kCellSize}, {x, y + kCellSize}, {x, y}};
}

std::string StrataSimulation(int strata) {
  const auto number = [](int stratum) { return std::to_string(stratum); };
  return DefinitionEntry("Engine", "SIM") + DefinitionEntry("Transects", "Survey", {"ObjectID"}, {"1"}) +
         DefinitionEntry("StrataLayer", "Strata") + DefinitionEntry("Reps", "10") +
         DefinitionEntry("Density", "Uniform", {"Densities", "GridSpace"},
                         {PerStratum(strata, [&](int s) { return number(s) + ".5"; }), "100"}) +
         DefinitionEntry("PopSize", "Fixed N", {"Values"},
                         {PerStratum(strata, [&](int s) { return number(s % 500 + 1) + "00"; })}) +
         DefinitionEntry("Clusters", "False") +
         DefinitionEntry("Detectability", "Hazard Rate", {"ParamByStratum"}, {"True"}) +
         DefinitionEntry("DetFuncParam", "", {"Scale"},
                         {PerStratum(strata, [&](int s) { return number(s % 90 + 10); })}) +
         DefinitionEntry("DetFuncParam", "", {"Shape"}, {PerStratum(strata, [](int) { return "2.5"; })}) +
         DefinitionEntry("Analyse", "False") +
         DefinitionEntry("ParallelProcessing", "False", {"cores"}, {"1"});
}

// A square study region of `strata` square cells, row by row, each cell one stratum.
void CreateStrataProject(const std::string& path, int strata) {
  const std::string partial = path + ".partial";
  std::error_code ignored;
  std::filesystem::remove(partial, ignored);
  {
    auto project = zrsimprp::GeoPackageProject::Create(partial);
    const int side = static_cast<int>(std::ceil(std::sqrt(static_cast<double>(strata))));
    const double extent = side * kCellSize;
    project->AddLayer(
        "Study region", kRegionKind, "", "RegionID", "RegionName",
        {{1, "Study region", {{{{0, 0}, {extent, 0}, {extent, extent}, {0, extent}, {0, 0}}}}}});
    std::vector<zrsimprp::PolygonFeature> cells;
    cells.reserve(static_cast<size_t>(strata));
    for (int i = 0; i < strata; ++i) {
      cells.push_back({i + 1,
                       "Stratum " + std::to_string(i + 1),
                       {{Square((i % side) * kCellSize, (i / side) * kCellSize)}}});
    }
    project->AddLayer("Strata", kStrataKind, "Study region", "StratumID", "StratumName", cells);
    project->AddDesign(1, "Parallel lines",
                       DefinitionEntry("Engine", "DES") + DefinitionEntry("STRATUM LAYER", "Strata"));
    project->AddSurvey(1, "Parallel lines survey", 1, 1);
    project->AddDataFilter(1, "Default data filter");
    project->AddModelDefinition(1, "CDS half-normal", "CDS", DefinitionEntry("Engine", "CDS"));
    project->SaveSimulationDefinition("Strata simulation", StrataSimulation(strata));
  }
  std::error_code error;
  std::filesystem::rename(partial, path, error);
  if (error) {
    std::filesystem::remove(partial, ignored);
    throw zrsimprp::RuntimeError(
        zrsimprp::error_number::kInvalidProcedureCall, "zrsim-make-sample",
        "The project could not be written to '" + path + "': " + error.message() + ".");
  }
}

// The number after --strata, or 0 (after a message) when it is not a whole number from 1 to kMaxStrata.
int StrataCount(const std::string& text) {
  size_t used = 0;
  long value = 0;
  try {
    value = std::stol(text, &used);
  } catch (const std::exception&) {
    used = 0;
  }
  if (used != text.size() || value < 1 || value > kMaxStrata) {
    std::cerr << "zrsim-make-sample: --strata needs a whole number from 1 to " << kMaxStrata << ", not '"
              << text << "'\n";
    return 0;
  }
  return static_cast<int>(value);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  int strata = 0;
  std::string path;
  if (words.size() == 1) {
    path = words[0];
  } else if (words.size() == 3 && words[0] == "--strata") {
    strata = StrataCount(words[1]);
    if (strata == 0) return 2;
    path = words[2];
  } else {
    std::cerr << kUsage;
    return 2;
  }
  try {
    if (strata == 0) {
      zrsimprp::SampleProject::Create(path);
    } else {
      CreateStrataProject(path, strata);
    }
  } catch (const zrsimprp::RuntimeError& error) {
    std::cerr << "zrsim-make-sample: " << error.description << "\n";
    return 1;
  }
  return 0;
}

#include "projectdb/SampleProject.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

// Builds a definition text entry by entry through the codec, so the sample always reads back.
class DefinitionBuilder {
 public:
  DefinitionBuilder& Add(const std::string& key, const std::string& value,
                         std::vector<std::string> names = {}, std::vector<std::string> values = {}) {
    const int32_t count = static_cast<int32_t>(names.size());
    if (names.empty()) {
      names.emplace_back();
      values.emplace_back();
    }
    DefinitionEntryCodec::Instance().AppendEntry(text_, key, value, names, values, count, 0, true);
    return *this;
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

constexpr int32_t kRegionKind = 1;
constexpr int32_t kStrataKind = 2;

PolygonRing Rectangle(double x0, double y0, double x1, double y1) {
  return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}};
}

// A 3 km by 2 km study region cut into three horizontal strata; the central stratum has an island
// (a hole) that is not surveyed, and the southern one a detached part, so both ring kinds appear.
void AddLayers(GeoPackageProject& project) {
  PolygonFeature region{1, "Study region", {{Rectangle(0, 0, 3000, 2000)}}};
  project.AddLayer("Study region", kRegionKind, "", "RegionID", "RegionName", {region});
  std::vector<PolygonFeature> strata = {
      {1, "North", {{Rectangle(0, 1400, 3000, 2000)}}},
      {2, "Central", {{Rectangle(0, 600, 3000, 1400), Rectangle(1300, 900, 1700, 1100)}}},
      {3, "South", {{Rectangle(0, 0, 3000, 600)}, {Rectangle(3100, 100, 3300, 300)}}},
  };
  project.AddLayer("Strata", kStrataKind, "Study region", "StratumID", "StratumName", strata);
}

std::string DesignText(const std::string& type, const std::string& spacing) {
  return DefinitionBuilder()
      .Add("Engine", "DES")
      .Add("Type", type, {"Spacing"}, {spacing})
      .Add("STRATUM LAYER", "Strata")
      .Add("Truncation", "200")
      .Text();
}

void AddRecords(GeoPackageProject& project) {
  project.AddDesign(1, "Systematic parallel lines", DesignText("Parallel", "500"));
  project.AddDesign(2, "Equal-spaced zigzag", DesignText("Zigzag", "400"));
  project.AddSurvey(1, "Parallel lines A", 1, 1);
  project.AddSurvey(2, "Zigzag survey", 1, 2);
  project.AddSurvey(3, "Parallel lines B", 1, 1);
  project.AddSurvey(4, "Draft lines (not generated)", 0, 2);
  project.AddDataFilter(1, "Default data filter");
  project.AddDataFilter(2, "Truncate at 150 m");
  project.AddDataFilter(3, "Group sizes up to 10");
  project.AddModelDefinition(
      1, "MRDS half-normal (ds)", "MRDS",
      DefinitionBuilder().Add("Engine", "MRDS").Add("Method", "ds").Add("Key", "hn").Text());
  project.AddModelDefinition(
      2, "MRDS independent observers (io)", "MRDS",
      DefinitionBuilder().Add("Engine", "MRDS").Add("Method", "io").Add("Key", "hn").Text());
  project.AddModelDefinition(3, "MA hazard-rate", "MA",
                             DefinitionBuilder().Add("Engine", "MA").Add("Key", "hr").Text());
  project.AddModelDefinition(4, "DSM smooth of x and y", "DSM",
                             DefinitionBuilder().Add("Engine", "DSM").Add("Formula", "s(x,y)").Text());
  project.AddModelDefinition(
      5, "CDS half-normal cosine", "CDS",
      DefinitionBuilder().Add("Engine", "CDS").Add("Key", "hn").Add("Adjustment", "cos").Text());
}

std::string SimulationText() {
  return DefinitionBuilder()
      .Add("Engine", "SIM")
      .Add("Transects", "Survey", {"ObjectID"}, {"3"})
      .Add("StrataLayer", "Strata")
      .Add("Reps", "25")
      .Add("Density", "Uniform", {"Densities", "GridSpace"}, {"2.5,1.5,3", "100"})
      .Add("Hotspot", "", {"X,Y,Sig,Amp"}, {"800,1700,150,4"})
      .Add("Hotspot", "", {"X,Y,Sig,Amp"}, {"2200,300,200,2.5"})
      .Add("PopSize", "Fixed N", {"Values"}, {"400,250,350"})
      .Add("Clusters", "True", {"Distribution", "param"}, {"Poisson", "3"})
      .Add("CategoricalCov", "sex", {"categories", "prob"}, {"male,female", "0.5,0.5"})
      .Add("ContinuousCov", "size", {"distribution", "param"}, {"Normal", "10,2"})
      .Add("Detectability", "Hazard Rate", {"ParamByStratum"}, {"False"})
      .Add("DetFuncParam", "", {"Scale"}, {"60"})
      .Add("DetFuncParam", "", {"Shape"}, {"3"})
      .Add("Analyse", "True")
      .Add("DataFilter", "2")
      .Add("ModelDef", "1")
      .Add("ModelSelection", "AIC")
      .Add("ParallelProcessing", "True", {"cores"}, {"2"})
      .Text();
}

std::string DefaultSimulationText() {
  return DefinitionBuilder()
      .Add("Engine", "SIM")
      .Add("Transects", "Survey", {"ObjectID"}, {"1"})
      .Add("StrataLayer", "Strata")
      .Add("Reps", "1")
      .Add("Density", "Uniform", {"Densities", "GridSpace"}, {"1,1,1", "100"})
      .Add("PopSize", "Fixed N", {"Values"}, {"100,100,100"})
      .Add("Clusters", "False")
      .Add("Detectability", "Half-Normal", {"ParamByStratum"}, {"False"})
      .Add("DetFuncParam", "", {"Scale"}, {"50"})
      .Add("Analyse", "True")
      .Add("DataFilter", "1")
      .Add("ModelDef", "1")
      .Add("ModelSelection", "AIC")
      .Add("ParallelProcessing", "False", {"cores"}, {"max cores"})
      .Text();
}

}  // namespace

void SampleProject::Create(const std::string& path) {
  // Written next to the target and renamed into place, so a reader never sees half a sample.
  const std::string partial = path + ".partial";
  std::error_code ignored;
  std::filesystem::remove(partial, ignored);
  {
    std::shared_ptr<GeoPackageProject> project = GeoPackageProject::Create(partial);
    AddLayers(*project);
    AddRecords(*project);
    project->SaveSimulationDefinition("Sample simulation", SimulationText());
    project->SetEngineDefault("SIM", DefaultSimulationText());
  }
  std::error_code error;
  std::filesystem::rename(partial, path, error);
  if (error) {
    std::filesystem::remove(partial, ignored);
    throw RuntimeError(error_number::kInvalidProcedureCall, "SampleProject",
                       "The sample project could not be written to '" + path + "': " + error.message() + ".");
  }
}

}  // namespace zrsimprp

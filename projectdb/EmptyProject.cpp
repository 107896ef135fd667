#include "projectdb/EmptyProject.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/ProjectChecks.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

void Append(std::string& text, const std::string& key, const std::string& value,
            std::vector<std::string> names = {}, std::vector<std::string> values = {}) {
  const int32_t count = static_cast<int32_t>(names.size());
  if (names.empty()) {
    names.emplace_back();
    values.emplace_back();
  }
  DefinitionEntryCodec::Instance().AppendEntry(text, key, value, names, values, count, 0, true);
}

}  // namespace

std::string EmptyProject::DefaultSimulationDefinition() {
  std::string text;
  Append(text, entry_key::kEngine, "SIM");
  Append(text, entry_key::kReps, "1");
  Append(text, entry_key::kDensity, "Uniform", {"Densities", "GridSpace"}, {"1", "100"});
  Append(text, entry_key::kPopSize, "Fixed N", {"Values"}, {"100"});
  Append(text, entry_key::kClusters, "False");
  Append(text, entry_key::kDetectability, "Half-Normal", {"ParamByStratum"}, {"False"});
  Append(text, entry_key::kDetFuncParam, "", {"Scale"}, {"50"});
  Append(text, entry_key::kAnalyse, "False");
  Append(text, entry_key::kModelSelection, "AIC");
  Append(text, entry_key::kParallelProcessing, "False", {"cores"}, {"max cores"});
  return text;
}

void EmptyProject::Create(const std::string& path) {
  std::error_code error;
  if (std::filesystem::exists(path, error)) {
    ProjectChecks::Refuse("'" + path + "' already exists; a new project is never written over a file.");
  }
  // Written next to the target and renamed into place, so a reader never sees half a project.
  const std::string partial = path + ".partial";
  std::error_code ignored;
  std::filesystem::remove(partial, ignored);
  try {
    std::shared_ptr<GeoPackageProject> project = GeoPackageProject::Create(partial);
    project->SetEngineDefault("SIM", DefaultSimulationDefinition());
  } catch (...) {
    std::filesystem::remove(partial, ignored);
    throw;
  }
  std::filesystem::rename(partial, path, error);
  if (error) {
    std::filesystem::remove(partial, ignored);
    ProjectChecks::Refuse("The project could not be written to '" + path + "': " + error.message() + ".");
  }
}

}  // namespace zrsimprp

// Opens arbitrary bytes as a project file and, when that succeeds, exercises every host operation the
// control and the editor use. Failures must be RuntimeErrors; anything else (a crash, a hang, a
// sanitizer report) is a bug.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/RuntimeError.h"

namespace {

using zrsimprp::RuntimeError;
using zrsimprp::Variant;

// Enough to walk a real project; a file claiming more is cut short rather than walked for long.
constexpr size_t kMostItems = 64;

std::string ScratchPath() {
  return (std::filesystem::temp_directory_path() /
          ("zrsim-projectdb-fuzz-" + std::to_string(getpid()) + ".gpkg"))
      .string();
}

void RemoveScratch(const std::string& path) {
  std::error_code ignored;
  for (const char* suffix : {"", "-journal", "-wal", "-shm"}) std::filesystem::remove(path + suffix, ignored);
}

template <class Body>
void Try(Body&& body) {
  try {
    body();
  } catch (const RuntimeError&) {
  }
}

void WalkLayer(zrsimprp::LayerCatalogue& catalogue, const std::string& name) {
  Try([&] {
    auto layer = catalogue.LayerByName(name);
    layer->Name();
    layer->Kind();
    Try([&] { layer->Parent("")->Name(); });
    std::string fields;
    Try([&] {
      auto table = layer->AttributeTable();
      fields = table->IDField()->Name();
      auto label = table->LabelField();
      if (label) fields += "," + label->Name();
    });
    if (fields.empty()) return;
    auto rows = layer->GetRows(fields, 0, 1);
    if (!rows) return;
    const std::vector<Variant>& ids = rows->front();
    for (size_t i = 0; i < ids.size() && i < kMostItems; ++i) Try([&] { layer->FeatureByID(ids[i]); });
  });
}

void WalkSettings(zrsimprp::GeoPackageProject& project) {
  Try([&] {
    auto settings = project.Settings();
    Try([&] { settings->ReadSetting(1, 3, "Analysis", "PropertyTabLastUsed", Variant(true)); });
    Try([&] { settings->ReadSetting(0, 2, "SIMProperties", "CurrentTab", Variant(int16_t{0})); });
    const Variant values[] = {Variant(),           Variant(true),
                              Variant(int16_t{2}), Variant(int32_t{-1}),
                              Variant(0.5),        Variant(std::string("General"))};
    for (const Variant& value : values) {
      Try([&] { settings->WriteSetting(0, 0, "SIMProperties", "CurrentDFTab", value); });
      Try([&] { settings->ReadSetting(0, 0, "SIMProperties", "CurrentDFTab", Variant()); });
    }
  });
}

void WalkRecords(zrsimprp::GeoPackageProject& project, zrsimprp::LayerCatalogue& catalogue) {
  Try([&] {
    for (const auto& group : project.DesignGroups()) {
      for (const auto& design : group->Records()) {
        design->ID();
        design->Name();
        WalkLayer(catalogue, zrsimprp::DefinitionEntryCodec::Instance().EntryValue(design->DefinitionText(),
                                                                                   "STRATUM LAYER"));
      }
    }
  });
  Try([&] {
    for (const auto& group : project.SurveyGroups()) {
      for (const auto& survey : group->Records()) {
        survey->ID();
        survey->Name();
        survey->Status();
        survey->DesignID();
      }
    }
  });
  int32_t a = 0, b = 0;
  std::string s;
  Try([&] {
    for (const auto& filter : project.DataFilters()) filter->ItemValues(a, b, s);
  });
  Try([&] {
    for (const auto& model : project.ModelDefinitions()) {
      model->ItemValues(a, b, s);
      zrsimprp::DefinitionEntryCodec::Instance().EntryValue(model->DefinitionText(), "Method");
      model->EngineName();
    }
  });
}

void WalkSimulations(zrsimprp::GeoPackageProject& project) {
  Try([&] {
    const std::vector<std::string> names = project.SimulationNames();
    for (size_t i = 0; i < names.size() && i < kMostItems; ++i) {
      Try([&] { project.SimulationDefinition(names[i]); });
    }
    if (!names.empty()) Try([&] { project.SaveSimulationDefinition(names.front(), ""); });
  });
  Try([&] { project.SaveSimulationDefinition("Fuzz", "Engine=SIM;\r\nReps=2;\r\n"); });
  Try([&] { project.SimulationDefinition("Fuzz"); });
  Try([&] { project.EngineDefaults()->DefaultDefinition("SIM"); });
}

void Walk(zrsimprp::GeoPackageProject& project) {
  auto catalogue = project.Companion();
  Try([&] {
    const auto layers = project.Layers();
    for (size_t i = 0; i < layers.size() && i < kMostItems; ++i) WalkLayer(*catalogue, layers[i].name);
  });
  WalkLayer(*catalogue, "Strata");
  WalkSettings(project);
  WalkRecords(project, *catalogue);
  WalkSimulations(project);
}

// With an empty corpus folder the fuzzer would start from nothing; a real project is a far better start.
void SeedEmptyCorpus(const std::string& folder) {
  std::error_code error;
  if (!std::filesystem::is_directory(folder, error) || !std::filesystem::is_empty(folder, error)) return;
  const std::string path = ScratchPath() + ".seed";
  try {
    zrsimprp::SampleProject::Create(path);
    std::filesystem::copy_file(path, std::filesystem::path(folder) / "sample-project.gpkg", error);
  } catch (const RuntimeError&) {
  }
  RemoveScratch(path);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  for (int i = 1; i < *argc; ++i) {
    const std::string argument = (*argv)[i];
    if (!argument.empty() && argument[0] != '-') {
      SeedEmptyCorpus(argument);
      break;
    }
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = ScratchPath();
  RemoveScratch(path);
  {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  }
  zrsimprp::GeoPackageProject::OpenOptions options;
  options.statement_step_limit = 2'000'000;
  options.busy_timeout_ms = 0;
  try {
    auto project = zrsimprp::GeoPackageProject::Open(path, options);
    Walk(*project);
  } catch (const RuntimeError&) {
  }
  RemoveScratch(path);
  return 0;
}

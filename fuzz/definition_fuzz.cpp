// Feeds arbitrary definition texts to the control on a small project: load, rebuild, check, and walk
// every outer tab and both inner tabs. Nothing may crash, hang or leak an exception; a rebuilt text
// read by a fresh control must settle on a text that rebuilds to itself.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace {

using zrsimprp::CModGlobal;
using zrsimprp::HeadlessPlatform;
using zrsimprp::MemoryProjectDatabase;
using zrsimprp::RuntimeError;
using zrsimprp::SIMProperties;
using zrsimprp::Variant;

// Longer texts add nothing the short ones do not reach, and keep each run well under a millisecond.
constexpr size_t kMaxInputSize = 64 * 1024;
// The in-memory project logs every setting the control writes; a fresh project now and then keeps
// the fuzzer's memory flat over millions of runs.
constexpr int kRunsPerProject = 20000;

void Check(bool condition) {
  if (!condition) std::abort();
}

Variant Text(const char* text) { return Variant(std::string(text)); }

std::shared_ptr<MemoryProjectDatabase> BuildProject() {
  auto project = std::make_shared<MemoryProjectDatabase>();
  project->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  // A key with a blank must be quoted; this one is not, so choosing survey 2 fails to list layers.
  project->AddDesign(11, "Zigzags", "STRATUM LAYER=Strata;");
  project->AddDesign(12, "Points", "\"STRATUM LAYER\"=Region;", 1);
  project->AddSurvey(1, "Line survey", 1, 10);
  project->AddSurvey(2, "Zigzag survey", 1, 11);
  project->AddSurvey(3, "Retired survey", 0, 10);
  project->AddSurvey(4, "Point survey", 1, 12, 1);

  MemoryProjectDatabase::LayerData region;
  region.name = "Region";
  region.kind = 1;
  region.ids = {Variant(int32_t{1})};
  project->AddLayer(region);

  MemoryProjectDatabase::LayerData strata;
  strata.name = "Strata";
  strata.kind = 3;
  strata.parent = "Region";
  strata.label_field = "Label";
  strata.ids = {Variant(int32_t{1}), Variant(int32_t{2}), Variant(int32_t{3})};
  strata.labels = {Text("North"), Text("Middle"), Text("South")};
  project->AddLayer(strata);

  project->AddDataFilter(5, "All data");
  project->AddDataFilter(6, "Truncated");
  project->AddModelDefinition(7, "HN model", "MRDS", "Estimator=HN;");
  project->AddModelDefinition(8, "HR model", "MA", "Estimator=HR;");
  project->SetDefaultDefinition("SIM", Text("Engine=SIM;Reps=1;"));
  // The tab the control opens on must not depend on what an earlier input left in the settings.
  project->SetSetting("Analysis", "PropertyTabLastUsed", Variant(false));
  return project;
}

void UseProject() {
  static int runs = 0;
  if (runs++ % kRunsPerProject == 0) CModGlobal::SetProjectDatabase(BuildProject());
}

// Sets, loads and rebuilds; "" when the rebuild failed or loading raised.
std::string Normalize(const std::string& text) {
  HeadlessPlatform platform;
  SIMProperties control(platform);
  control.SetDefinition(text);
  try {
    control.Initialize();
  } catch (const RuntimeError&) {
    return std::string();
  }
  return control.Definition();
}

void WalkTabs(SIMProperties& control) {
  for (int tab = 0; tab <= 5; ++tab) control.tapSimulationDefinition.SetCurrentTab(tab);
  control.tapSimulationDefinition.SetCurrentTab(2);
  control.tabsPopulationDescription.UserClickTab(2);
  control.tabsPopulationDescription.UserClickTab(1);
  control.tapSimulationDefinition.SetCurrentTab(0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > kMaxInputSize) return -1;
  UseProject();
  const std::string input(reinterpret_cast<const char*>(data), size);

  HeadlessPlatform platform;
  SIMProperties control(platform);
  control.SetDefinition(input);
  bool loaded = true;
  try {
    control.Initialize();
  } catch (const RuntimeError&) {
    loaded = false;
  }
  const std::string written = control.Definition();
  (void)control.IsValid();
  WalkTabs(control);
  (void)control.Definition();

  // A first rebuild may still move: an identifier that names no record picks the first one, and a
  // design box left blank writes an empty identifier. What it writes must be stable from then on.
  if (loaded && !written.empty()) {
    const std::string second = Normalize(written);
    Check(!second.empty());
    Check(Normalize(second) == second);
  }
  return 0;
}

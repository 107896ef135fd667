// Feeds arbitrary definition texts to the control on a small project: load, rebuild, check, and walk
// every outer tab and both inner tabs. Nothing may crash, hang or leak an exception, and a rebuilt
// text read by a fresh control must rebuild to itself (see the end of LLVMFuzzerTestOneInput for
// when exactly).
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

// True when a routine of the control or of a page showed the internal-error report.
bool Reported(const HeadlessPlatform& platform) {
  for (const HeadlessPlatform::Message& message : platform.Messages()) {
    if (message.icon == zrsimprp::MessageIcon::Critical) return true;
  }
  return false;
}

struct Rebuilt {
  std::string text;  // "" when the rebuild failed or loading raised
  bool reported = false;
};

// Sets, loads and rebuilds a text on a fresh control.
Rebuilt Normalize(const std::string& text) {
  HeadlessPlatform platform;
  SIMProperties control(platform);
  control.SetDefinition(text);
  Rebuilt rebuilt;
  try {
    control.Initialize();
    rebuilt.text = control.Definition();
  } catch (const RuntimeError&) {
    rebuilt.text.clear();
  }
  rebuilt.reported = Reported(platform);
  return rebuilt;
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
  const bool load_reported = Reported(platform);
  (void)control.IsValid();
  WalkTabs(control);
  (void)control.Definition();

  if (!loaded || written.empty()) return 0;
  // A text that loaded without a report, and whose rebuilt text loads without one too, rebuilds to
  // itself. A report while reading leaves the entries after the failing one unread, so the second
  // text may differ: a "Hazard Rate" function whose shape was never given writes Shape="", which
  // reading refuses (no value to split), and the entries after it fall back to the page defaults.
  const Rebuilt second = Normalize(written);
  Check(!second.text.empty());
  if (!load_reported && !second.reported) Check(second.text == written);
  // However the first text was read, the second one is settled: reading it fails (or not) at the
  // same entry every time and leaves the pages as they were written.
  Check(Normalize(second.text).text == second.text);
  return 0;
}

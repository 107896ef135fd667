#include "zrsimprp/control/SIMProperties.h"

#include <utility>

#include "zrsimprp/entries/DefinitionReader.h"
#include "zrsimprp/entries/DefinitionWriter.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {
namespace {

constexpr const char* kModule = "SIM";
constexpr int32_t kObjectNotSet = 91;

constexpr int kTabSimulation = 0;
constexpr int kTabDensity = 1;
constexpr int kTabPopulation = 2;
constexpr int kTabDetectability = 3;
constexpr int kTabAnalysis = 4;
constexpr int kTabMisc = 5;

constexpr const char* kGeneralKey = "General";
constexpr const char* kCovariatesKey = "Covariates";

}  // namespace

SIMProperties::SIMProperties(Platform& platform)
    : pagSimulation(platform),
      pagDensity(platform),
      pagPopulation(platform),
      pagCovariates(platform),
      pagDetectability(platform),
      pagAnalyses(platform),
      pagMisc(platform),
      platform_(platform) {
  // The tab events set no trap of their own: an error in them belongs to whoever changed the tab,
  // Initialize's caller when the remembered tab is restored, the view's event boundary on a click.
  tapSimulationDefinition.SetBeforeChangeHandler([this](int& new_index) { BeforeTabChange(new_index); });
  tapSimulationDefinition.SetAfterChangeHandler([this](int new_index) { AfterTabChange(new_index); });
  tabsPopulationDescription.SetClickHandler([this](const std::string& key) { SelectInnerTab(key); });
  // The strip opens on "General", so its page is the one shown on the Population tab.
  pagCovariates.SetVisible(false);
}

// ---------------------------------------------------------------------------------------------------
// Public interface

std::string SIMProperties::Definition() {
  if (!platform_.UserMode()) return std::string();
  definition_ = DefinitionWriter(*this, platform_).Write();
  return definition_;
}

void SIMProperties::SetDefinition(const std::string& text) { definition_ = text; }

void SIMProperties::SetProjectDatabase(std::shared_ptr<ProjectDatabase> database) {
  CModGlobal::SetProjectDatabase(std::move(database));
}

bool SIMProperties::IsValid() {
  if (!platform_.UserMode()) return false;
  bool valid = false;
  RunTrapped(
      [&] {
        const bool on_population = tapSimulationDefinition.CurrentTab() == kTabPopulation;
        valid = ValidateShownPage(on_population ? tabsPopulationDescription.SelectedKey() : std::string());
      },
      [&](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, kModule, "IsValid", error);
        valid = false;
      });
  return valid;
}

void SIMProperties::Initialize() {
  // A form designer shows the control as it was created: nothing is loaded into the pages there.
  if (!platform_.UserMode()) return;
  pagSimulation.Initialize();
  pagDensity.Initialize();
  pagPopulation.Initialize();
  pagCovariates.Initialize();
  pagDetectability.Initialize();
  pagAnalyses.Initialize();
  // The Misc page keeps its design-time state until the definition sets it.
  DefinitionReader(*this, platform_).Read(definition_);
  RestoreTabs();
  StrataHandOver();
  initialized_ = true;
}

void SIMProperties::ResetDefinition() {
  if (!platform_.UserMode()) return;
  const std::shared_ptr<zrsimprp::EngineDefaults> defaults = RequireProjectDatabase()->EngineDefaults();
  if (!defaults) throw RuntimeError(kObjectNotSet, kModule, "The project supplies no engine defaults");
  definition_ = VariantToText(defaults->DefaultDefinition("SIM"));
  Initialize();
}

// ---------------------------------------------------------------------------------------------------
// Host objects

std::shared_ptr<ProjectDatabase> SIMProperties::RequireProjectDatabase() {
  std::shared_ptr<ProjectDatabase> database = CModGlobal::ProjectDatabase();
  if (!database) {
    throw RuntimeError(kObjectNotSet, kModule, "No project database has been given to the control");
  }
  return database;
}

std::shared_ptr<ProjectSettings> SIMProperties::FreshSettings() {
  std::shared_ptr<ProjectSettings> settings = RequireProjectDatabase()->Settings();
  if (!settings) throw RuntimeError(kObjectNotSet, kModule, "The project database supplies no settings");
  return settings;
}

// ---------------------------------------------------------------------------------------------------
// Strata

void SIMProperties::StrataHandOver() {
  // The strata are asked for afresh before each page, count first.
  {
    const int32_t count = pagSimulation.StrataNum();
    const std::vector<std::string> names = pagSimulation.StrataNames();
    pagDensity.UpdateFlxConstantDensity(count, names);
  }
  {
    const int32_t count = pagSimulation.StrataNum();
    const std::vector<std::string> names = pagSimulation.StrataNames();
    pagPopulation.UpdateFlxN(count, names);
  }
  {
    const int32_t count = pagSimulation.StrataNum();
    const std::vector<std::string> names = pagSimulation.StrataNames();
    pagDetectability.UpdateStrataInfo(count, names);
  }
}

// ---------------------------------------------------------------------------------------------------
// Tabs

void SIMProperties::RestoreTabs() {
  const std::shared_ptr<ProjectSettings> settings = FreshSettings();
  const Variant last_used = settings->ReadSetting(1, 3, "Analysis", "PropertyTabLastUsed", Variant(true));
  if (VariantToBoolean(last_used)) {
    const int16_t tab = VariantToInt16(
        settings->ReadSetting(0, 2, "SIMProperties", "CurrentTab", Variant(int16_t{kTabSimulation})));
    tapSimulationDefinition.SetCurrentTab(tab);
    const std::string default_key = tabsPopulationDescription.Key(1);
    const std::string key =
        VariantToText(settings->ReadSetting(0, 0, "SIMProperties", "CurrentDFTab", Variant(default_key)));
    SelectInnerTab(key);
  } else {
    tapSimulationDefinition.SetCurrentTab(kTabSimulation);
    SelectInnerTab(tabsPopulationDescription.Key(1));
  }
}

bool SIMProperties::ValidateShownPage(const std::string& inner_key) {
  std::string message;
  std::string word;
  bool valid = true;
  switch (tapSimulationDefinition.CurrentTab()) {
    case kTabSimulation:
      word = "Simulation";
      valid = pagSimulation.IsValid(message);
      break;
    case kTabDensity:
      word = "Density";
      valid = pagDensity.IsValid(message);
      break;
    case kTabPopulation:
      if (TextEquals(inner_key, kGeneralKey)) {
        word = kGeneralKey;
        valid = pagPopulation.IsValid(message);
      } else if (TextEquals(inner_key, kCovariatesKey)) {
        word = kCovariatesKey;
        valid = pagCovariates.IsValid(message);
      }
      break;
    case kTabDetectability:
      word = "Detectability";
      valid = pagDetectability.IsValid(message);
      break;
    case kTabAnalysis:
      word = "Analysis";
      valid = pagAnalyses.IsValid(message);
      break;
    case kTabMisc:
      word = "Misc";
      valid = pagMisc.IsValid(message);
      break;
    default:
      break;
  }
  if (valid) return true;
  platform_.MessageBox(message, "Error in options on " + word + " Page", MessageIcon::Exclamation);
  return false;
}

void SIMProperties::BeforeTabChange(int& new_index) {
  const int current = tapSimulationDefinition.CurrentTab();
  if (current == kTabPopulation) {
    const std::string key = tabsPopulationDescription.SelectedKey();
    if (!ValidateShownPage(key)) {
      new_index = -1;
      return;
    }
    if (TextEquals(key, kGeneralKey)) {
      pagPopulation.UpdateClusterInfo();
    } else if (TextEquals(key, kCovariatesKey)) {
      pagCovariates.UpdateCovariateInfo();
    }
  } else if (current == kTabSimulation) {
    if (!ValidateShownPage(std::string())) {
      new_index = -1;
      return;
    }
    StrataHandOver();
  } else if (!ValidateShownPage(std::string())) {
    new_index = -1;
    return;
  }

  if (new_index == kTabPopulation) {
    SelectInnerTab(tabsPopulationDescription.SelectedKey());
  } else if (new_index == kTabDetectability) {
    RefreshDetectability();
  }
}

void SIMProperties::RefreshDetectability() {
  const bool clusters = pagPopulation.Clusters();
  const double mean_cluster_size = pagPopulation.MeanClusterSize();
  const std::string continuous_cov = pagCovariates.ContinuousCov();
  const double mean_cov = pagCovariates.MeanConinuousCov();
  const std::vector<std::string> cat_cov_levels = pagCovariates.CatCovLevels();
  pagDetectability.UpdateFlxDetect(clusters, mean_cluster_size, continuous_cov, mean_cov, cat_cov_levels);
}

void SIMProperties::AfterTabChange(int new_index) {
  if (!initialized_ || !CModGlobal::ProjectDatabase()) return;
  FreshSettings()->WriteSetting(0, 2, "SIMProperties", "CurrentTab",
                                Variant(static_cast<int16_t>(new_index)));
}

void SIMProperties::SelectInnerTab(const std::string& key) {
  // The first key ever asked for stays the page that is checked before a switch and fallen back to.
  if (remembered_inner_key_.empty()) remembered_inner_key_ = key;
  const bool failed = !ValidateShownPage(remembered_inner_key_);

  int remembered_index = 0;
  const int tab_count = tabsPopulationDescription.TabCount();
  for (int i = 1; i <= tab_count; ++i) {
    const std::string& tab_key = tabsPopulationDescription.Key(i);
    if (TextEquals(tab_key, key) && tabsPopulationDescription.SelectedIndex() != i) {
      tabsPopulationDescription.Select(i);
    }
    if (TextEquals(tab_key, remembered_inner_key_)) remembered_index = i;
  }

  if (failed) {
    if (remembered_index != 0) tabsPopulationDescription.Select(remembered_index);
    return;
  }
  const std::string selected_key = tabsPopulationDescription.SelectedKey();
  ShowInnerPage(selected_key);
  if (initialized_) {
    FreshSettings()->WriteSetting(0, 0, "SIMProperties", "CurrentAOTab", Variant(selected_key));
  }
}

void SIMProperties::ShowInnerPage(const std::string& key) {
  if (TextEquals(key, kGeneralKey)) {
    pagPopulation.SetVisible(true);
    pagCovariates.SetVisible(false);
  } else if (TextEquals(key, kCovariatesKey)) {
    pagPopulation.SetVisible(false);
    pagCovariates.SetVisible(true);
  }
}

}  // namespace zrsimprp

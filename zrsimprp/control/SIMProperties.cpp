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
  RunTrapped([&] { valid = navigation_.ValidateShownPage(); },
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
  navigation_.RestoreTabs();
  StrataHandOver();
  navigation_.MarkInitialized();
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

// ---------------------------------------------------------------------------------------------------
// Strata

void SIMProperties::StrataHandOver() {
  PageTable::HandOver(PageTable::Get(PageId::kSimulation).on_leave, *this);
}

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// Everything a host needs to embed the control: the host interfaces, values, errors and controls.
#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/control/TabNavigation.h"
#include "zrsimprp/host/AttributeTable.h"
#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/Chart.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/Color.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/Control.h"
#include "zrsimprp/host/DataFilter.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"
#include "zrsimprp/host/DesignRecord.h"
#include "zrsimprp/host/EngineDefaults.h"
#include "zrsimprp/host/Feature.h"
#include "zrsimprp/host/Field.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/Layer.h"
#include "zrsimprp/host/LayerCatalogue.h"
#include "zrsimprp/host/ModelDefinition.h"
#include "zrsimprp/host/OptionGroup.h"
#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/host/Platform.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/host/ProjectSettings.h"
#include "zrsimprp/host/RecordGroup.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/host/SurveyRecord.h"
#include "zrsimprp/host/TabControl.h"
#include "zrsimprp/host/TabStrip.h"
#include "zrsimprp/host/TextBox.h"
#include "zrsimprp/host/Variant.h"
// The pages, one per tab (Population and Covariates share the Population tab).
#include "zrsimprp/pages/CPagAnalyses/CPagAnalyses.h"
#include "zrsimprp/pages/CPagDensity/CPagDensity.h"
#include "zrsimprp/pages/CPagDetectability/CPagDetectability.h"
#include "zrsimprp/pages/CPagMisc/CPagMisc.h"
#include "zrsimprp/pages/CPagPopulationCovars/CPagPopulationCovars.h"
#include "zrsimprp/pages/CPagPopulationDescription/CPagPopulationDescription.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"

namespace zrsimprp {

// The simulation properties control. The host hands it a project database and a definition text,
// calls Initialize, lets the user edit the six tabbed pages and reads the rebuilt text back from
// Definition. Everything runs on the host's user-interface thread.
class SIMProperties {
 public:
  explicit SIMProperties(Platform& platform);
  SIMProperties(const SIMProperties&) = delete;
  SIMProperties& operator=(const SIMProperties&) = delete;

  // In user mode the text is rebuilt from the pages (and kept); in design mode it is "".
  // A failure while rebuilding is reported and gives "".
  std::string Definition();
  // Only kept: nothing is read until Initialize.
  void SetDefinition(const std::string& text);
  // Becomes the process-wide project database of every instance of the control.
  void SetProjectDatabase(std::shared_ptr<ProjectDatabase> database);
  // Validates the page that is shown; false in design mode.
  bool IsValid();
  // Fills the pages, loads the kept definition, restores the remembered tabs and hands the strata
  // to the pages that depend on them. Errors reach the caller.
  void Initialize();
  // Loads the project's default definition for simulations, then initialises again.
  void ResetDefinition();

  // Captions and keys from the page table: the six outer tabs ("&Simulation" to "&Misc.") and the
  // "General" and "Covariates" tabs of the Population tab.
  TabControl tapSimulationDefinition{PageTable::TabCaptions()};
  TabStrip tabsPopulationDescription{PageTable::InnerTabs(PageTable::Get(PageId::kGeneral).tab)};

  CPagSimulation pagSimulation;
  CPagDensity pagDensity;
  CPagPopulationDescription pagPopulation;
  CPagPopulationCovars pagCovariates;
  CPagDetectability pagDetectability;
  CPagAnalyses pagAnalyses;
  CPagMisc pagMisc;

  // The Simulation page's strata to the Density, Population and Detectability pages, as on leaving
  // the Simulation tab (the page table's hand-over). Errors reach the caller.
  void StrataHandOver();

 private:
  // Raises a run-time error when the project database is missing.
  std::shared_ptr<ProjectDatabase> RequireProjectDatabase();

  Platform& platform_;
  std::string definition_;
  TabNavigation navigation_{*this, platform_};
};

}  // namespace zrsimprp

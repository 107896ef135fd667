#include "zrsim-editor/FindingNavigator.h"

#include <map>
#include <string>

#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsim_editor {

namespace {

using ControlOf = const zrsimprp::Control& (*)(zrsimprp::SIMProperties&);

// The controls findings point at, by the names the lint gives them.
const std::map<std::string, ControlOf>& Controls() {
  using zrsimprp::SIMProperties;
  static const std::map<std::string, ControlOf> kControls = {
      {"cboSurvey", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagSimulation.cboSurvey; }},
      {"cboDesign", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagSimulation.cboDesign; }},
      {"cboRegionLayer",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagSimulation.cboRegionLayer; }},
      {"txtReps", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagSimulation.txtReps; }},
      {"optDensity", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagDensity.optDensity; }},
      {"flxConstantDensity",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagDensity.flxConstantDensity; }},
      {"txtFormula", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagDensity.txtFormula; }},
      {"txtGridSpace",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagDensity.txtGridSpace; }},
      {"flxHotspots", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagDensity.flxHotspots; }},
      {"optNcalculation",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagPopulation.optNcalculation; }},
      {"flxN", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagPopulation.flxN; }},
      {"cboDistribution",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagPopulation.cboDistribution; }},
      {"flxClusterParam",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagPopulation.flxClusterParam; }},
      {"flxClusterSize",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagPopulation.flxClusterSize; }},
      {"flxCategoricalCov",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagCovariates.flxCategoricalCov; }},
      {"flxContinuousCov",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagCovariates.flxContinuousCov; }},
      {"cboDetect",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagDetectability.cboDetect; }},
      {"flxDetect",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagDetectability.flxDetect; }},
      {"chkStratify",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagDetectability.chkStratify; }},
      {"chkAnalyse", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagAnalyses.chkAnalyse; }},
      {"cboDataFilter",
       [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagAnalyses.cboDataFilter; }},
      {"cboModelDef", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagAnalyses.cboModelDef; }},
      {"cboCriteria", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagAnalyses.cboCriteria; }},
      {"chkParallel", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagMisc.chkParallel; }},
      {"txtCores", [](SIMProperties& c) -> const zrsimprp::Control& { return c.pagMisc.txtCores; }},
  };
  return kControls;
}

const zrsimprp::PageEntry* PageNamed(const std::string& word) {
  for (const zrsimprp::PageEntry& page : zrsimprp::PageTable::Pages()) {
    if (word == page.word) return &page;
  }
  return nullptr;
}

// The position (from 1) of the page's inner tab on its outer tab; 0 on a tab of its own.
int InnerPosition(const zrsimprp::PageEntry& page) {
  if (!zrsimprp::PageTable::HasInnerTabs(page.tab)) return 0;
  const auto count = static_cast<int>(zrsimprp::PageTable::InnerTabs(page.tab).size());
  for (int position = 1; position <= count; ++position) {
    if (zrsimprp::PageTable::AtPosition(page.tab, position) == &page) return position;
  }
  return 0;
}

}  // namespace

bool FindingNavigator::GoTo(zrsimprp::SIMPropertiesWidget& properties, const zrsimprp::Finding& finding) {
  const zrsimprp::PageEntry* page = PageNamed(finding.page);
  if (page == nullptr) return false;
  if (properties.CurrentOuterTab() != page->tab) properties.ShowOuterTab(page->tab);
  if (properties.CurrentOuterTab() != page->tab) return false;  // the shown page refused to be left
  const int inner = InnerPosition(*page);
  if (inner > 0 && properties.CurrentInnerTab() != inner) properties.ShowInnerTab(inner);
  const auto control = Controls().find(finding.control);
  if (control == Controls().end()) return true;
  const zrsimprp::Control* wanted = &control->second(properties.Control());
  for (zrsimprp::ControlBinder* binder : properties.findChildren<zrsimprp::ControlBinder*>()) {
    if (&binder->Model() == wanted && binder->Widget() != nullptr) {
      binder->Widget()->setFocus(Qt::OtherFocusReason);
      break;
    }
  }
  return true;
}

}  // namespace zrsim_editor

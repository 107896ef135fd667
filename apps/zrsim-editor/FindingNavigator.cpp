#include "zrsim-editor/FindingNavigator.h"

#include <QRadioButton>
#include <algorithm>
#include <map>
#include <optional>
#include <string>

#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/lint/Finding.h"
#include "zrsimprp/qt/binders/ControlBinder.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/binders/OptionGroupBinder.h"

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

// The row whose caption (first column) is `caption`, as the Detectability page names its parameters;
// -1 when there is none.
int RowCaptioned(const zrsimprp::Grid& grid, const std::string& caption) {
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    if (zrsimprp::TextEquals(std::string(zrsimprp::TrimBlanks(grid.TextMatrix(row, 0))), caption)) return row;
  }
  return -1;
}

// The cell of the grid a finding concerns: a hotspot's row, a parameter's row, and the column of the
// first stratum it names. False when it concerns no cell in particular or the cell is not there.
bool CellOf(const zrsimprp::Grid& grid, const zrsimprp::Finding& finding, int& row, int& col) {
  row = grid.FixedRows();
  col = grid.FixedCols();
  bool concerned = false;
  if (finding.place_kind == "hotspot") {
    // Hotspot 1 is the first row under the headings.
    const std::optional<double> number = zrsimprp::FiniteNumber(finding.place);
    if (!number || *number < 1) return false;
    row = grid.FixedRows() + static_cast<int>(*number) - 1;
    concerned = true;
  } else if (finding.place_kind == "parameter") {
    row = RowCaptioned(grid, finding.place);
    if (row < 0) return false;
    concerned = true;
  }
  if (!finding.strata.empty()) {
    col = grid.FixedCols() + static_cast<int>(finding.strata.front().index);
    concerned = true;
  }
  return concerned && row < grid.Rows() && col < grid.Cols();
}

// Moves the grid's cursor as a person's click on the cell would: the view's current cell changes and
// its binder hands that to the grid's own selection, so the page reacts as it does to a click.
void SelectCell(zrsimprp::GridBinder& binder, const zrsimprp::Grid& grid, const zrsimprp::Finding& finding) {
  int row = 0;
  int col = 0;
  if (!CellOf(grid, finding, row, col)) return;
  binder.RefreshNow();  // the view holds the grid's shape as it is now
  auto* view = qobject_cast<zrsimprp::GridView*>(binder.Widget());
  if (view == nullptr || view->model() == nullptr) return;
  const QModelIndex cell = view->model()->index(row, col);
  if (!cell.isValid()) return;
  view->setCurrentIndex(cell);
  view->scrollTo(cell);
}

// The option group's selected button (the first when none is on) takes the focus.
bool FocusOption(zrsimprp::SIMPropertiesWidget& properties, const zrsimprp::Control* wanted) {
  for (zrsimprp::OptionGroupBinder* binder : properties.findChildren<zrsimprp::OptionGroupBinder*>()) {
    if (&binder->Group() != wanted) continue;
    const int selected = std::max(binder->Group().Selected(), 0);
    if (QRadioButton* radio = binder->Radio(selected)) radio->setFocus(Qt::OtherFocusReason);
    return true;
  }
  return false;
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
  if (FocusOption(properties, wanted)) return true;
  for (zrsimprp::ControlBinder* binder : properties.findChildren<zrsimprp::ControlBinder*>()) {
    if (&binder->Model() == wanted && binder->Widget() != nullptr) {
      if (auto* grid = qobject_cast<zrsimprp::GridBinder*>(binder)) {
        SelectCell(*grid, static_cast<const zrsimprp::Grid&>(*wanted), finding);
      }
      binder->Widget()->setFocus(Qt::OtherFocusReason);
      break;
    }
  }
  return true;
}

}  // namespace zrsim_editor

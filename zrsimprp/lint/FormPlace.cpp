#include "zrsimprp/lint/FormPlace.h"

#include <string>

#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/lint/LintCodes.h"

namespace zrsimprp {

namespace {

struct Place {
  PageId page;
  const char* control;
};

bool Is(const std::string& text, const char* word) { return TextEquals(text, word); }

// The control that shows the entry's field ("" the entry's main value); false when no page shows it.
bool PlaceOf(const std::string& key, const std::string& field, Place& place) {
  if (Is(key, entry_key::kTransects) && Is(field, "Design"))
    place = {PageId::kSimulation, "cboDesign"};
  else if (Is(key, entry_key::kTransects))
    place = {PageId::kSimulation, "cboSurvey"};
  else if (Is(key, entry_key::kStrataLayer))
    place = {PageId::kSimulation, "cboRegionLayer"};
  else if (Is(key, entry_key::kReps))
    place = {PageId::kSimulation, "txtReps"};
  else if (Is(key, entry_key::kDensity) && Is(field, "GridSpace"))
    place = {PageId::kDensity, "txtGridSpace"};
  else if (Is(key, entry_key::kDensity) && Is(field, "Formula"))
    place = {PageId::kDensity, "txtFormula"};
  else if (Is(key, entry_key::kDensity) && Is(field, "Densities"))
    place = {PageId::kDensity, "flxConstantDensity"};
  else if (Is(key, entry_key::kDensity))
    place = {PageId::kDensity, "optDensity"};
  else if (Is(key, entry_key::kHotspot))
    place = {PageId::kDensity, "flxHotspots"};
  else if (Is(key, entry_key::kPopSize) && field.empty())
    place = {PageId::kGeneral, "optNcalculation"};
  else if (Is(key, entry_key::kPopSize))
    place = {PageId::kGeneral, "flxN"};
  else if (Is(key, entry_key::kClusters) && (Is(field, "size") || Is(field, "prob")))
    place = {PageId::kGeneral, "flxClusterSize"};
  else if (Is(key, entry_key::kClusters) && Is(field, "param"))
    place = {PageId::kGeneral, "flxClusterParam"};
  else if (Is(key, entry_key::kClusters))
    place = {PageId::kGeneral, "cboDistribution"};
  else if (Is(key, entry_key::kCategoricalCov))
    place = {PageId::kCovariates, "flxCategoricalCov"};
  else if (Is(key, entry_key::kContinuousCov))
    place = {PageId::kCovariates, "flxContinuousCov"};
  else if (Is(key, entry_key::kDetectability) && Is(field, "ParamByStratum"))
    place = {PageId::kDetectability, "chkStratify"};
  else if (Is(key, entry_key::kDetectability))
    place = {PageId::kDetectability, "cboDetect"};
  else if (Is(key, entry_key::kDetFuncParam))
    place = {PageId::kDetectability, "flxDetect"};
  else if (Is(key, entry_key::kAnalyse))
    place = {PageId::kAnalysis, "chkAnalyse"};
  else if (Is(key, entry_key::kDataFilter))
    place = {PageId::kAnalysis, "cboDataFilter"};
  else if (Is(key, entry_key::kModelDef))
    place = {PageId::kAnalysis, "cboModelDef"};
  else if (Is(key, entry_key::kModelSelection))
    place = {PageId::kAnalysis, "cboCriteria"};
  else if (Is(key, entry_key::kParallelProcessing) && field.empty())
    place = {PageId::kMisc, "chkParallel"};
  else if (Is(key, entry_key::kParallelProcessing))
    place = {PageId::kMisc, "txtCores"};
  else
    return false;
  return true;
}

}  // namespace

void FormPlace::Locate(Finding& finding) {
  if (!finding.page.empty()) return;
  Place place{PageId::kSimulation, ""};
  // A design that does not exist is chosen in the design list, not the survey list.
  const std::string field = finding.code == lint_code::kUnknownDesign ? "Design" : finding.field;
  if (!PlaceOf(finding.entry, field, place)) return;
  finding.page = PageTable::Get(place.page).word;
  finding.control = place.control;
}

}  // namespace zrsimprp

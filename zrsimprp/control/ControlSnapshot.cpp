#include "zrsimprp/control/ControlSnapshot.h"

#include "zrsimprp/control/SIMProperties.h"

namespace zrsimprp {
namespace {

void AddOptions(std::vector<Control*>& controls, OptionGroup& group) {
  controls.push_back(&group);
  for (int i = 0; i < group.Count(); ++i) controls.push_back(&group.Button(i));
}

void AddSimulation(std::vector<Control*>& out, CPagSimulation& page) {
  out.insert(out.end(), {&page.lalSurveyDesign, &page.cboDesign, &page.cboSurvey, &page.lalSimulationOptions,
                         &page.lblRegion, &page.cboRegionLayer, &page.lalReps, &page.labReps, &page.txtReps});
  AddOptions(out, page.optDesign);
}

void AddDensity(std::vector<Control*>& out, CPagDensity& page) {
  out.insert(out.end(),
             {&page.lalDensity, &page.flxConstantDensity, &page.txtFormula, &page.labLayer, &page.cboLayer,
              &page.labField, &page.cboField, &page.labGridSpace, &page.txtGridSpace, &page.chkHotspots,
              &page.flxHotspots, &page.cmdAddHotspot, &page.cmdSubHotspot});
  AddOptions(out, page.optDensity);
}

void AddPopulation(std::vector<Control*>& out, CPagPopulationDescription& page) {
  out.insert(out.end(), {&page.lalPopsize, &page.flxN, &page.lal, &page.chkClusters, &page.frmClusterSize,
                         &page.cboDistribution, &page.flxClusterParam, &page.flxClusterSize, &page.cmdAddSize,
                         &page.cmdSubSize});
  AddOptions(out, page.optNcalculation);
  AddOptions(out, page.optClusterDist);
}

void AddCovariates(std::vector<Control*>& out, CPagPopulationCovars& page) {
  out.insert(out.end(),
             {&page.flxContinuousCov, &page.cboDistribution, &page.txtContinuousCov, &page.chkContinuousCov,
              &page.cmdSubCovValue, &page.cmdAddCovValue, &page.flxCategoricalCov, &page.txtCategoricalCov,
              &page.chkCategoricalCov, &page.lalPopCovariates, &page.labDistribution, &page.labContinuousCov,
              &page.labCategoricalCov});
}

void AddDetectability(std::vector<Control*>& out, CPagDetectability& page) {
  out.insert(out.end(),
             {&page.chrtDetFunction, &page.frmDetFunc, &page.labDetFunc, &page.cmdDetFunc, &page.flxDetect,
              &page.chkStratify, &page.cboDetect, &page.lalDetectability, &page.labStrata, &page.labDetect});
}

void AddAnalyses(std::vector<Control*>& out, CPagAnalyses& page) {
  out.insert(out.end(), {&page.lalAnalyses, &page.chkAnalyse, &page.labDataFilter, &page.cboDataFilter,
                         &page.labModelDEf, &page.cboModelDef, &page.frmModel, &page.labAnalysisType,
                         &page.cboAnalysisType, &page.flxModels, &page.cmdAddModel, &page.cmdSubModel,
                         &page.labCriteria, &page.cboCriteria});
}

void AddMisc(std::vector<Control*>& out, CPagMisc& page) {
  out.insert(out.end(), {&page.frmCores, &page.labCores, &page.txtCores, &page.chkParallel, &page.lalMisc,
                         &page.labMaxCores});
}

}  // namespace

std::vector<Control*> ControlSnapshot::ControlsOf(SIMProperties& control) {
  std::vector<Control*> controls;
  AddSimulation(controls, control.pagSimulation);
  AddDensity(controls, control.pagDensity);
  AddPopulation(controls, control.pagPopulation);
  AddCovariates(controls, control.pagCovariates);
  AddDetectability(controls, control.pagDetectability);
  AddAnalyses(controls, control.pagAnalyses);
  AddMisc(controls, control.pagMisc);
  return controls;
}

std::vector<ComboBox*> ControlSnapshot::ListsOf(SIMProperties& control) {
  std::vector<ComboBox*> lists;
  for (Control* each : ControlsOf(control)) {
    if (auto* list = dynamic_cast<ComboBox*>(each)) lists.push_back(list);
  }
  return lists;
}

ControlSnapshot ControlSnapshot::Take(SIMProperties& control) {
  ControlSnapshot snapshot;
  for (const Control* each : ControlsOf(control)) snapshot.states_.push_back(each->SaveState());
  for (const ComboBox* list : ListsOf(control)) {
    snapshot.list_choices_.push_back(list->ListIndex());
  }
  return snapshot;
}

void ControlSnapshot::Restore(SIMProperties& control) const {
  const std::vector<ComboBox*> lists = ListsOf(control);
  for (size_t i = 0; i < lists.size() && i < list_choices_.size(); ++i) {
    ComboBox& list = *lists[i];
    const int choice = list_choices_[i];
    if (choice >= 0 && choice != list.ListIndex() && choice < list.ListCount()) list.SetListIndex(choice);
  }
  const std::vector<Control*> controls = ControlsOf(control);
  for (size_t i = 0; i < controls.size() && i < states_.size(); ++i) controls[i]->RestoreState(*states_[i]);
}

bool ControlSnapshot::operator==(const ControlSnapshot& other) const {
  if (states_.size() != other.states_.size() || list_choices_ != other.list_choices_) return false;
  for (size_t i = 0; i < states_.size(); ++i) {
    if (!states_[i]->Equals(*other.states_[i])) return false;
  }
  return true;
}

}  // namespace zrsimprp

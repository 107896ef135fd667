#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/DesignRecord.h"
#include "zrsimprp/host/KeyedList.h"
#include "zrsimprp/host/OptionGroup.h"
#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/host/Platform.h"
#include "zrsimprp/host/TextBox.h"

namespace zrsimprp {

// The "&Simulation" page: the survey (or design) the simulated surveys follow, the region/strata
// layer and its strata, and the number of repetitions. It is the page that knows the strata.
class CPagSimulation : public PageControl {
 public:
  explicit CPagSimulation(Platform& platform);

  LabelLine lalSurveyDesign{"Survey design"};
  OptionGroup optDesign{{"Select design (generate multiple surveys)", "Select single survey"}};
  ComboBox cboDesign{ComboBox::Style::kEditable, "Design"};
  ComboBox cboSurvey{ComboBox::Style::kEditable, "Survey"};
  LabelLine lalSimulationOptions{"Region selection"};
  Label lblRegion{"Region / strata layer:"};
  ComboBox cboRegionLayer{ComboBox::Style::kListOnly, ""};
  LabelLine lalReps{"Number of Repetitions"};
  Label labReps{"Repeat the simulation                   times"};
  TextBox txtReps{"1"};

  std::vector<std::string> StrataNames();
  int32_t StrataNum();
  std::string StrataLayer();
  void SetStrataLayer(const std::string& value);
  std::string Reps();
  void SetReps(const std::string& value);
  std::string TransectObjectType();
  void SetTransectObjectType(const std::string& value);
  std::string TransectObjectID();
  void SetDesignObjectID(const std::string& value);
  void SetSurveyObjectID(const std::string& value);
  bool IsValid(std::string& validation_string);
  void Initialize();

 private:
  // Tests reach the click behaviours in states that no selection can produce (an empty layer list).
  friend class CPagSimulationProbe;

  void OptDesignClick(int index);
  void CboSurveyClick();
  void CboDesignClick();
  void CboRegionLayerClick();
  void FillRegionLayers(double design_id);
  void ComputeStrata();
  void ClearStrata();
  void FillDesignList();
  void FillSurveyList();
  void SelectByKey(const KeyedList& list, ComboBox& combo, const std::string& value);
  std::string RepetitionsFailure();
  std::shared_ptr<DesignRecord> FindDesign(double design_id);
  void ShowListEnabled(ComboBox& combo, bool enabled);

  Platform& platform_;
  KeyedList design_list_;
  KeyedList survey_list_;
  bool stratified_ = false;
  int32_t strata_count_ = 0;
  // No value until the names are first dimensioned: writing an element before then fails.
  std::optional<std::vector<std::string>> strata_names_;
  std::string strata_ids_;
  bool has_label_ = false;
  std::string last_layer_;
};

}  // namespace zrsimprp

#pragma once

#include <string>

#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/KeyedList.h"
#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/host/Platform.h"

namespace zrsimprp {

// The "&Analysis" page: whether the simulated data are analysed, with which of the project's data
// filters and model definitions, and how one of several models would be chosen.
class CPagAnalyses : public PageControl {
 public:
  explicit CPagAnalyses(Platform& platform);

  LabelLine lalAnalyses{"Analyses"};
  CheckBox chkAnalyse{"Analyse simulated data"};
  Label labDataFilter{"Data Filter:"};
  ComboBox cboDataFilter{ComboBox::Style::kListOnly, ""};
  Label labModelDEf{"Model Definition:"};
  ComboBox cboModelDef{ComboBox::Style::kListOnly, ""};
  Frame frmModel{"Model definition"};
  Label labAnalysisType{"Type of model: "};
  ComboBox cboAnalysisType{ComboBox::Style::kEditable, "Model Type"};
  Grid flxModels{1, 2, 0, 1};
  Button cmdAddModel{"+"};
  Button cmdSubModel{"-"};
  Label labCriteria{"Select among multiple model using:"};
  ComboBox cboCriteria{ComboBox::Style::kListOnly, ""};

  std::string Analyse();
  void SetAnalyse(const std::string& value);
  std::string DataFilter();
  void SetDataFilter(const std::string& value);
  std::string ModelDef();
  void SetModelDef(const std::string& value);
  std::string Criteria();
  void SetCriteria(const std::string& value);
  bool IsValid(std::string& message);
  void Initialize();

 private:
  void ChkAnalyseClick();
  void CmdAddModelClick();
  void CmdSubModelClick();
  void FillDataFilters();
  void FillModelDefinitions();
  static std::string IdentifierOfName(const KeyedList& list, const std::string& name);
  static void SelectIdentifier(const KeyedList& list, ComboBox& combo, const std::string& value);
  void ShowListEnabled(ComboBox& combo, bool enabled);

  Platform& platform_;
  KeyedList filter_list_;
  KeyedList model_list_;
};

}  // namespace zrsimprp

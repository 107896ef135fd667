#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/Chart.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/host/Platform.h"

namespace zrsimprp {

// The "D&etectability" page: the key function of the detection model and a table of its parameters
// (rows: Scale, Shape and one row per covariate term; columns: the study area or each stratum), with a
// small preview of a detection function. Cells painted in the grid's fixed colour are out of use: that
// colour is the page's only record of which parameters apply.
class CPagDetectability : public PageControl {
 public:
  explicit CPagDetectability(Platform& platform);

  Chart chrtDetFunction;
  Frame frmDetFunc{"Detection Function"};
  Label labDetFunc{"This provides a guide to the average detectability of the population."};
  Button cmdDetFunc{"Display Detection Function"};
  Grid flxDetect{3, 2, 1, 1};
  CheckBox chkStratify{"Define parameters for each stratum"};
  ComboBox cboDetect{ComboBox::Style::kListOnly, "Detect"};
  LabelLine lalDetectability{"Detectability"};
  Label labStrata{""};
  Label labDetect{"Detection function model:"};

  std::string DetFunction();
  void SetDetFunction(const std::string& value);
  std::string ParamByStratum();
  void SetParamByStratum(const std::string& value);
  int16_t NumParams();
  std::string Param(int32_t index);
  void SetParam(int32_t index, const std::string& value);
  std::string ParamName(int32_t index);
  int16_t ParamRow(const std::string& param_name);
  bool IsValid(std::string& message);
  void Initialize();
  void UpdateFlxDetect(bool clusters, double mean_cluster_size, const std::string& continuous_cov,
                       double mean_cov, const std::vector<std::string>& cat_cov_levels);
  void UpdateStrataInfo(int32_t strata_num, const std::vector<std::string>& strata_names);

 private:
  void Load();
  void OnDetectClick();
  void OnStratifyClick();
  void OnDetFuncClick();
  void OnBeforeEdit(int row, int col, bool& cancel);
  void StratifyColumns();
  void UpdateClusterRow(bool clusters, double mean_cluster_size);
  int UpdateContinuousRow(int next, const std::string& continuous_cov, double mean_cov);
  void UpdateLevelRows(int next, const std::vector<std::string>& levels);
  void ReconcileLevelRows(int next, const std::vector<std::string>& levels);
  void MoveParamRow(int from, int to);
  void InsertParamRow(int row, const std::string& name);
  void FillParamRow(int row, const std::string& name);
  void DrawDetFunction(int32_t stratum);
  // Not used by the preview, which draws a fixed curve; kept for when it draws the table's functions.
  std::vector<double> StratumScale(int32_t column);

  Platform& platform_;
  int32_t strata_num_ = 1;
  std::vector<std::string> strata_names_{""};
  bool clusters_ = false;
  double mean_cluster_size_ = 0;
  std::string continuous_cov_;
  double mean_cov_ = 0;
  std::vector<std::string> cat_cov_levels_{""};
  int32_t current_stratum_ = 0;
};

}  // namespace zrsimprp

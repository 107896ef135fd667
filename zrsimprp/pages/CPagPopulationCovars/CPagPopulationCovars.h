#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/host/Platform.h"
#include "zrsimprp/host/TextBox.h"

namespace zrsimprp {

// The "Covariates" page of the Population tab: at most one categorical covariate (levels and their
// probabilities) and one continuous covariate (Normal or Log-Normal with mu and sigma) carried by
// every simulated animal. Its summary feeds the Detectability page's covariate rows.
class CPagPopulationCovars : public PageControl {
 public:
  explicit CPagPopulationCovars(Platform& platform);

  Grid flxContinuousCov;     // row 0 "mu", "sigma"; row 1 their values
  ComboBox cboDistribution;  // "Please Select", "Normal", "Log-Normal"
  TextBox txtContinuousCov;
  CheckBox chkContinuousCov;
  Button cmdSubCovValue;
  Button cmdAddCovValue;
  Grid flxCategoricalCov;  // row 0 level values, row 1 their probabilities
  TextBox txtCategoricalCov;
  CheckBox chkCategoricalCov;
  LabelLine lalPopCovariates;
  Label labDistribution;
  Label labContinuousCov;
  Label labCategoricalCov;

  std::string ContinuousCov();
  std::vector<std::string> CatCovLevels();
  // The name's missing "t" is part of the page's interface that the control calls; kept on purpose.
  double MeanConinuousCov();
  bool CategoricalCov();
  void SetCategoricalCov(bool value);
  bool ContinuousCovariate();
  void SetContinuousCovariate(bool value);
  std::string CategoricalName();
  void SetCategoricalName(const std::string& value);
  std::string ContinuousName();
  void SetContinuousName(const std::string& value);
  std::string ContinuousDist();
  void SetContinuousDist(const std::string& value);
  std::string CategoricalValues(int16_t row);
  void SetCategoricalLevels(const std::string& value);
  void SetCategoricalProbs(const std::string& value);
  std::string ContinuousParams();
  void SetContinuousParams(const std::string& value);
  bool IsValid(std::string& message);
  void Initialize();
  void UpdateCovariateInfo();

 private:
  void SetUpControls();
  void WireHandlers();

  void OnContinuousCovClick();
  void OnCategoricalCovClick();
  void OnAddCovValueClick();
  void OnSubCovValueClick();
  void OnDistributionClick();

  // The checks of IsValid; each returns the first failure's message, or "" when all pass.
  std::string CheckCategorical();
  std::string CheckCategoricalLevels();
  std::string CheckContinuous();
  void UpdateCategoricalLevels();
  void UpdateContinuousSummary();

  Platform& platform_;
  std::string continuous_cov_;
  std::vector<std::string> cat_cov_levels_{std::string()};
  double mean_continuous_cov_ = 0.0;
  std::string last_distribution_;
};

}  // namespace zrsimprp

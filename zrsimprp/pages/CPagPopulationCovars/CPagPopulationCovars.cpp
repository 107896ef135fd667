#include "zrsimprp/pages/CPagPopulationCovars/CPagPopulationCovars.h"

#include <cmath>

#include "zrsimprp/host/ComboTools.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DesignModeGuard.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {
namespace {

constexpr const char* kPleaseSelect = "Please Select";
constexpr const char* kNormal = "Normal";
constexpr const char* kLogNormal = "Log-Normal";

constexpr const char* kSource = "CPagPopulationCovars";

// Row `row`, columns 1 to last, joined by ","; a row outside the grid fails at its first cell, so a
// table without level columns reads as empty whatever the row.
std::string JoinDataRow(const Grid& grid, int row) {
  std::string text;
  for (int c = 1; c < grid.Cols(); ++c) {
    if (c > 1) text += ',';
    text += grid.TextMatrix(row, c);
  }
  return text;
}

// Piece k of a comma list into cell (row, k+1); a piece beyond the last column raises the grid's error.
void WritePiecesIntoRow(Grid& grid, int row, const std::string& value) {
  const std::vector<std::string> pieces = Split(value, ',');
  for (size_t k = 0; k < pieces.size(); ++k) grid.SetTextMatrix(row, static_cast<int>(k) + 1, pieces[k]);
}

bool IsMuSigmaDistribution(const std::string& distribution) {
  return TextEquals(distribution, kNormal) || TextEquals(distribution, kLogNormal);
}

}  // namespace

CPagPopulationCovars::CPagPopulationCovars(Platform& platform)
    : flxContinuousCov(2, 1, 1, 1),
      cboDistribution(ComboBox::Style::kListOnly),
      chkContinuousCov("Include continuous covariate"),
      cmdSubCovValue("-"),
      cmdAddCovValue("+"),
      flxCategoricalCov(2, 1, 0, 1),
      chkCategoricalCov("Include categorical covariate"),
      lalPopCovariates("Population Covariates"),
      labDistribution("Covariate distribution:"),
      labContinuousCov("Covariate Name:"),
      labCategoricalCov("Covariate name:"),
      platform_(platform) {
  WireHandlers();
  SetUpControls();
}

void CPagPopulationCovars::WireHandlers() {
  chkContinuousCov.SetClickHandler([this] { OnContinuousCovClick(); });
  chkCategoricalCov.SetClickHandler([this] { OnCategoricalCovClick(); });
  cmdAddCovValue.SetClickHandler([this] { OnAddCovValueClick(); });
  cmdSubCovValue.SetClickHandler([this] { OnSubCovValueClick(); });
  cboDistribution.SetClickHandler([this] { OnDistributionClick(); });
}

// What the form does when it loads.
void CPagPopulationCovars::SetUpControls() {
  continuous_cov_.clear();
  cat_cov_levels_.assign(1, std::string());
  last_distribution_.clear();

  labCategoricalCov.SetEnabled(false);
  txtCategoricalCov.SetEnabled(false);
  txtCategoricalCov.SetText("");
  cmdAddCovValue.SetEnabled(false);
  cmdSubCovValue.SetEnabled(false);

  labContinuousCov.SetEnabled(false);
  txtContinuousCov.SetEnabled(false);
  txtContinuousCov.SetText("");
  labDistribution.SetEnabled(false);

  cboDistribution.AddItem(kPleaseSelect);
  cboDistribution.AddItem(kNormal);
  cboDistribution.AddItem(kLogNormal);
  cboDistribution.SetListIndex(0);
  cboDistribution.SetEnabled(false);

  flxCategoricalCov.SetEditable(true);
  flxCategoricalCov.SetTextMatrix(0, 0, "Cov. Value:");
  flxCategoricalCov.SetTextMatrix(1, 0, "Probability:");
  flxCategoricalCov.SetColWidth(0, 1000);
  flxCategoricalCov.SetEnabled(false);

  flxContinuousCov.SetEditable(true);
  flxContinuousCov.SetTextMatrix(0, 0, "Parameter Name:");
  flxContinuousCov.SetTextMatrix(1, 0, "Parameter Value");
  flxContinuousCov.SetColWidth(0, 1500);
  flxContinuousCov.SetEnabled(false);
}

// ---------------------------------------------------------------------------------------------
// Properties

std::string CPagPopulationCovars::ContinuousCov() { return continuous_cov_; }

std::vector<std::string> CPagPopulationCovars::CatCovLevels() { return cat_cov_levels_; }

double CPagPopulationCovars::MeanConinuousCov() { return mean_continuous_cov_; }

bool CPagPopulationCovars::CategoricalCov() { return chkCategoricalCov.Value() == CheckBox::kChecked; }

void CPagPopulationCovars::SetCategoricalCov(bool value) {
  chkCategoricalCov.SetValue(value ? CheckBox::kChecked : CheckBox::kUnchecked);
}

bool CPagPopulationCovars::ContinuousCovariate() { return chkContinuousCov.Value() == CheckBox::kChecked; }

void CPagPopulationCovars::SetContinuousCovariate(bool value) {
  chkContinuousCov.SetValue(value ? CheckBox::kChecked : CheckBox::kUnchecked);
}

std::string CPagPopulationCovars::CategoricalName() { return txtCategoricalCov.Text(); }

void CPagPopulationCovars::SetCategoricalName(const std::string& value) { txtCategoricalCov.SetText(value); }

std::string CPagPopulationCovars::ContinuousName() { return txtContinuousCov.Text(); }

void CPagPopulationCovars::SetContinuousName(const std::string& value) { txtContinuousCov.SetText(value); }

std::string CPagPopulationCovars::ContinuousDist() { return cboDistribution.Text(); }

void CPagPopulationCovars::SetContinuousDist(const std::string& value) {
  RequireUserMode(platform_, kSource);
  ComboTools::SelectComboItemOrFirst(cboDistribution, value);
  OnDistributionClick();
}

std::string CPagPopulationCovars::CategoricalValues(int16_t row) {
  return JoinDataRow(flxCategoricalCov, row);
}

void CPagPopulationCovars::SetCategoricalLevels(const std::string& value) {
  const std::vector<std::string> pieces = Split(value, ',');
  for (size_t k = 0; k < pieces.size(); ++k) {
    OnAddCovValueClick();
    flxCategoricalCov.SetTextMatrix(0, static_cast<int>(k) + 1, pieces[k]);
  }
}

void CPagPopulationCovars::SetCategoricalProbs(const std::string& value) {
  WritePiecesIntoRow(flxCategoricalCov, 1, value);
}

std::string CPagPopulationCovars::ContinuousParams() { return JoinDataRow(flxContinuousCov, 1); }

void CPagPopulationCovars::SetContinuousParams(const std::string& value) {
  WritePiecesIntoRow(flxContinuousCov, 1, value);
}

// ---------------------------------------------------------------------------------------------
// Methods

void CPagPopulationCovars::Initialize() {
  RunTrapped(
      [this] {
        last_distribution_.clear();
        flxCategoricalCov.SetRows(2);
        flxCategoricalCov.SetCols(1);
        flxContinuousCov.SetRows(2);
        flxContinuousCov.SetCols(1);
        // The covariates are switched on by the definition only, never by the user.
        chkCategoricalCov.SetEnabled(false);
        chkContinuousCov.SetEnabled(false);
      },
      [this](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, "PagPopulationCovars",
                                               CModErrorHandling::kInitializeRoutine, error);
      });
}

void CPagPopulationCovars::UpdateCovariateInfo() {
  UpdateCategoricalLevels();
  UpdateContinuousSummary();
}

void CPagPopulationCovars::UpdateCategoricalLevels() {
  std::vector<std::string> levels;
  if (chkCategoricalCov.Value() == CheckBox::kChecked) {
    const std::string& name = txtCategoricalCov.Text();
    levels.reserve(static_cast<size_t>(flxCategoricalCov.Cols()));
    for (int c = 1; c < flxCategoricalCov.Cols(); ++c)
      levels.push_back(name + "." + flxCategoricalCov.TextMatrix(0, c));
  }
  // The Detectability page reads a single empty label as "no categorical covariate".
  if (levels.empty()) levels.emplace_back();
  cat_cov_levels_ = std::move(levels);
}

void CPagPopulationCovars::UpdateContinuousSummary() {
  if (chkContinuousCov.Value() != CheckBox::kChecked) {
    continuous_cov_.clear();
    mean_continuous_cov_ = 0.0;
    return;
  }
  continuous_cov_ = txtContinuousCov.Text();
  const std::string& distribution = cboDistribution.Text();
  double mean = 0.0;
  if (TextEquals(distribution, kNormal)) {
    mean = ToDouble(flxContinuousCov.TextMatrix(1, 1));
  } else if (TextEquals(distribution, kLogNormal)) {
    const double mu = ToDouble(flxContinuousCov.TextMatrix(1, 1));
    const double sigma = ToDouble(flxContinuousCov.TextMatrix(1, 2));
    mean = std::exp(mu + sigma * sigma / 2.0);
  }
  mean_continuous_cov_ = mean;
}

// ---------------------------------------------------------------------------------------------
// Validation

bool CPagPopulationCovars::IsValid(std::string& message) {
  ClearInvalid();
  return CModErrorHandling::RunPageChecks(message, [this] {
    std::string failure = CheckCategorical();
    if (failure.empty()) failure = CheckContinuous();
    return failure;
  });
}

std::string CPagPopulationCovars::CheckCategorical() {
  if (chkCategoricalCov.Value() != CheckBox::kChecked) return "";
  const std::string& name = txtCategoricalCov.Text();
  if (name.empty()) {
    MarkInvalid(txtCategoricalCov);
    return "You have not entered a name for the categorical covariate.  Please provide the covariate name.";
  }
  std::string name_message;
  if (!CModGlobal::CheckCovariateName(name, name_message)) {
    MarkInvalid(txtCategoricalCov);
    return name_message;
  }
  if (flxCategoricalCov.Cols() < 2) {
    MarkInvalid(flxCategoricalCov);
    return "You have not entered any information in the table relating to the categorical covariate.  Please "
           "create some additional columns and provide the required values.";
  }
  return CheckCategoricalLevels();
}

std::string CPagPopulationCovars::CheckCategoricalLevels() {
  // Kept exact on purpose: the probabilities must add up to 1 as typed, in column order.
  double sum = 0.0;
  for (int c = 1; c < flxCategoricalCov.Cols(); ++c) {
    const std::string column = std::to_string(c);
    const std::string& level = flxCategoricalCov.TextMatrix(0, c);
    if (level.empty()) {
      MarkInvalid(flxCategoricalCov, 0, c);
      return "There is a blank cell in the first row of column " + column +
             ".  Please enter a value in that cell.";
    }
    std::string name_message;
    if (!CModGlobal::CheckCovariateName(level, name_message)) {
      MarkInvalid(flxCategoricalCov, 0, c);
      return name_message;
    }
    const std::string& probability = flxCategoricalCov.TextMatrix(1, c);
    if (probability.empty()) {
      MarkInvalid(flxCategoricalCov, 1, c);
      return "There is a blank cell in the second row of column " + column +
             ".  Please enter a value in that cell.";
    }
    sum += ToDouble(probability);
  }
  if (sum != 1.0) MarkInvalid(flxCategoricalCov);
  if (sum != 1.0) return "The probabilities in the table do not sum to 1.  Please ammend these values.";
  return "";
}

std::string CPagPopulationCovars::CheckContinuous() {
  if (chkContinuousCov.Value() != CheckBox::kChecked) return "";
  const std::string& name = txtContinuousCov.Text();
  if (name.empty()) {
    MarkInvalid(txtContinuousCov);
    // The continuous covariate shares the categorical wording.
    return "You have not entered a name for the categorical covariate.  Please provide the covariate name.";
  }
  std::string name_message;
  if (!CModGlobal::CheckCovariateName(name, name_message)) {
    MarkInvalid(txtContinuousCov);
    return name_message;
  }
  if (!IsMuSigmaDistribution(cboDistribution.Text())) {
    MarkInvalid(cboDistribution);
    return "No parameter distribution has been specified.  Please select a distribution.";
  }
  if (flxContinuousCov.TextMatrix(1, 1).empty()) {
    MarkInvalid(flxContinuousCov, 1, 1);
    return "A value has not been specified for mu.  Please supply this value.";
  }
  const std::string& sigma = flxContinuousCov.TextMatrix(1, 2);
  if (sigma.empty() || ToDouble(sigma) <= 0) MarkInvalid(flxContinuousCov, 1, 2);
  if (sigma.empty()) return "A value has not been specified for sigma.  Please supply this value.";
  if (ToDouble(sigma) <= 0) {
    return "The value provided for sigma should be greater than 0.  Please ammend this value.";
  }
  return "";
}

// ---------------------------------------------------------------------------------------------
// Click handlers

void CPagPopulationCovars::OnContinuousCovClick() {
  const bool ticked = chkContinuousCov.Value() == CheckBox::kChecked;
  labContinuousCov.SetEnabled(ticked);
  txtContinuousCov.SetEnabled(ticked);
  labDistribution.SetEnabled(ticked);
  cboDistribution.SetEnabled(ticked);
  flxContinuousCov.SetEnabled(ticked);
}

void CPagPopulationCovars::OnCategoricalCovClick() {
  const bool ticked = chkCategoricalCov.Value() == CheckBox::kChecked;
  labCategoricalCov.SetEnabled(ticked);
  txtCategoricalCov.SetEnabled(ticked);
  flxCategoricalCov.SetEnabled(ticked);
  cmdAddCovValue.SetEnabled(ticked);
  cmdSubCovValue.SetEnabled(ticked && flxCategoricalCov.Cols() >= 2);
}

void CPagPopulationCovars::OnAddCovValueClick() {
  flxCategoricalCov.SetCols(flxCategoricalCov.Cols() + 1);
  const int last = flxCategoricalCov.Cols() - 1;
  flxCategoricalCov.SetCellAlignment(0, last, 1, last, CellAlignment::kCenterCenter);
  flxCategoricalCov.SetCellBackColor(0, last, 1, last, flxCategoricalCov.BackColor());
  if (flxCategoricalCov.Cols() > 1) cmdSubCovValue.SetEnabled(true);
}

void CPagPopulationCovars::OnSubCovValueClick() {
  if (flxCategoricalCov.Cols() >= 2) flxCategoricalCov.SetCols(flxCategoricalCov.Cols() - 1);
  cmdSubCovValue.SetEnabled(flxCategoricalCov.Cols() >= 2);
}

void CPagPopulationCovars::OnDistributionClick() {
  const std::string distribution = cboDistribution.Text();
  // Re-choosing the same entry keeps the parameter values already typed.
  if (TextEquals(distribution, last_distribution_)) return;
  if (IsMuSigmaDistribution(distribution)) {
    flxContinuousCov.SetCols(3);
    flxContinuousCov.SetTextMatrix(0, 1, "mu");
    flxContinuousCov.SetTextMatrix(0, 2, "sigma");
    flxContinuousCov.SetCellAlignment(0, 1, 1, 2, CellAlignment::kCenterCenter);
  } else if (TextEquals(distribution, kPleaseSelect)) {
    flxContinuousCov.SetCols(1);
  }
  last_distribution_ = distribution;
}

}  // namespace zrsimprp

#include "zrsimprp/pages/CPagDetectability/CPagDetectability.h"

#include <cmath>
#include <cstddef>
#include <unordered_set>

#include "zrsimprp/host/ComboTools.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DesignModeGuard.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/pages/CPagDetectability/StratumScaleCalculator.h"

namespace zrsimprp {
namespace {

constexpr const char* kModule = "PagDetectability";
constexpr const char* kSource = "CPagDetectability";
constexpr const char* kZero = "0";

RuntimeError SubscriptError() {
  return RuntimeError(error_number::kSubscriptOutOfRange, kSource, "Subscript out of range");
}

// Element `index` of a list handed in by the caller; a missing one is the subscript error.
const std::string& PartAt(const std::vector<std::string>& parts, int index) {
  if (index < 0 || static_cast<size_t>(index) >= parts.size()) throw SubscriptError();
  return parts[static_cast<size_t>(index)];
}

// A level list says "none" with one empty element; a list without element 0 is the subscript error.
bool HasLevels(const std::vector<std::string>& levels) { return !PartAt(levels, 0).empty(); }

}  // namespace

CPagDetectability::CPagDetectability(Platform& platform) : platform_(platform) {
  cboDetect.SetClickHandler([this] { OnDetectClick(); });
  chkStratify.SetClickHandler([this] { OnStratifyClick(); });
  cmdDetFunc.SetClickHandler([this] { OnDetFuncClick(); });
  flxDetect.SetBeforeEditHandler([this](int row, int col, bool& cancel) { OnBeforeEdit(row, col, cancel); });
  Load();
}

void CPagDetectability::Load() {
  mean_cov_ = 0;
  mean_cluster_size_ = 0;
  cat_cov_levels_.assign(1, "");
  strata_num_ = 1;
  strata_names_.assign(1, "");

  cboDetect.Clear();
  cboDetect.AddItem("Half-Normal");
  cboDetect.AddItem("Hazard Rate");
  cboDetect.SetListIndex(0);
  cboDetect.SetEnabled(true);

  chkStratify.SetEnabled(true);

  flxDetect.SetEditable(true);
  flxDetect.SetEnabled(true);
  flxDetect.SetRows(3);
  flxDetect.SetCols(2);
  flxDetect.SetTextMatrix(0, 0, "Region");
  flxDetect.SetTextMatrix(1, 0, "Scale");
  flxDetect.SetTextMatrix(2, 0, "Shape");
  flxDetect.SetTextMatrix(0, 1, "Study Area");
  flxDetect.SetTextMatrix(1, 1, kZero);
  const int last_row = flxDetect.Rows() - 1;
  const int last_col = flxDetect.Cols() - 1;
  flxDetect.SetCellBackColor(1, 1, last_row, last_col, flxDetect.BackColor());
  // Half-Normal, the default key function, has no shape parameter.
  flxDetect.SetCellBackColor(2, 1, 2, 1, flxDetect.BackColorFixed());
  flxDetect.SetCellAlignment(0, 1, last_row, last_col, CellAlignment::kCenterCenter);

  chrtDetFunction.SetChartType(Chart::Type::kXY2D);
}

std::string CPagDetectability::DetFunction() { return cboDetect.Text(); }

void CPagDetectability::SetDetFunction(const std::string& value) {
  RequireUserMode(platform_, kSource);
  ComboTools::SelectComboItemOrFirst(cboDetect, value);
  OnDetectClick();
}

std::string CPagDetectability::ParamByStratum() {
  return BooleanText(chkStratify.Value() == CheckBox::kChecked);
}

void CPagDetectability::SetParamByStratum(const std::string& value) {
  chkStratify.SetValue(TextEquals(value, "True") ? CheckBox::kChecked : CheckBox::kUnchecked);
}

int16_t CPagDetectability::NumParams() { return static_cast<int16_t>(flxDetect.Rows() - 1); }

std::string CPagDetectability::Param(int32_t index) {
  std::vector<std::string> values;
  values.reserve(static_cast<size_t>(flxDetect.Cols()));
  for (int col = 1; col < flxDetect.Cols(); ++col) values.push_back(flxDetect.TextMatrix(index, col));
  return Join(values, ",");
}

void CPagDetectability::SetParam(int32_t index, const std::string& value) {
  const std::vector<std::string> parts = Split(value, ',');
  // Written column by column: a short list fails at its first missing part, after the parts before it.
  flxDetect.SetTextMatrix(index, 1, PartAt(parts, 0));
  if (parts.size() == 1) return;
  const int last_col = flxDetect.Cols() - 1;
  for (int col = 2; col <= last_col; ++col) flxDetect.SetTextMatrix(index, col, PartAt(parts, col - 1));
}

std::string CPagDetectability::ParamName(int32_t index) { return flxDetect.TextMatrix(index, 0); }

int16_t CPagDetectability::ParamRow(const std::string& param_name) {
  int16_t found = 0;
  for (int row = 1; row < flxDetect.Rows(); ++row) {
    if (TextEquals(flxDetect.TextMatrix(row, 0), param_name)) found = static_cast<int16_t>(row);
  }
  return found;
}

bool CPagDetectability::IsValid(std::string& message) {
  ClearInvalid();
  return CModErrorHandling::RunPageChecks(message, [this]() -> std::string {
    const Color normal = flxDetect.BackColor();
    for (int row = 1; row < flxDetect.Rows(); ++row) {
      for (int col = 1; col < flxDetect.Cols(); ++col) {
        if (flxDetect.CellBackColor(row, col) != normal) continue;  // greyed cells are not in use
        const std::string& text = flxDetect.TextMatrix(row, col);
        const std::string& name = flxDetect.TextMatrix(row, 0);
        const std::string& stratum = flxDetect.TextMatrix(0, col);
        if (text.empty() || !IsNumeric(text)) MarkInvalid(flxDetect, row, col);
        if (text.empty()) {
          return "There is no value supplied for parameter " + name + " for strata '" + stratum +
                 "'.  Please enter a value in this cell.";
        }
        if (!IsNumeric(text)) {
          return "The value supplied for parameter " + name + " for strata '" + stratum +
                 "' is not numeric.  Please ammend the value in this cell.";
        }
      }
    }
    return "";
  });
}

void CPagDetectability::Initialize() {
  RunTrapped(
      [&] {
        current_stratum_ = 1;
        chkStratify.SetEnabled(false);
        DrawDetFunction(current_stratum_);
        chrtDetFunction.SetEnabled(false);
        cmdDetFunc.SetEnabled(false);
      },
      [&](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, kModule, CModErrorHandling::kInitializeRoutine,
                                               error);
      });
}

void CPagDetectability::UpdateFlxDetect(bool clusters, double mean_cluster_size,
                                        const std::string& continuous_cov, double mean_cov,
                                        const std::vector<std::string>& cat_cov_levels) {
  UpdateClusterRow(clusters, mean_cluster_size);
  int next = clusters_ ? 4 : 3;
  next = UpdateContinuousRow(next, continuous_cov, mean_cov);
  UpdateLevelRows(next, cat_cov_levels);
  if (flxDetect.Rows() >= 4) {
    const int last_row = flxDetect.Rows() - 1;
    const int last_col = flxDetect.Cols() - 1;
    flxDetect.SetCellBackColor(3, 1, last_row, last_col, flxDetect.BackColor());
    flxDetect.SetCellAlignment(3, 1, last_row, last_col, CellAlignment::kCenterCenter);
  }
  cat_cov_levels_ = cat_cov_levels;
}

void CPagDetectability::UpdateStrataInfo(int32_t strata_num, const std::vector<std::string>& strata_names) {
  strata_num_ = strata_num;
  strata_names_ = strata_names;
  if (chkStratify.Value() == CheckBox::kChecked) OnStratifyClick();
}

void CPagDetectability::OnDetectClick() {
  const int last_col = flxDetect.Cols() - 1;
  if (TextEquals(cboDetect.Text(), "Half-Normal")) {
    flxDetect.SetCellBackColor(2, 1, 2, last_col, flxDetect.BackColorFixed());
  } else if (TextEquals(cboDetect.Text(), "Hazard Rate")) {
    flxDetect.SetCellBackColor(2, 1, 2, last_col, flxDetect.BackColor());
  }
}

void CPagDetectability::OnStratifyClick() {
  if (strata_num_ > 1 && chkStratify.Value() == CheckBox::kChecked) {
    StratifyColumns();
  } else {
    flxDetect.SetCols(2);
    flxDetect.SetTextMatrix(0, 1, "Study Area");
  }
}

void CPagDetectability::StratifyColumns() {
  // The columns are made and painted first; too few names fail at the first missing one, leaving the
  // columns before it named and filled. A count with no room for its label column overflows.
  flxDetect.SetCols(ToInt32(static_cast<double>(strata_num_) + 1));
  const int last_row = flxDetect.Rows() - 1;
  const int last_col = flxDetect.Cols() - 1;
  const Color normal = flxDetect.BackColor();
  const Color fixed = flxDetect.BackColorFixed();
  flxDetect.SetCellAlignment(0, 1, 2, last_col, CellAlignment::kCenterCenter);
  flxDetect.SetCellBackColor(1, 1, 1, last_col, normal);
  if (flxDetect.Rows() > 3) flxDetect.SetCellBackColor(3, 1, last_row, last_col, normal);
  // Column 1 carries whether the key function has a shape parameter over to the new columns.
  const Color shape = flxDetect.CellBackColor(2, 1);
  if (shape == normal) {
    flxDetect.SetCellBackColor(2, 1, 2, last_col, normal);
  } else if (shape == fixed) {
    flxDetect.SetCellBackColor(2, 1, 2, last_col, fixed);
  }
  for (int col = 1; col <= strata_num_; ++col) {
    flxDetect.SetTextMatrix(0, col, PartAt(strata_names_, col - 1));
    for (int row = 1; row <= last_row; ++row) {
      if (flxDetect.CellBackColor(row, col) == normal && flxDetect.TextMatrix(row, col).empty()) {
        flxDetect.SetTextMatrix(row, col, kZero);
      }
    }
  }
}

void CPagDetectability::UpdateClusterRow(bool clusters, double mean_cluster_size) {
  if (clusters && !clusters_) {
    InsertParamRow(3, "cluster size");
  } else if (!clusters && clusters_) {
    flxDetect.RemoveItem(3);
  }
  clusters_ = clusters;
  mean_cluster_size_ = mean_cluster_size;
}

int CPagDetectability::UpdateContinuousRow(int next, const std::string& continuous_cov, double mean_cov) {
  if (!continuous_cov.empty()) {
    if (continuous_cov_.empty()) {
      InsertParamRow(next, continuous_cov);
    } else if (!TextEquals(continuous_cov_, continuous_cov)) {
      flxDetect.SetTextMatrix(next, 0, continuous_cov);
    }
    ++next;
  } else if (!continuous_cov_.empty()) {
    flxDetect.RemoveItem(next);
  }
  continuous_cov_ = continuous_cov;
  mean_cov_ = mean_cov;
  return next;
}

void CPagDetectability::UpdateLevelRows(int next, const std::vector<std::string>& levels) {
  if (!HasLevels(levels)) {
    flxDetect.SetRows(next);
  } else if (HasLevels(cat_cov_levels_)) {
    ReconcileLevelRows(next, levels);
  } else {
    flxDetect.SetRows(next + static_cast<int>(levels.size()));
    for (size_t i = 0; i < levels.size(); ++i) FillParamRow(next + static_cast<int>(i), levels[i]);
  }
}

void CPagDetectability::ReconcileLevelRows(int next, const std::vector<std::string>& levels) {
  std::unordered_set<std::string> wanted;
  wanted.reserve(levels.size());
  for (const std::string& level : levels) wanted.insert(ToLowerAscii(level));

  // Rows of levels that are still wanted move up over the rows of dropped levels, keeping their order,
  // and the tail is cut once: one pass, however many levels go.
  std::unordered_set<std::string> present;
  int kept = next;
  for (int row = next; row < flxDetect.Rows(); ++row) {
    std::string name = ToLowerAscii(flxDetect.TextMatrix(row, 0));
    if (wanted.count(name) == 0) continue;
    present.insert(std::move(name));
    if (row != kept) MoveParamRow(row, kept);
    ++kept;
  }
  flxDetect.SetRows(kept);
  for (const std::string& level : levels) {
    if (!present.insert(ToLowerAscii(level)).second) continue;
    flxDetect.AddItem();
    FillParamRow(flxDetect.Rows() - 1, level);
  }
}

void CPagDetectability::MoveParamRow(int from, int to) {
  for (int col = 0; col < flxDetect.Cols(); ++col) {
    flxDetect.SetTextMatrix(to, col, flxDetect.TextMatrix(from, col));
    flxDetect.SetCellAlignment(to, col, to, col, flxDetect.CellAlignmentAt(from, col));
    // Column 0 is never painted: it keeps the fixed colour of its own accord.
    if (col > 0) flxDetect.SetCellBackColor(to, col, to, col, flxDetect.CellBackColor(from, col));
  }
}

void CPagDetectability::InsertParamRow(int row, const std::string& name) {
  flxDetect.InsertRow(row);
  FillParamRow(row, name);
}

void CPagDetectability::FillParamRow(int row, const std::string& name) {
  flxDetect.SetTextMatrix(row, 0, name);
  for (int col = 1; col < flxDetect.Cols(); ++col) flxDetect.SetTextMatrix(row, col, kZero);
}

void CPagDetectability::DrawDetFunction(int32_t /*stratum*/) {
  // A fixed half-normal curve stands in for the table's own functions: the preview only shows the
  // shape of a detection function, not the one the user entered. The placeholder is kept on purpose,
  // as the form has always shown it; do not make it follow the table here.
  std::vector<double> sigma{20.0};
  for (double& s : sigma) {
    if (s == 0) s = 0.000001;
  }
  chrtDetFunction.SetEnabled(true);
  chrtDetFunction.SetSize(3000, 2000);
  Chart::Axis x_axis = chrtDetFunction.XAxis();
  x_axis.minimum = 0;
  x_axis.maximum = 50;
  x_axis.major_division = 2;
  chrtDetFunction.SetXAxis(x_axis);
  Chart::Axis y_axis = chrtDetFunction.YAxis();
  y_axis.minimum = 0;
  y_axis.maximum = 30;
  y_axis.shown = false;
  chrtDetFunction.SetYAxis(y_axis);
  constexpr int kPoints = 50;
  chrtDetFunction.SetDataGridSize(1, 2, kPoints, 2 * static_cast<int>(sigma.size()));

  constexpr double kRootPi = 1.772454;  // six decimals, as the curve has always been drawn
  for (size_t s = 1; s <= sigma.size(); ++s) {
    const double sd = sigma[s - 1];
    const double factor = std::sqrt(2.0) / (sd * kRootPi);
    const double g0 = factor * std::exp(-(0.0 * 0.0) / (2 * sd * sd));
    double x = 0;
    for (int j = 1; j <= kPoints; ++j) {
      const int col = static_cast<int>(s);
      chrtDetFunction.SetData(j, 2 * col - 1, x);
      // The height uses j while x is j - 1: the curve sits one unit to the left.
      const double y = factor * std::exp(-(static_cast<double>(j) * j) / (2 * sd * sd)) / g0 * 27;
      chrtDetFunction.SetData(j, 2 * col, y);
      x += 1.0;
    }
  }
}

std::vector<double> CPagDetectability::StratumScale(int32_t column) {
  StratumScaleCalculator::Covariates covariates;
  covariates.clusters = clusters_;
  covariates.mean_cluster_size = mean_cluster_size_;
  covariates.continuous_cov = continuous_cov_;
  covariates.mean_cov = mean_cov_;
  covariates.cat_cov_levels = cat_cov_levels_;
  return StratumScaleCalculator::Compute(flxDetect, column, covariates);
}

void CPagDetectability::OnDetFuncClick() {
  // Guard: a press must not take the host down when the stepping reads a heading past the last column.
  RunTrapped(
      [&] {
        DrawDetFunction(current_stratum_);
        labStrata.SetCaption(flxDetect.TextMatrix(0, current_stratum_));
        if (current_stratum_ > static_cast<int32_t>(strata_names_.size()) - 1) {
          current_stratum_ = 1;
          cmdDetFunc.SetCaption("Display Detection Fuction");
        } else {
          ++current_stratum_;
          cmdDetFunc.SetCaption("Next Strata");
        }
      },
      [&](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, kModule, "cmdDetFunc_Click", error);
      });
}

void CPagDetectability::OnBeforeEdit(int /*row*/, int /*col*/, bool& cancel) {
  if (flxDetect.CellBackColor(flxDetect.Row(), flxDetect.Col()) != flxDetect.BackColor()) cancel = true;
}

}  // namespace zrsimprp

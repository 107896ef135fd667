#include "zrsimprp/pages/CPagDensity/CPagDensity.h"

#include <cctype>
#include <cstddef>

#include "zrsimprp/host/ComboTools.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DesignModeGuard.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsimprp {
namespace {

constexpr const char* kModuleName = "PagDensity";

constexpr int kUniformOption = 0;
constexpr int kSimpleOption = 1;
constexpr int kDsmOption = 2;

constexpr int kHotspotParameters = 4;
constexpr int kSigmaColumn = 2;

// Rows and columns of the strata grid: headings in row 0, densities in row 1, labels in column 0.
constexpr int kStrataLabelRow = 0;
constexpr int kDensityRow = 1;
constexpr int kFirstStratumColumn = 1;

bool IsBlank(char c) { return c == ' '; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Case is ignored in every character comparison, so "X" and "Y" are coordinates too.
bool IsCoordinate(char c) {
  const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower == 'x' || lower == 'y';
}

bool IsFormulaSymbol(char c) { return c == '.' || c == '+' || c == '-' || c == '^' || c == '*' || c == '/'; }

// A coordinate written straight next to a number or another coordinate ("0.5x", "x y") has no operator.
bool MissesOperator(char neighbour) { return IsDigit(neighbour) || IsCoordinate(neighbour); }

// The first non-blank position after `from`, or npos.
std::size_t NextNonBlank(const std::string& text, std::size_t from) {
  for (std::size_t i = from + 1; i < text.size(); ++i) {
    if (!IsBlank(text[i])) return i;
  }
  return std::string::npos;
}

// Element `index` of a list handed in by the caller; a missing one is the subscript error.
const std::string& PartAt(const std::vector<std::string>& parts, int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= parts.size()) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, kModuleName, "Subscript out of range");
  }
  return parts[static_cast<std::size_t>(index)];
}

}  // namespace

CPagDensity::CPagDensity(Platform& platform) : platform_(platform) {
  optDensity.SetClickHandler([this](int index) { OptDensityClick(index); });
  chkHotspots.SetClickHandler([this] { ChkHotspotsClick(); });
  cmdAddHotspot.SetClickHandler([this] { CmdAddHotspotClick(); });
  cmdSubHotspot.SetClickHandler([this] { CmdSubHotspotClick(); });

  txtFormula.SetEnabled(false);
  txtFormula.SetText(kExampleFormula);
  cboLayer.SetEnabled(false);
  cboField.SetEnabled(false);
  labLayer.SetEnabled(false);
  labField.SetEnabled(false);
  cmdAddHotspot.SetEnabled(false);
  cmdSubHotspot.SetEnabled(false);

  flxHotspots.SetRows(1);
  flxHotspots.SetCols(kHotspotParameters);
  flxHotspots.SetTextMatrix(0, 0, "Centre X");
  flxHotspots.SetTextMatrix(0, 1, "Centre Y");
  flxHotspots.SetTextMatrix(0, 2, "Sigma");
  flxHotspots.SetTextMatrix(0, 3, "Amplitude");

  flxConstantDensity.SetRows(2);
  flxConstantDensity.SetCols(2);
  flxConstantDensity.SetTextMatrix(kDensityRow, 0, "Density: ");
  flxConstantDensity.SetTextMatrix(kDensityRow, kFirstStratumColumn, "0");
}

std::string CPagDensity::Description() {
  if (optDensity.Value(kUniformOption)) return "Uniform";
  if (optDensity.Value(kSimpleOption)) return "Simple";
  if (optDensity.Value(kDsmOption)) return "DSM";
  return "";
}

void CPagDensity::SetDescription(const std::string& value) {
  if (TextEquals(value, "Uniform")) {
    optDensity.Select(kUniformOption);
  } else if (TextEquals(value, "Simple")) {
    optDensity.Select(kSimpleOption);
  } else if (TextEquals(value, "DSM")) {
    optDensity.Select(kDsmOption);
  }
}

std::string CPagDensity::Densities() {
  const int cols = flxConstantDensity.Cols();
  if (cols < 2) return "";
  std::string densities;
  for (int c = kFirstStratumColumn; c < cols; ++c) {
    if (c > kFirstStratumColumn) densities += ',';
    densities += flxConstantDensity.TextMatrix(kDensityRow, c);
  }
  return densities;
}

void CPagDensity::SetDensities(const std::string& value) {
  const std::vector<std::string> parts = Split(value, ',');
  for (std::size_t i = 0; i < parts.size(); ++i) {
    flxConstantDensity.SetTextMatrix(kDensityRow, static_cast<int>(i) + kFirstStratumColumn, parts[i]);
  }
}

std::string CPagDensity::Formula() { return txtFormula.Text(); }

void CPagDensity::SetFormula(const std::string& value) { txtFormula.SetText(value); }

std::string CPagDensity::GridSpacing() { return txtGridSpace.Text(); }

void CPagDensity::SetGridSpacing(const std::string& value) { txtGridSpace.SetText(value); }

std::string CPagDensity::DSMLayer() { return cboLayer.Text(); }

void CPagDensity::SetDSMLayer(const std::string& value) {
  RequireUserMode(platform_, kModuleName);
  ComboTools::SelectComboItemOrFirst(cboLayer, value);
}

std::string CPagDensity::DSMField() { return cboField.Text(); }

void CPagDensity::SetDSMField(const std::string& value) {
  RequireUserMode(platform_, kModuleName);
  ComboTools::SelectComboItemOrFirst(cboField, value);
}

int16_t CPagDensity::NumHotspots() {
  if (chkHotspots.Value() != CheckBox::kChecked) return 0;
  return ToInt16(static_cast<double>(flxHotspots.Rows() - 1));
}

std::string CPagDensity::HotspotValues(int16_t k) {
  std::string values;
  for (int c = 0; c < kHotspotParameters; ++c) {
    if (c > 0) values += ',';
    values += flxHotspots.TextMatrix(k, c);
  }
  return values;
}

void CPagDensity::SetHotspotValues(int16_t k, const std::string& value) {
  chkHotspots.SetValue(CheckBox::kChecked);
  const std::vector<std::string> parts = Split(value, ',');
  // Written cell by cell: a short list fails at its first missing part, after the parts before it.
  for (int c = 0; c < kHotspotParameters; ++c) flxHotspots.SetTextMatrix(k, c, PartAt(parts, c));
}

bool CPagDensity::IsValid(std::string& validation_string) {
  ClearInvalid();
  return CModErrorHandling::RunPageChecks(validation_string, [this] {
    std::string message = GridSpacingFailure();
    if (!message.empty()) MarkInvalid(txtGridSpace);
    if (message.empty()) {
      if (optDensity.Value(kUniformOption)) {
        message = UniformDensityFailure();
      } else if (optDensity.Value(kSimpleOption)) {
        message = FormulaFailure();
        if (!message.empty()) MarkInvalid(txtFormula);
      }
    }
    if (message.empty() && chkHotspots.Value() == CheckBox::kChecked) message = HotspotFailure();
    return message;
  });
}

void CPagDensity::Initialize() {
  RunTrapped(
      [this] {
        flxConstantDensity.SetEditable(true);
        flxHotspots.SetEditable(false);
        flxHotspots.SetRows(1);
        flxHotspots.SetCols(kHotspotParameters);
        optDensity.Select(kUniformOption);
        txtFormula.SetEnabled(false);
        txtFormula.SetText(kExampleFormula);
        labLayer.SetEnabled(false);
        labField.SetEnabled(false);
        cmdAddHotspot.SetEnabled(false);
        cmdSubHotspot.SetEnabled(false);
        chkHotspots.SetValue(CheckBox::kUnchecked);
        optDensity.Button(kSimpleOption).SetEnabled(false);
        optDensity.Button(kDsmOption).SetEnabled(false);
      },
      [this](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, kModuleName, CModErrorHandling::kInitializeRoutine,
                                               error);
      });
}

void CPagDensity::AddHotspot() {
  chkHotspots.SetValue(CheckBox::kChecked);
  CmdAddHotspotClick();
}

void CPagDensity::UpdateFlxConstantDensity(int32_t strata_count,
                                           const std::vector<std::string>& strata_names) {
  // The grid takes its new shape first; too few names fail at the first missing one, leaving the
  // columns before it named. A negative count is refused by the grid itself, a count with no room for
  // the label column overflows.
  flxConstantDensity.SetRows(2);
  flxConstantDensity.SetCols(ToInt32(static_cast<double>(strata_count) + 1));
  flxConstantDensity.SetTextMatrix(kStrataLabelRow, 0, "Strata:");
  flxConstantDensity.SetTextMatrix(kDensityRow, 0, "Density:");
  for (int c = kFirstStratumColumn; c <= strata_count; ++c) {
    flxConstantDensity.SetTextMatrix(kStrataLabelRow, c, PartAt(strata_names, c - 1));
    if (flxConstantDensity.TextMatrix(kDensityRow, c).empty()) {
      flxConstantDensity.SetTextMatrix(kDensityRow, c, "0");
    }
  }
  if (!optDensity.Value(kUniformOption)) PaintDensityCells(flxConstantDensity.BackColorFixed());
}

void CPagDensity::OptDensityClick(int index) {
  if (index == kUniformOption) {
    txtFormula.SetEnabled(false);
    flxConstantDensity.SetEditable(true);
    PaintDensityCells(flxConstantDensity.BackColor());
  } else if (index == kSimpleOption) {
    flxConstantDensity.SetEditable(false);
    PaintDensityCells(flxConstantDensity.BackColorFixed());
    txtFormula.SetEnabled(true);
    if (TextEquals(txtFormula.Text(), kExampleFormula)) txtFormula.SetText("");
  }
  // The DSM option changes nothing here: its lists are never enabled by this page.
}

void CPagDensity::ChkHotspotsClick() {
  const bool has_rows = flxHotspots.Rows() > 1;
  if (chkHotspots.Value() == CheckBox::kChecked) {
    cmdAddHotspot.SetEnabled(true);
    flxHotspots.SetEditable(true);
    if (has_rows) {
      cmdSubHotspot.SetEnabled(true);
      PaintHotspotCells(flxHotspots.BackColor());
    }
  } else {
    cmdAddHotspot.SetEnabled(false);
    cmdSubHotspot.SetEnabled(false);
    flxHotspots.SetEditable(false);
    if (has_rows) PaintHotspotCells(flxHotspots.BackColorFixed());
  }
}

void CPagDensity::CmdAddHotspotClick() {
  flxHotspots.AddItem("");
  const int row = flxHotspots.Rows() - 1;
  if (flxHotspots.Cols() > 0)
    flxHotspots.SetCellBackColor(row, 0, row, flxHotspots.Cols() - 1, flxHotspots.BackColor());
  cmdSubHotspot.SetEnabled(flxHotspots.Rows() > 1);
}

void CPagDensity::CmdSubHotspotClick() {
  const int rows = flxHotspots.Rows();
  if (rows > 1) {
    // The heading row is never removed: with the cursor on it, the last hotspot goes instead.
    const int current = flxHotspots.Row();
    flxHotspots.RemoveItem(current >= 1 ? current : rows - 1);
  }
  cmdSubHotspot.SetEnabled(flxHotspots.Rows() > 1);
}

void CPagDensity::PaintDensityCells(Color color) {
  const int last = flxConstantDensity.Cols() - 1;
  if (flxConstantDensity.Rows() <= kDensityRow || last < kFirstStratumColumn) return;
  flxConstantDensity.SetCellBackColor(kDensityRow, kFirstStratumColumn, kDensityRow, last, color);
}

void CPagDensity::PaintHotspotCells(Color color) {
  const int last_row = flxHotspots.Rows() - 1;
  const int last_col = flxHotspots.Cols() - 1;
  if (last_row < 1 || last_col < 0) return;
  flxHotspots.SetCellBackColor(1, 0, last_row, last_col, color);
}

std::string CPagDensity::GridSpacingFailure() const {
  const std::string& spacing = txtGridSpace.Text();
  for (const char c : spacing) {
    if (!IsDigit(c) && c != '.') return "The grid spacing must only contain numeric values.";
  }
  // Empty or malformed text ("1.2.3") raises here and is caught by IsValid's trap.
  if (!(ToDouble(spacing) > 0)) return "The grid spacing must be greater than 0.";
  return "";
}

std::string CPagDensity::UniformDensityFailure() {
  for (int c = kFirstStratumColumn; c < flxConstantDensity.Cols(); ++c) {
    if (flxConstantDensity.TextMatrix(kDensityRow, c).empty()) {
      MarkInvalid(flxConstantDensity, kDensityRow, c);
      return "There is a blank cell in the column of the population size table for strata '" +
             flxConstantDensity.TextMatrix(kStrataLabelRow, c) + "'.  Please enter a value in that cell.";
    }
  }
  return "";
}

std::string CPagDensity::FormulaFailure() const {
  const std::string& formula = txtFormula.Text();
  if (formula.empty()) return "Please enter a formula to describe density.";
  const std::size_t first = NextNonBlank(formula, static_cast<std::size_t>(-1));
  if (first == std::string::npos || formula[first] != '=') {
    return "The density formula must begin with an equals sign (=).";
  }
  char previous = formula[first];
  for (std::size_t i = NextNonBlank(formula, first); i != std::string::npos; i = NextNonBlank(formula, i)) {
    const char c = formula[i];
    if (c == '=') return "The density formula should only contain one equals sign.";
    if (!IsDigit(c) && !IsFormulaSymbol(c) && !IsCoordinate(c)) {
      return "The density formula must be a function of x and y coordinates only, other covariates are not "
             "currently permitted. Apart from x and y only numeric values or basic mathematical symbols are "
             "permitted.";
    }
    if (IsCoordinate(c)) {
      const std::size_t next = NextNonBlank(formula, i);
      if (MissesOperator(previous) || (next != std::string::npos && MissesOperator(formula[next]))) {
        return "The density formula should always use *, /, +, - symbols to show mathematical relationships "
               "of numeric values to x and y. E.g. 0.5x must be written 0.5*x.";
      }
    }
    previous = c;
  }
  return "";
}

std::string CPagDensity::HotspotFailure() {
  const int rows = flxHotspots.Rows();
  if (rows < 2) {
    MarkInvalid(flxHotspots);
    return "You have checked the option to add hotspots but have not added any information to the table "
           "defining the location, size and magnitude of them.";
  }
  for (int r = 1; r < rows; ++r) {
    for (int c = 0; c < kHotspotParameters; ++c) {
      if (flxHotspots.TextMatrix(r, c).empty()) {
        MarkInvalid(flxHotspots, r, c);
        return "There is a missing value in row " + std::to_string(r) + " of the " +
               flxHotspots.TextMatrix(0, c) +
               " column in the hotspots table. Please complete this information.";
      }
    }
  }
  for (int r = 1; r < rows; ++r) {
    // A sigma that is not a number raises here and is caught by IsValid's trap.
    if (!(ToDouble(flxHotspots.TextMatrix(r, kSigmaColumn)) > 0)) {
      MarkInvalid(flxHotspots, r, kSigmaColumn);
      return "The value of sigma in row " + std::to_string(r) +
             " of the hotspots table must be greater than zero. Please correct this information.";
    }
  }
  return "";
}

}  // namespace zrsimprp

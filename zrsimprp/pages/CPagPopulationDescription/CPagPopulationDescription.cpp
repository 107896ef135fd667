#include "zrsimprp/pages/CPagPopulationDescription/CPagPopulationDescription.h"

#include "zrsimprp/host/ComboTools.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DesignModeGuard.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsimprp {
namespace {

constexpr int kFixedN = 0;
constexpr int kPoissonN = 1;
constexpr int kFixedD = 2;
constexpr int kPmf = 0;
constexpr int kDistribution = 1;

constexpr const char* kPleaseSelect = "Please Select";
constexpr const char* kPoisson = "Poisson";
constexpr const char* kNegativeBinomial = "Negative-Binomial";

constexpr const char* kSource = "CPagPopulationDescription";

// Row `row`, columns 1 to last, joined by ",". The first cell is read even when there is no data
// column, so an empty table raises the grid's index error to the caller.
std::string JoinRowFromFirstDataCell(const Grid& grid, int row) {
  std::string text = grid.TextMatrix(row, 1);
  for (int c = 2; c < grid.Cols(); ++c) {
    text += ',';
    text += grid.TextMatrix(row, c);
  }
  return text;
}

// Piece `index` of a list handed in by the caller; a missing one is the subscript error.
const std::string& PieceAt(const std::vector<std::string>& pieces, int index) {
  if (index < 0 || static_cast<size_t>(index) >= pieces.size()) {
    throw RuntimeError(error_number::kSubscriptOutOfRange, kSource, "Subscript out of range");
  }
  return pieces[static_cast<size_t>(index)];
}

}  // namespace

CPagPopulationDescription::CPagPopulationDescription(Platform& platform)
    : lalPopsize("Population Size"),
      optNcalculation({"Fixed N", "Poisson N (generated according to density surface pdf)",
                       "Fixed average D (Poisson N)"}),
      flxN(2, 2, 1, 1),
      lal("Animals in clusters"),
      chkClusters("Generate cluster sizes"),
      frmClusterSize("Cluster Size Distribution"),
      optClusterDist({"Specify probability mass function (pmf) for cluster size",
                      "Define distribution for cluster size:"}),
      cboDistribution(ComboBox::Style::kListOnly),
      flxClusterParam(2, 1, 1, 1),
      flxClusterSize(2, 1, 0, 1),
      cmdAddSize("+"),
      cmdSubSize("-"),
      platform_(platform) {
  // The controls take their form state first: these selections are what the form shows when it
  // opens, not clicks, so the handlers are attached afterwards.
  SetUpControls();
  WireHandlers();
}

void CPagPopulationDescription::SetUpControls() {
  flxN.SetEditable(true);
  flxN.SetTextMatrix(1, 0, "N:");
  flxN.SetCellAlignment(1, 0, 1, 0, CellAlignment::kRightCenter);
  flxN.SetTextMatrix(1, 1, "0");
  flxN.SetCellAlignment(0, 1, 1, 1, CellAlignment::kCenterCenter);
  optNcalculation.Select(kPoissonN);

  cboDistribution.AddItem(kPleaseSelect);
  cboDistribution.AddItem(kPoisson);
  cboDistribution.AddItem(kNegativeBinomial);
  cboDistribution.SetEnabled(false);

  optClusterDist.Select(kPmf);
  EnableClusterDistButtons(false);

  flxClusterSize.SetEditable(true);
  flxClusterSize.SetTextMatrix(0, 0, "Cluster Size");
  flxClusterSize.SetTextMatrix(1, 0, "Probability");
  flxClusterSize.SetEnabled(false);

  flxClusterParam.SetEditable(true);
  flxClusterParam.SetTextMatrix(0, 0, "Parameter Name:");
  flxClusterParam.SetTextMatrix(1, 0, "Parameter Value");
  flxClusterParam.SetEnabled(false);

  cmdAddSize.SetEnabled(true);
  cmdSubSize.SetEnabled(false);
}

void CPagPopulationDescription::WireHandlers() {
  optNcalculation.SetClickHandler([this](int index) { OnNcalculationClick(index); });
  chkClusters.SetClickHandler([this] { OnClustersClick(); });
  optClusterDist.SetClickHandler([this](int index) { OnClusterDistClick(index); });
  cmdAddSize.SetClickHandler([this] { OnAddSizeClick(); });
  cmdSubSize.SetClickHandler([this] { OnSubSizeClick(); });
  cboDistribution.SetClickHandler([this] { OnDistributionClick(); });
  flxClusterSize.SetBeforeEditHandler(
      [this](int row, int col, bool& cancel) { OnClusterSizeBeforeEdit(row, col, cancel); });
}

// ---------------------------------------------------------------------------------------------
// Properties

bool CPagPopulationDescription::Clusters() { return chkClusters.Value() != CheckBox::kUnchecked; }

double CPagPopulationDescription::MeanClusterSize() { return mean_cluster_size_; }

std::string CPagPopulationDescription::PopulationSize() {
  switch (optNcalculation.Selected()) {
    case kFixedN:
      return "Fixed N";
    case kPoissonN:
      return "Poisson N";
    case kFixedD:
      return "Fixed D";
    default:
      return "";
  }
}

void CPagPopulationDescription::SetPopulationSize(const std::string& value) {
  if (TextEquals(value, "Fixed N")) {
    optNcalculation.Select(kFixedN);
  } else if (TextEquals(value, "Poisson N")) {
    optNcalculation.Select(kPoissonN);
  } else if (TextEquals(value, "Fixed D")) {
    optNcalculation.Select(kFixedD);
  }
}

std::string CPagPopulationDescription::PopSizeValues() {
  if (flxN.Cols() < 2) return "";
  return JoinRowFromFirstDataCell(flxN, 1);
}

void CPagPopulationDescription::SetPopSizeValues(const std::string& value) {
  const std::vector<std::string> pieces = Split(value, ',');
  for (size_t k = 0; k < pieces.size(); ++k) flxN.SetTextMatrix(1, static_cast<int>(k) + 1, pieces[k]);
}

std::string CPagPopulationDescription::ClusteredPop() {
  return BooleanText(chkClusters.Value() == CheckBox::kChecked);
}

void CPagPopulationDescription::SetClusteredPop(const std::string& value) {
  chkClusters.SetValue(TextEquals(value, "True") ? CheckBox::kChecked : CheckBox::kUnchecked);
}

std::string CPagPopulationDescription::ClusterDistribution() {
  switch (optClusterDist.Selected()) {
    case kPmf:
      return "pmf";
    case kDistribution:
      return cboDistribution.Text();
    default:
      return "";
  }
}

void CPagPopulationDescription::SetClusterDistribution(const std::string& value) {
  RequireUserMode(platform_, kSource);
  if (TextEquals(value, "pmf")) {
    optClusterDist.Select(kPmf);
    return;
  }
  if (!TextEquals(value, kPoisson) && !TextEquals(value, kNegativeBinomial)) return;
  optClusterDist.Select(kDistribution);
  ComboTools::SelectComboItemOrFirst(cboDistribution, value);
  BuildParameterTable(cboDistribution.Text());
}

std::string CPagPopulationDescription::ClusterPMF(int16_t row) {
  return JoinRowFromFirstDataCell(flxClusterSize, row);
}

void CPagPopulationDescription::SetClusterPMFSize(const std::string& value) {
  const std::vector<std::string> pieces = Split(value, ',');
  // The first size always gets its column, so an empty list fails only after adding it.
  OnAddSizeClick();
  flxClusterSize.SetTextMatrix(0, 1, PieceAt(pieces, 0));
  for (size_t k = 1; k < pieces.size(); ++k) {
    OnAddSizeClick();
    flxClusterSize.SetTextMatrix(0, static_cast<int>(k) + 1, pieces[k]);
  }
}

void CPagPopulationDescription::SetClusterPMFProb(const std::string& value) {
  const std::vector<std::string> pieces = Split(value, ',');
  for (size_t k = 0; k < pieces.size(); ++k) {
    flxClusterSize.SetTextMatrix(1, static_cast<int>(k) + 1, pieces[k]);
  }
}

std::string CPagPopulationDescription::ClusterParams() {
  return JoinRowFromFirstDataCell(flxClusterParam, 1);
}

void CPagPopulationDescription::SetClusterParams(const std::string& value) {
  const std::vector<std::string> pieces = Split(value, ',');
  // Piece 0 is always written, so an empty list fails before any cell changes.
  flxClusterParam.SetTextMatrix(1, 1, PieceAt(pieces, 0));
  for (size_t k = 1; k < pieces.size(); ++k) {
    flxClusterParam.SetTextMatrix(1, static_cast<int>(k) + 1, pieces[k]);
  }
}

// ---------------------------------------------------------------------------------------------
// Methods

void CPagPopulationDescription::Initialize() {
  RunTrapped(
      [this] {
        chkClusters.SetValue(CheckBox::kUnchecked);
        last_distribution_.clear();
        flxN.SetCols(2);
        flxN.SetTextMatrix(1, 1, "0");
        optNcalculation.Select(kFixedN);
        cboDistribution.SetListIndex(0);
        flxClusterParam.SetEnabled(false);
        flxClusterParam.SetCols(1);
        flxClusterSize.SetEnabled(false);
        flxClusterSize.SetCols(1);
        chkClusters.SetEnabled(false);
        EnableClusterDistButtons(false);
        flxClusterSize.SetEnabled(false);
        cmdAddSize.SetEnabled(false);
        cmdSubSize.SetEnabled(false);
        flxClusterParam.SetEnabled(false);
        cboDistribution.SetEnabled(false);
        // Only "Fixed N" stays open to the user; the other ways arrive through the definition.
        optNcalculation.Button(kFixedD).SetEnabled(false);
        optNcalculation.Button(kPoissonN).SetEnabled(false);
      },
      [this](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, "PagPopulation",
                                               CModErrorHandling::kInitializeRoutine, error);
      });
}

void CPagPopulationDescription::UpdateFlxN(int32_t strata_count,
                                           const std::vector<std::string>& strata_names) {
  // The table takes its new shape first; too few names fail at the first missing one, leaving the
  // columns before it named. A negative count is refused by the grid itself, a count with no room for
  // the label column overflows.
  flxN.SetRows(2);
  flxN.SetCols(ToInt32(static_cast<double>(strata_count) + 1));
  // The label follows the option only when an option is clicked; a new set of strata says "N:".
  flxN.SetTextMatrix(1, 0, "N:");
  for (int i = 1; i <= strata_count; ++i) {
    flxN.SetTextMatrix(0, i, PieceAt(strata_names, i - 1));
    if (flxN.TextMatrix(1, i).empty()) flxN.SetTextMatrix(1, i, "0");
  }
  if (flxN.Cols() < 2) return;
  const int last = flxN.Cols() - 1;
  flxN.SetCellAlignment(0, 1, 1, last, CellAlignment::kCenterCenter);
  if (optNcalculation.Selected() == kPoissonN) flxN.SetCellBackColor(1, 1, 1, last, flxN.BackColorFixed());
}

void CPagPopulationDescription::UpdateClusterInfo() {
  double mean = 0.0;
  if (chkClusters.Value() != CheckBox::kUnchecked) {
    if (optClusterDist.Selected() == kPmf) {
      mean = ClusterPmfMean();
    } else if (optClusterDist.Selected() == kDistribution) {
      mean = ClusterDistributionMean();
    }
  }
  mean_cluster_size_ = mean;
}

double CPagPopulationDescription::ClusterPmfMean() {
  double mean = 0.0;
  for (int c = 1; c < flxClusterSize.Cols(); ++c) {
    mean += ToDouble(flxClusterSize.TextMatrix(0, c)) * ToDouble(flxClusterSize.TextMatrix(1, c));
  }
  return mean;
}

double CPagPopulationDescription::ClusterDistributionMean() {
  const std::string& distribution = cboDistribution.Text();
  if (TextEquals(distribution, kPoisson)) return ToDouble(flxClusterParam.TextMatrix(1, 1));
  if (TextEquals(distribution, kNegativeBinomial)) {
    const double r = ToInt16(ToDouble(flxClusterParam.TextMatrix(1, 1)));
    const double p = ToDouble(flxClusterParam.TextMatrix(1, 2));
    return Divide(r * p, 1.0 - p);
  }
  return 0.0;
}

// ---------------------------------------------------------------------------------------------
// Validation

bool CPagPopulationDescription::IsValid(std::string& message) {
  ClearInvalid();
  return CModErrorHandling::RunPageChecks(message, [this] {
    std::string failure = CheckPopulationSize();
    if (failure.empty()) failure = CheckClusters();
    return failure;
  });
}

std::string CPagPopulationDescription::CheckPopulationSize() {
  const int option = optNcalculation.Selected();
  if (option != kFixedN && option != kFixedD) return "";
  for (int c = 1; c < flxN.Cols(); ++c) {
    const std::string& value = flxN.TextMatrix(1, c);
    const std::string& stratum = flxN.TextMatrix(0, c);
    if (value.empty() || ToDouble(value) < 0) MarkInvalid(flxN, 1, c);
    if (value.empty()) {
      return "There is a blank cell in the column of the population size table for strata '" + stratum +
             "'.  Please enter a value in that cell.";
    }
    if (ToDouble(value) < 0) {
      return "There value for N/D in the population size table for strata '" + stratum +
             "' cannot be less than 0.  Please ammend the value in that cell.";
    }
  }
  return "";
}

std::string CPagPopulationDescription::CheckClusters() {
  if (chkClusters.Value() == CheckBox::kUnchecked) return "";
  switch (optClusterDist.Selected()) {
    case kPmf:
      return CheckClusterPmf();
    case kDistribution:
      return CheckClusterParameters();
    default:
      return "";
  }
}

std::string CPagPopulationDescription::CheckClusterPmf() {
  if (flxClusterSize.Cols() < 2) {
    MarkInvalid(flxClusterSize);
    return "You have not entered any information in the cluster size table.  Please create some additional "
           "columns and provide the required values.";
  }
  // Kept exact on purpose: the probabilities must add up to 1 as typed, in column order.
  double sum = 0.0;
  for (int c = 1; c < flxClusterSize.Cols(); ++c) {
    const std::string column = std::to_string(c);
    const std::string& size = flxClusterSize.TextMatrix(0, c);
    if (size.empty() || ToDouble(size) < 1) MarkInvalid(flxClusterSize, 0, c);
    if (size.empty()) {
      return "The cluster size value in column " + column +
             " of the cluster size table has not been entered.  Please supply this value.";
    }
    if (ToDouble(size) < 1) {
      return "The cluster size value in column " + column +
             " of the cluster size table is less than 1.  Please ammend this value.";
    }
    const std::string& probability_text = flxClusterSize.TextMatrix(1, c);
    if (probability_text.empty()) {
      MarkInvalid(flxClusterSize, 1, c);
      return "The probability value in column " + column +
             " of the cluster size table has not been entered.  Please supply this value.";
    }
    const double probability = ToDouble(probability_text);
    if (probability < 0 || probability > 1) {
      MarkInvalid(flxClusterSize, 1, c);
      return "The probability in column " + column +
             " of the cluster size table must be a value between 0 and 1.  Please ammend this value.";
    }
    sum += probability;
  }
  if (sum != 1.0) {
    MarkInvalid(flxClusterSize);
    return "The probabilities in the cluster size table do not sum to 1.  Please ammend these values.";
  }
  return "";
}

std::string CPagPopulationDescription::CheckClusterParameters() {
  const std::string& distribution = cboDistribution.Text();
  if (TextEquals(distribution, kPoisson)) {
    const std::string& lambda = flxClusterParam.TextMatrix(1, 1);
    if (lambda.empty() || ToDouble(lambda) < 1) MarkInvalid(flxClusterParam, 1, 1);
    if (lambda.empty()) return "A value has not been specified for lambda.  Please supply this value.";
    if (ToDouble(lambda) < 1)
      return "The value provided for lambda is less than 1.  Please ammend this value.";
    return "";
  }
  if (TextEquals(distribution, kNegativeBinomial)) {
    const std::string& p = flxClusterParam.TextMatrix(1, 2);
    const std::string& r = flxClusterParam.TextMatrix(1, 1);
    if (p.empty() || r.empty()) {
      MarkInvalid(flxClusterParam, 1, r.empty() ? 1 : 2);
      return "A value has not been specified for either r or p.  Please supply this value.";
    }
    if (ToDouble(r) <= 0) {
      MarkInvalid(flxClusterParam, 1, 1);
      return "The value provided for r must be greater than 0.  Please ammend this value.";
    }
    const double p_value = ToDouble(p);
    if (p_value < 0 || p_value > 1) {
      MarkInvalid(flxClusterParam, 1, 2);
      return "The value provided for p must be between 0 and 1.  Please ammend this value.";
    }
    return "";
  }
  MarkInvalid(cboDistribution);
  return "No cluster size distribution has been specified.  Please select a distribution.";
}

// ---------------------------------------------------------------------------------------------
// Click handlers

void CPagPopulationDescription::OnNcalculationClick(int index) {
  const bool has_strata = flxN.Cols() > 1;
  const int last = flxN.Cols() - 1;
  if (index == kPoissonN) {
    // N comes from the density surface, so the typed values are shown greyed and left unchecked.
    flxN.SetEnabled(false);
    if (has_strata) flxN.SetCellBackColor(1, 1, 1, last, flxN.BackColorFixed());
    return;
  }
  flxN.SetEnabled(true);
  if (has_strata) flxN.SetCellBackColor(1, 1, 1, last, flxN.BackColor());
  flxN.SetTextMatrix(1, 0, index == kFixedD ? "D:" : "N:");
}

void CPagPopulationDescription::OnClustersClick() {
  const bool checked = chkClusters.Value() == CheckBox::kChecked;
  flxClusterSize.SetEnabled(checked);
  EnableClusterDistButtons(checked);
  cmdAddSize.SetEnabled(checked);
  cmdSubSize.SetEnabled(checked && flxClusterSize.Cols() >= 2);
}

void CPagPopulationDescription::OnClusterDistClick(int index) {
  const int size_last = flxClusterSize.Cols() - 1;
  const int param_last = flxClusterParam.Cols() - 1;
  if (index == kPmf) {
    cboDistribution.SetEnabled(false);
    cmdAddSize.SetEnabled(true);
    cmdSubSize.SetEnabled(true);
    flxClusterSize.SetEnabled(true);
    if (size_last >= 1) flxClusterSize.SetCellBackColor(0, 1, 1, size_last, flxClusterSize.BackColor());
    flxClusterParam.SetEnabled(false);
    if (param_last >= 1)
      flxClusterParam.SetCellBackColor(1, 1, 1, param_last, flxClusterParam.BackColorFixed());
    return;
  }
  cboDistribution.SetEnabled(true);
  cmdAddSize.SetEnabled(false);
  cmdSubSize.SetEnabled(false);
  flxClusterSize.SetEnabled(false);
  if (size_last >= 1) flxClusterSize.SetCellBackColor(0, 1, 1, size_last, flxClusterSize.BackColorFixed());
  flxClusterParam.SetEnabled(true);
  if (param_last >= 1) flxClusterParam.SetCellBackColor(1, 1, 1, param_last, flxClusterParam.BackColor());
}

void CPagPopulationDescription::OnAddSizeClick() {
  flxClusterSize.SetCols(flxClusterSize.Cols() + 1);
  const int last = flxClusterSize.Cols() - 1;
  flxClusterSize.SetCellAlignment(0, last, 1, last, CellAlignment::kCenterCenter);
  flxClusterSize.SetCellBackColor(0, last, 1, last, flxClusterSize.BackColor());
  if (flxClusterSize.Cols() > 1) cmdSubSize.SetEnabled(true);
}

void CPagPopulationDescription::OnSubSizeClick() {
  if (flxClusterSize.Cols() >= 2) flxClusterSize.SetCols(flxClusterSize.Cols() - 1);
  cmdSubSize.SetEnabled(flxClusterSize.Cols() >= 2);
}

void CPagPopulationDescription::OnClusterSizeBeforeEdit(int row, int col, bool& cancel) {
  // Greyed cells belong to the pmf while a named distribution is chosen: they are not for typing in.
  if (flxClusterSize.CellBackColor(row, col) != flxClusterSize.BackColor()) cancel = true;
}

void CPagPopulationDescription::OnDistributionClick() {
  const std::string distribution = cboDistribution.Text();
  // Re-choosing the same entry keeps the parameter values already typed.
  if (TextEquals(distribution, last_distribution_)) return;
  BuildParameterTable(distribution);
  last_distribution_ = distribution;
}

void CPagPopulationDescription::BuildParameterTable(const std::string& distribution) {
  if (TextEquals(distribution, kPoisson)) {
    flxClusterParam.SetCols(2);
    flxClusterParam.SetTextMatrix(0, 1, "lambda");
    flxClusterParam.SetTextMatrix(1, 1, "");
  } else if (TextEquals(distribution, kNegativeBinomial)) {
    flxClusterParam.SetCols(3);
    flxClusterParam.SetTextMatrix(0, 1, "r");
    flxClusterParam.SetTextMatrix(0, 2, "p");
    flxClusterParam.SetTextMatrix(1, 1, "");
    flxClusterParam.SetTextMatrix(1, 2, "");
  } else {
    if (TextEquals(distribution, kPleaseSelect)) flxClusterParam.SetCols(1);
    return;
  }
  const int last = flxClusterParam.Cols() - 1;
  flxClusterParam.SetCellAlignment(0, 1, 1, last, CellAlignment::kCenterCenter);
}

void CPagPopulationDescription::EnableClusterDistButtons(bool enabled) {
  optClusterDist.Button(kPmf).SetEnabled(enabled);
  optClusterDist.Button(kDistribution).SetEnabled(enabled);
}

}  // namespace zrsimprp

#include "zrsimprp/pages/CPagDetectability/StratumScaleCalculator.h"

#include <cmath>
#include <cstddef>
#include <unordered_map>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

// Parameter rows by lower-cased name; a name used twice means its last row, and an unknown name row 0
// (whose heading text then fails the numeric conversion, as a missing parameter should).
class RowIndex {
 public:
  explicit RowIndex(const Grid& table) {
    for (int row = 1; row < table.Rows(); ++row) rows_[ToLowerAscii(table.TextMatrix(row, 0))] = row;
  }
  int Find(const std::string& name) const {
    const auto found = rows_.find(ToLowerAscii(name));
    return found == rows_.end() ? 0 : found->second;
  }

 private:
  std::unordered_map<std::string, int> rows_;
};

double NaturalLog(double value) {
  if (value <= 0) {
    throw RuntimeError(error_number::kInvalidProcedureCall, "CPagDetectability",
                       "Invalid procedure call or argument");
  }
  return std::log(value);
}

double LinearPredictor(const std::vector<double>& b, const std::vector<double>& z) {
  double sum = 0;
  for (size_t k = 0; k < b.size(); ++k) sum += b[k] * z[k];
  return sum;
}

}  // namespace

std::vector<double> StratumScaleCalculator::Compute(const Grid& table, int column,
                                                    const Covariates& covariates) {
  const RowIndex rows(table);
  auto value_of = [&](const std::string& name) {
    return ToDouble(table.TextMatrix(rows.Find(name), column));
  };

  std::vector<double> b{NaturalLog(ToDouble(table.TextMatrix(1, column)))};
  std::vector<double> z{1.0};
  if (covariates.clusters) {
    z.push_back(covariates.mean_cluster_size);
    b.push_back(value_of("cluster size"));
  }
  if (!covariates.continuous_cov.empty()) {
    z.push_back(covariates.mean_cov);
    b.push_back(value_of(covariates.continuous_cov));
  }
  const auto& levels = covariates.cat_cov_levels;
  if (levels.empty() || levels[0].empty()) return {LinearPredictor(b, z)};

  z.push_back(1.0);
  b.push_back(0.0);
  std::vector<double> scales;
  scales.reserve(levels.size());
  for (const std::string& level : levels) {
    b.back() = value_of(level);
    scales.push_back(std::exp(LinearPredictor(b, z)));
  }
  return scales;
}

}  // namespace zrsimprp

#pragma once

#include <string>
#include <vector>

#include "zrsimprp/host/Grid.h"

namespace zrsimprp {

// The detection-function scale of one value column of the parameter table: a log-linear model whose
// intercept is the log of the Scale cell and whose terms are the covariate rows of the same column.
class StratumScaleCalculator {
 public:
  // The covariate terms in force on the page, as UpdateFlxDetect last set them.
  struct Covariates {
    bool clusters = false;
    double mean_cluster_size = 0;
    std::string continuous_cov;
    double mean_cov = 0;
    std::vector<std::string> cat_cov_levels{""};
  };

  // Without categorical levels: one value, the linear predictor (the log of the scale). With levels:
  // one scale per level, in the order of the levels. Raises error 13 for a cell that is not numeric,
  // 5 for a Scale that is not positive and 381 for a column outside the table.
  static std::vector<double> Compute(const Grid& table, int column, const Covariates& covariates);
};

}  // namespace zrsimprp

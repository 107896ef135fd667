#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "zrsimprp/preview/DetectionFunction.h"
#include "zrsimprp/preview/PreviewInputs.h"

namespace zrsimprp {

// The detection functions of one value column of the parameter table: one per categorical level (or
// one without levels), each with its level's weight, or a sentence naming the first cell that
// cannot be used.
struct ColumnDetection {
  std::vector<std::string> labels;
  std::vector<DetectionFunction> functions;
  std::vector<double> weights;  // sum to 1
  // Each function's average detectability within the truncation distance, once the design gives it.
  std::vector<double> averages;
  std::string problem;
  // Said of terms taken as 0 because the table has no row for them yet.
  std::vector<std::string> notes;
};

// Combines the scale of one value column as the Detectability page's stratum-scale routine does: a
// log-linear model whose intercept is ln(Scale) and whose terms are the cluster-size row times the
// mean cluster size, the continuous covariate's row times its mean and the row of each categorical
// level times 1, so σ = exp(ln Scale + Σ βk·zk) at the covariates' mean values. Unlike the page's
// routine, the result is always the scale itself (never its logarithm) and a cell it cannot use is a
// sentence, not an error.
class DetectionScales {
 public:
  static ColumnDetection Read(const PreviewInputs& inputs, size_t column);

  // The level weights: the typed probabilities scaled to sum to 1; equal weights when any of them is
  // not a number or none is above 0.
  static std::vector<double> LevelWeights(const PreviewInputs& inputs);
};

}  // namespace zrsimprp

#pragma once

#include <string>
#include <vector>

#include "zrsimprp/map/DensityMapInputs.h"
#include "zrsimprp/map/MapLayers.h"

namespace zrsimprp {

// The survey design a simulation uses, as its entries give it ("Type" with its "Spacing" field and
// "Truncation"), copied as typed.
struct PreviewDesign {
  bool found = false;
  // Why there is no design, when `found` is false: one sentence.
  std::string missing;
  std::string name;
  std::string type;        // "Parallel", "Zigzag", ...
  std::string spacing;     // "" when the design gives none
  std::string truncation;  // "" when the design gives none
};

// Everything a preview reads, copied from the pages and the project as typed, so that it can be
// computed away from the pages (on another thread) while a person keeps editing.
struct PreviewInputs {
  // The strata as the Simulation page lists them, and their geometry.
  std::vector<std::string> strata;
  MapLayers layers;
  DensityMapInputs density;

  // The Population page: "Fixed N", "Poisson N", "Fixed D" (or "" when none is chosen), and the
  // values of its table, one per stratum.
  std::string population_size;
  std::vector<std::string> population_values;
  bool clusters = false;
  double mean_cluster_size = 0;  // from the cluster controls as they are now; 0 where unreadable

  // The Detectability page's key function and parameter table: the value columns' headings ("Study
  // Area" or one per stratum), the parameter rows' names and their cells, row by row.
  std::string key_function;
  std::vector<std::string> detection_columns;
  std::vector<std::string> parameter_names;
  std::vector<std::vector<std::string>> parameters;

  // The covariates the Detectability page's rows stand for, as the Covariates page's controls hold
  // them now (not as they were handed over when its tab was last left).
  std::string continuous_cov;
  double mean_cov = 0;
  std::vector<std::string> levels;               // empty: no categorical covariate
  std::vector<std::string> level_probabilities;  // one per level, as typed

  PreviewDesign design;
};

}  // namespace zrsimprp

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/Grid.h"
#include "zrsimprp/host/OptionGroup.h"
#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/host/Platform.h"

namespace zrsimprp {

// The "General" page of the Population tab: how the population size is fixed per stratum, and
// whether animals come in clusters with which cluster-size law. It also works out the mean cluster
// size that the Detectability page needs.
class CPagPopulationDescription : public PageControl {
 public:
  explicit CPagPopulationDescription(Platform& platform);

  // Population size.
  LabelLine lalPopsize;
  OptionGroup optNcalculation;  // 0 "Fixed N", 1 "Poisson N (...)", 2 "Fixed average D (Poisson N)"
  Grid flxN;                    // row 0 stratum names, row 1 one value per stratum
  // Animals in clusters.
  LabelLine lal;
  CheckBox chkClusters;
  Frame frmClusterSize;
  OptionGroup optClusterDist;  // 0 pmf table, 1 named distribution
  ComboBox cboDistribution;    // "Please Select", "Poisson", "Negative-Binomial"
  Grid flxClusterParam;        // row 0 parameter names, row 1 their values
  Grid flxClusterSize;         // row 0 cluster sizes, row 1 their probabilities
  Button cmdAddSize;
  Button cmdSubSize;

  bool Clusters();
  double MeanClusterSize();
  std::string PopulationSize();
  void SetPopulationSize(const std::string& value);
  std::string PopSizeValues();
  void SetPopSizeValues(const std::string& value);
  std::string ClusteredPop();
  void SetClusteredPop(const std::string& value);
  std::string ClusterDistribution();
  void SetClusterDistribution(const std::string& value);
  std::string ClusterPMF(int16_t row);
  void SetClusterPMFSize(const std::string& value);
  void SetClusterPMFProb(const std::string& value);
  std::string ClusterParams();
  void SetClusterParams(const std::string& value);
  bool IsValid(std::string& message);
  void Initialize();
  void UpdateFlxN(int32_t strata_count, const std::vector<std::string>& strata_names);
  void UpdateClusterInfo();

 private:
  void SetUpControls();
  void WireHandlers();

  void OnNcalculationClick(int index);
  void OnClustersClick();
  void OnClusterDistClick(int index);
  void OnAddSizeClick();
  void OnSubSizeClick();
  void OnClusterSizeBeforeEdit(int row, int col, bool& cancel);
  void OnDistributionClick();
  void BuildParameterTable(const std::string& distribution);
  void EnableClusterDistButtons(bool enabled);

  // The checks of IsValid; each returns the first failure's message, or "" when all pass.
  std::string CheckPopulationSize();
  std::string CheckClusters();
  std::string CheckClusterPmf();
  std::string CheckClusterParameters();
  double ClusterPmfMean();
  double ClusterDistributionMean();

  Platform& platform_;
  std::string last_distribution_;
  double mean_cluster_size_ = 0.0;
};

}  // namespace zrsimprp

#include "zrsim/PageChecker.h"

#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsim {

std::vector<PageVerdict> PageChecker::CheckAll() {
  zrsimprp::SIMProperties& control = session_.Control();
  std::vector<PageVerdict> verdicts;

  verdicts.push_back(Check("Simulation", control.pagSimulation));
  if (verdicts.back().valid) HandOverStrata();

  verdicts.push_back(Check("Density", control.pagDensity));

  verdicts.push_back(Check("General", control.pagPopulation));
  if (verdicts.back().valid)
    HandOver("UpdateClusterInfo", [&] { control.pagPopulation.UpdateClusterInfo(); });

  verdicts.push_back(Check("Covariates", control.pagCovariates));
  if (verdicts.back().valid) {
    HandOver("UpdateCovariateInfo", [&] { control.pagCovariates.UpdateCovariateInfo(); });
  }

  HandOverToDetectability();
  verdicts.push_back(Check("Detectability", control.pagDetectability));
  verdicts.push_back(Check("Analysis", control.pagAnalyses));
  verdicts.push_back(Check("Misc", control.pagMisc));
  return verdicts;
}

template <class Page>
PageVerdict PageChecker::Check(const std::string& name, Page& page) {
  PageVerdict verdict;
  verdict.page = name;
  zrsimprp::CModErrorHandling::TakeLastCheckError();  // an earlier page's, or another control's
  HandOver("IsValid", [&] { verdict.valid = page.IsValid(verdict.message); });
  if (verdict.valid) verdict.message.clear();
  std::optional<zrsimprp::RuntimeError> cause = zrsimprp::CModErrorHandling::TakeLastCheckError();
  if (!verdict.valid && verdict.message == zrsimprp::CModErrorHandling::kUnexpectedCheckMessage) {
    verdict.cause = cause;
  }
  return verdict;
}

void PageChecker::HandOverStrata() {
  zrsimprp::SIMProperties& control = session_.Control();
  // Re-read before each call, as the control does: a page's update may not change the strata, but
  // nothing here relies on that.
  HandOver("UpdateFlxConstantDensity", [&] {
    control.pagDensity.UpdateFlxConstantDensity(control.pagSimulation.StrataNum(),
                                                control.pagSimulation.StrataNames());
  });
  HandOver("UpdateFlxN", [&] {
    control.pagPopulation.UpdateFlxN(control.pagSimulation.StrataNum(), control.pagSimulation.StrataNames());
  });
  HandOver("UpdateStrataInfo", [&] {
    control.pagDetectability.UpdateStrataInfo(control.pagSimulation.StrataNum(),
                                              control.pagSimulation.StrataNames());
  });
}

void PageChecker::HandOverToDetectability() {
  zrsimprp::SIMProperties& control = session_.Control();
  HandOver("UpdateFlxDetect", [&] {
    bool clusters = control.pagPopulation.Clusters();
    double mean_cluster_size = control.pagPopulation.MeanClusterSize();
    std::string continuous_cov = control.pagCovariates.ContinuousCov();
    double mean_cov = control.pagCovariates.MeanConinuousCov();
    std::vector<std::string> levels = control.pagCovariates.CatCovLevels();
    control.pagDetectability.UpdateFlxDetect(clusters, mean_cluster_size, continuous_cov, mean_cov, levels);
  });
}

template <class Body>
void PageChecker::HandOver(const std::string& routine, Body&& body) {
  zrsimprp::RunTrapped(std::forward<Body>(body), [&](const zrsimprp::RuntimeError& error) {
    zrsimprp::CModErrorHandling::ReportInternalError(session_.Platform(), "zrsim", routine, error);
  });
}

}  // namespace zrsim

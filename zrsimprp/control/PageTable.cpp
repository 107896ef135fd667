#include "zrsimprp/control/PageTable.h"

#include <cstdint>
#include <utility>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

// The strata are asked for afresh before each page, count first.
void StrataToDensity(SIMProperties& control) {
  const int32_t count = control.pagSimulation.StrataNum();
  const std::vector<std::string> names = control.pagSimulation.StrataNames();
  control.pagDensity.UpdateFlxConstantDensity(count, names);
}

void StrataToPopulation(SIMProperties& control) {
  const int32_t count = control.pagSimulation.StrataNum();
  const std::vector<std::string> names = control.pagSimulation.StrataNames();
  control.pagPopulation.UpdateFlxN(count, names);
}

void StrataToDetectability(SIMProperties& control) {
  const int32_t count = control.pagSimulation.StrataNum();
  const std::vector<std::string> names = control.pagSimulation.StrataNames();
  control.pagDetectability.UpdateStrataInfo(count, names);
}

void ClusterInfo(SIMProperties& control) { control.pagPopulation.UpdateClusterInfo(); }

void CovariateInfo(SIMProperties& control) { control.pagCovariates.UpdateCovariateInfo(); }

// Cluster and covariate information from the two Population pages, whichever tab is left.
void DetectabilityFromPopulation(SIMProperties& control) {
  const bool clusters = control.pagPopulation.Clusters();
  const double mean_cluster_size = control.pagPopulation.MeanClusterSize();
  const std::string continuous_cov = control.pagCovariates.ContinuousCov();
  const double mean_cov = control.pagCovariates.MeanConinuousCov();
  const std::vector<std::string> cat_cov_levels = control.pagCovariates.CatCovLevels();
  control.pagDetectability.UpdateFlxDetect(clusters, mean_cluster_size, continuous_cov, mean_cov,
                                           cat_cov_levels);
}

// A page of the control, and its own check, by the control's member that holds it.
template <auto kPage>
PageControl& PageOf(SIMProperties& control) {
  return control.*kPage;
}

template <auto kPage>
bool CheckOf(SIMProperties& control, std::string& message) {
  return (control.*kPage).IsValid(message);
}

template <auto kPage>
PageEntry Row(PageId id, int tab, const char* tab_caption, const char* inner_key, const char* word,
              const char* module, const char* help_section, std::vector<HandOverStep> on_leave = {},
              std::vector<HandOverStep> on_enter = {}) {
  return {id,
          tab,
          tab_caption,
          inner_key,
          word,
          module,
          help_section,
          &PageOf<kPage>,
          &CheckOf<kPage>,
          std::move(on_leave),
          std::move(on_enter)};
}

std::vector<PageEntry> MakePages() {
  return {
      Row<&SIMProperties::pagSimulation>(PageId::kSimulation, 0, "&Simulation", "", "Simulation",
                                         "PagSimulation", "The Simulation tab",
                                         {{"UpdateFlxConstantDensity", &StrataToDensity},
                                          {"UpdateFlxN", &StrataToPopulation},
                                          {"UpdateStrataInfo", &StrataToDetectability}}),
      Row<&SIMProperties::pagDensity>(PageId::kDensity, 1, "&Density", "", "Density", "PagDensity",
                                      "The Density tab"),
      Row<&SIMProperties::pagPopulation>(PageId::kGeneral, 2, "&Population", "General", "General",
                                         "PagPopulation", "The Population tab: General",
                                         {{"UpdateClusterInfo", &ClusterInfo}}),
      Row<&SIMProperties::pagCovariates>(PageId::kCovariates, 2, "&Population", "Covariates", "Covariates",
                                         "PagPopulationCovars", "The Population tab: Covariates",
                                         {{"UpdateCovariateInfo", &CovariateInfo}}),
      Row<&SIMProperties::pagDetectability>(PageId::kDetectability, 3, "D&etectability", "", "Detectability",
                                            "PagDetectability", "The Detectability tab", {},
                                            {{"UpdateFlxDetect", &DetectabilityFromPopulation}}),
      Row<&SIMProperties::pagAnalyses>(PageId::kAnalysis, 4, "&Analysis", "", "Analysis", "PagAnalyses",
                                       "The Analysis tab"),
      Row<&SIMProperties::pagMisc>(PageId::kMisc, 5, "&Misc.", "", "Misc", "PagMisc", "The Misc. tab"),
  };
}

}  // namespace

const std::vector<PageEntry>& PageTable::Pages() {
  static const std::vector<PageEntry> kPages = MakePages();
  return kPages;
}

const PageEntry& PageTable::Get(PageId id) {
  for (const PageEntry& page : Pages()) {
    if (page.id == id) return page;
  }
  // Every id has its row; the first is a safe answer should one ever be missing.
  return Pages().front();
}

const PageEntry* PageTable::Shown(int tab, const std::string& inner_key) {
  const bool inner = HasInnerTabs(tab);
  for (const PageEntry& page : Pages()) {
    if (page.tab != tab) continue;
    if (!inner || TextEquals(page.inner_key, inner_key)) return &page;
  }
  return nullptr;
}

const PageEntry* PageTable::AtPosition(int tab, int inner) {
  const PageEntry* first = nullptr;
  int position = 0;
  for (const PageEntry& page : Pages()) {
    if (page.tab != tab) continue;
    ++position;
    if (first == nullptr) first = &page;
    if (position == inner) return &page;
  }
  return first;
}

bool PageTable::HasInnerTabs(int tab) {
  for (const PageEntry& page : Pages()) {
    if (page.tab == tab) return page.inner_key[0] != '\0';
  }
  return false;
}

std::vector<std::string> PageTable::TabCaptions() {
  std::vector<std::string> captions;
  for (const PageEntry& page : Pages()) {
    if (static_cast<int>(captions.size()) == page.tab) captions.emplace_back(page.tab_caption);
  }
  return captions;
}

std::vector<TabStrip::Tab> PageTable::InnerTabs(int tab) {
  std::vector<TabStrip::Tab> tabs;
  for (const PageEntry& page : Pages()) {
    if (page.tab == tab && page.inner_key[0] != '\0') tabs.push_back({page.inner_key, page.inner_key});
  }
  return tabs;
}

std::string PageTable::MessageTitle(const PageEntry& page) {
  return std::string("Error in options on ") + page.word + " Page";
}

void PageTable::HandOver(const std::vector<HandOverStep>& steps, SIMProperties& control) {
  for (const HandOverStep& step : steps) step.run(control);
}

}  // namespace zrsimprp

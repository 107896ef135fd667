#include <string>
#include <vector>

#include "ControlTestFixture.h"
#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsimprp {
namespace {

struct ExpectedPage {
  PageId id;
  int tab;
  std::string inner_key;
  std::string word;
  std::string module;
  std::string help_section;
};

// Every page as the control's messages, its reports and the user guide spell it.
const std::vector<ExpectedPage> kExpected = {
    {PageId::kSimulation, 0, "", "Simulation", "PagSimulation", "The Simulation tab"},
    {PageId::kDensity, 1, "", "Density", "PagDensity", "The Density tab"},
    {PageId::kGeneral, 2, "General", "General", "PagPopulation", "The Population tab: General"},
    {PageId::kCovariates, 2, "Covariates", "Covariates", "PagPopulationCovars",
     "The Population tab: Covariates"},
    {PageId::kDetectability, 3, "", "Detectability", "PagDetectability", "The Detectability tab"},
    {PageId::kAnalysis, 4, "", "Analysis", "PagAnalyses", "The Analysis tab"},
    {PageId::kMisc, 5, "", "Misc", "PagMisc", "The Misc. tab"},
};

std::vector<std::string> Routines(const std::vector<HandOverStep>& steps) {
  std::vector<std::string> routines;
  for (const HandOverStep& step : steps) routines.emplace_back(step.routine);
  return routines;
}

TEST(PageTable, EveryPageHasItsIndexInnerKeyWordModuleAndHelpSectionInTabOrder) {
  const std::vector<PageEntry>& pages = PageTable::Pages();
  ASSERT_EQ(pages.size(), kExpected.size());
  for (size_t i = 0; i < pages.size(); ++i) {
    SCOPED_TRACE(kExpected[i].word);
    EXPECT_EQ(pages[i].id, kExpected[i].id);
    EXPECT_EQ(pages[i].tab, kExpected[i].tab);
    EXPECT_EQ(pages[i].inner_key, kExpected[i].inner_key);
    EXPECT_EQ(pages[i].word, kExpected[i].word);
    EXPECT_EQ(pages[i].module, kExpected[i].module);
    EXPECT_EQ(pages[i].help_section, kExpected[i].help_section);
    EXPECT_EQ(&PageTable::Get(kExpected[i].id), &pages[i]);
  }
}

TEST(PageTable, TheRefusalTitleNamesThePageWord) {
  EXPECT_EQ(PageTable::MessageTitle(PageTable::Get(PageId::kSimulation)),
            "Error in options on Simulation Page");
  EXPECT_EQ(PageTable::MessageTitle(PageTable::Get(PageId::kDensity)), "Error in options on Density Page");
  EXPECT_EQ(PageTable::MessageTitle(PageTable::Get(PageId::kGeneral)), "Error in options on General Page");
  EXPECT_EQ(PageTable::MessageTitle(PageTable::Get(PageId::kCovariates)),
            "Error in options on Covariates Page");
  EXPECT_EQ(PageTable::MessageTitle(PageTable::Get(PageId::kDetectability)),
            "Error in options on Detectability Page");
  EXPECT_EQ(PageTable::MessageTitle(PageTable::Get(PageId::kAnalysis)), "Error in options on Analysis Page");
  EXPECT_EQ(PageTable::MessageTitle(PageTable::Get(PageId::kMisc)), "Error in options on Misc Page");
}

TEST(PageTable, TheShownPageIsFoundByTabAndInnerKey) {
  EXPECT_EQ(PageTable::Shown(1, "")->id, PageId::kDensity);
  // On a tab of its own the inner key does not matter.
  EXPECT_EQ(PageTable::Shown(4, "Covariates")->id, PageId::kAnalysis);
  EXPECT_EQ(PageTable::Shown(2, "General")->id, PageId::kGeneral);
  EXPECT_EQ(PageTable::Shown(2, "cOVARIATES")->id, PageId::kCovariates);
  EXPECT_EQ(PageTable::Shown(2, ""), nullptr);
  EXPECT_EQ(PageTable::Shown(2, "Clusters"), nullptr);
  EXPECT_EQ(PageTable::Shown(-1, ""), nullptr);
  EXPECT_EQ(PageTable::Shown(6, ""), nullptr);
  EXPECT_TRUE(PageTable::HasInnerTabs(2));
  EXPECT_FALSE(PageTable::HasInnerTabs(3));
  EXPECT_FALSE(PageTable::HasInnerTabs(6));
}

TEST(PageTable, AnInnerPositionTheTabLacksGivesItsFirstPage) {
  EXPECT_EQ(PageTable::AtPosition(2, 1)->id, PageId::kGeneral);
  EXPECT_EQ(PageTable::AtPosition(2, 2)->id, PageId::kCovariates);
  EXPECT_EQ(PageTable::AtPosition(2, 0)->id, PageId::kGeneral);
  EXPECT_EQ(PageTable::AtPosition(2, 3)->id, PageId::kGeneral);
  EXPECT_EQ(PageTable::AtPosition(5, 2)->id, PageId::kMisc);
  EXPECT_EQ(PageTable::AtPosition(6, 0), nullptr);
}

TEST(PageTable, HandOversAreTheControlsOwnRoutinesInOrder) {
  EXPECT_EQ(Routines(PageTable::Get(PageId::kSimulation).on_leave),
            (std::vector<std::string>{"UpdateFlxConstantDensity", "UpdateFlxN", "UpdateStrataInfo"}));
  EXPECT_EQ(Routines(PageTable::Get(PageId::kGeneral).on_leave),
            std::vector<std::string>{"UpdateClusterInfo"});
  EXPECT_EQ(Routines(PageTable::Get(PageId::kCovariates).on_leave),
            std::vector<std::string>{"UpdateCovariateInfo"});
  EXPECT_EQ(Routines(PageTable::Get(PageId::kDetectability).on_enter),
            std::vector<std::string>{"UpdateFlxDetect"});
  for (PageId id : {PageId::kDensity, PageId::kDetectability, PageId::kAnalysis, PageId::kMisc}) {
    EXPECT_TRUE(PageTable::Get(id).on_leave.empty());
  }
  for (PageId id : {PageId::kSimulation, PageId::kDensity, PageId::kGeneral, PageId::kCovariates,
                    PageId::kAnalysis, PageId::kMisc}) {
    EXPECT_TRUE(PageTable::Get(id).on_enter.empty());
  }
}

using PageTableControl = ControlTest;

TEST_F(PageTableControl, TheControlsTabsAreTheTablesTabs) {
  auto control = Open("");
  ASSERT_EQ(control->tapSimulationDefinition.TabCount(), PageTable::kTabCount);
  const std::vector<std::string> captions = {"&Simulation",    "&Density",  "&Population",
                                             "D&etectability", "&Analysis", "&Misc."};
  EXPECT_EQ(PageTable::TabCaptions(), captions);
  for (int i = 0; i < PageTable::kTabCount; ++i) {
    EXPECT_EQ(control->tapSimulationDefinition.Caption(i), captions[static_cast<size_t>(i)]);
  }
  ASSERT_EQ(control->tabsPopulationDescription.TabCount(), 2);
  EXPECT_EQ(control->tabsPopulationDescription.Key(1), "General");
  EXPECT_EQ(control->tabsPopulationDescription.Caption(1), "General");
  EXPECT_EQ(control->tabsPopulationDescription.Key(2), "Covariates");
  EXPECT_EQ(control->tabsPopulationDescription.Caption(2), "Covariates");
}

TEST_F(PageTableControl, EachPagesCheckAndPageAreItsOwn) {
  auto control = Open("Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=0;");
  std::string message;
  EXPECT_FALSE(PageTable::Get(PageId::kSimulation).is_valid(*control, message));
  EXPECT_EQ(message, "The number of repetitions must be greater than 0.");
  EXPECT_EQ(&PageTable::Get(PageId::kSimulation).page(*control), &control->pagSimulation);
  EXPECT_EQ(&PageTable::Get(PageId::kDensity).page(*control), &control->pagDensity);
  EXPECT_EQ(&PageTable::Get(PageId::kGeneral).page(*control), &control->pagPopulation);
  EXPECT_EQ(&PageTable::Get(PageId::kCovariates).page(*control), &control->pagCovariates);
  EXPECT_EQ(&PageTable::Get(PageId::kDetectability).page(*control), &control->pagDetectability);
  EXPECT_EQ(&PageTable::Get(PageId::kAnalysis).page(*control), &control->pagAnalyses);
  EXPECT_EQ(&PageTable::Get(PageId::kMisc).page(*control), &control->pagMisc);
}

TEST_F(PageTableControl, ARefusedTabChangeIsTitledFromTheTable) {
  auto control = Open(
      "Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;Density=Uniform /Densities=1,2,3 "
      "/GridSpace=abc;");
  ASSERT_TRUE(control->tapSimulationDefinition.UserSelectTab(1));
  EXPECT_FALSE(control->tapSimulationDefinition.UserSelectTab(4));
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].title, PageTable::MessageTitle(PageTable::Get(PageId::kDensity)));
}

TEST_F(PageTableControl, TheStrataHandOverIsTheSimulationPagesLeavingSteps) {
  auto control = Open("Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;");
  control->pagDensity.flxConstantDensity.SetCols(2);
  control->pagPopulation.flxN.SetCols(2);
  PageTable::HandOver(PageTable::Get(PageId::kSimulation).on_leave, *control);
  EXPECT_EQ(control->pagDensity.flxConstantDensity.Cols(), 4);
  EXPECT_EQ(control->pagPopulation.flxN.Cols(), 4);

  control->pagDensity.flxConstantDensity.SetCols(2);
  control->pagPopulation.flxN.SetCols(2);
  control->StrataHandOver();
  EXPECT_EQ(control->pagDensity.flxConstantDensity.Cols(), 4);
  EXPECT_EQ(control->pagPopulation.flxN.Cols(), 4);
}

TEST_F(PageTableControl, ThePagesOwnReportsNameTheTablesModules) {
  // Without a project the pages that list its records report their Initialize errors themselves.
  SIMProperties control(platform_);
  EXPECT_THROW(control.Initialize(), RuntimeError);
  const auto raised_from = [](PageId id) {
    return std::string("(Error raised from: ZrSIMPrp.") + PageTable::Get(id).module + "." +
           CModErrorHandling::kInitializeRoutine + ")";
  };
  ASSERT_EQ(platform_.Messages().size(), 2u) << AllMessages();
  EXPECT_NE(platform_.Messages()[0].text.find(raised_from(PageId::kSimulation)), std::string::npos)
      << platform_.Messages()[0].text;
  EXPECT_NE(platform_.Messages()[1].text.find(raised_from(PageId::kAnalysis)), std::string::npos)
      << platform_.Messages()[1].text;
}

}  // namespace
}  // namespace zrsimprp

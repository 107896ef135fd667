#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "zrsim/ControlSession.h"
#include "zrsim/PageChecker.h"
#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace {

using zrsimprp::MemoryProjectDatabase;
using zrsimprp::Variant;

// One survey over a strata layer of three strata.
std::shared_ptr<MemoryProjectDatabase> MakeProject() {
  auto database = std::make_shared<MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.label_field = "Label";
  layer.ids = {Variant(int32_t{1}), Variant(int32_t{2}), Variant(int32_t{3})};
  layer.labels = {Variant(std::string("A")), Variant(std::string("B")), Variant(std::string("C"))};
  database->AddLayer(layer);
  return database;
}

const std::string kValidBase =
    "Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;Density=Uniform /Densities=1,2,3 /GridSpace=10;";

class PageCheckerTest : public ::testing::Test {
 protected:
  void SetUp() override { zrsimprp::CModGlobal::Clear(); }
  void TearDown() override { zrsimprp::CModGlobal::Clear(); }

  zrsim::ControlSession session_;
};

TEST_F(PageCheckerTest, EveryPageOfTheTableIsCheckedInItsOrderUnderItsWord) {
  session_.Load(MakeProject(), kValidBase);
  const std::vector<zrsim::PageVerdict> verdicts = zrsim::PageChecker(session_).CheckAll();
  const std::vector<zrsimprp::PageEntry>& pages = zrsimprp::PageTable::Pages();
  ASSERT_EQ(verdicts.size(), pages.size());
  for (size_t i = 0; i < pages.size(); ++i) {
    EXPECT_EQ(verdicts[i].page, pages[i].word);
    EXPECT_TRUE(verdicts[i].valid) << verdicts[i].page << ": " << verdicts[i].message;
  }
  EXPECT_TRUE(session_.TakeInternalErrors().empty());
}

TEST_F(PageCheckerTest, AValidSimulationPageHandsItsStrataOnAsTheControlDoes) {
  session_.Load(MakeProject(), kValidBase);
  zrsimprp::SIMProperties& control = session_.Control();
  control.pagDensity.flxConstantDensity.SetCols(2);
  control.pagPopulation.flxN.SetCols(2);
  zrsim::PageChecker(session_).CheckAll();
  EXPECT_EQ(control.pagDensity.flxConstantDensity.Cols(), 4);
  EXPECT_EQ(control.pagPopulation.flxN.Cols(), 4);
}

TEST_F(PageCheckerTest, AnInvalidSimulationPageHandsNothingOn) {
  session_.Load(MakeProject(), kValidBase + "Reps=0;");
  zrsimprp::SIMProperties& control = session_.Control();
  control.pagDensity.flxConstantDensity.SetCols(2);
  const std::vector<zrsim::PageVerdict> verdicts = zrsim::PageChecker(session_).CheckAll();
  EXPECT_FALSE(verdicts[0].valid);
  EXPECT_EQ(control.pagDensity.flxConstantDensity.Cols(), 2);
}

TEST_F(PageCheckerTest, AFailingHandOverIsReportedUnderItsRoutineAndTheWalkGoesOn) {
  // p = 1 passes the General page's check, but the mean cluster size then divides by zero in the
  // hand-over on leaving it, which the control runs on leaving the Population tab.
  session_.Load(MakeProject(), kValidBase + "Clusters=True /Distribution=Negative-Binomial /param=2,1;");
  session_.TakeInternalErrors();
  const std::vector<zrsim::PageVerdict> verdicts = zrsim::PageChecker(session_).CheckAll();
  ASSERT_EQ(verdicts.size(), 7u);
  EXPECT_TRUE(verdicts[2].valid);
  EXPECT_EQ(verdicts[6].page, "Misc");
  const std::vector<std::string> errors = session_.TakeInternalErrors();
  ASSERT_FALSE(errors.empty());
  EXPECT_NE(errors[0].find("(Error raised from: ZrSIMPrp.zrsim.UpdateClusterInfo)"), std::string::npos)
      << errors[0];
}

}  // namespace

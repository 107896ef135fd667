#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "control/ControlTestFixture.h"
#include "zrsim/ControlSession.h"
#include "zrsim/PageChecker.h"
#include "zrsimprp/control/PageTable.h"

namespace {

// The control tests' sample project: one survey over the strata A, B and C.
using zrsimprp::MakeSampleProject;

const std::string kValidBase =
    "Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;Density=Uniform /Densities=1,2,3 /GridSpace=10;";

class PageCheckerTest : public ::testing::Test {
 protected:
  void SetUp() override { zrsimprp::CModGlobal::Clear(); }
  void TearDown() override { zrsimprp::CModGlobal::Clear(); }

  zrsim::ControlSession session_;
};

TEST_F(PageCheckerTest, EveryPageOfTheTableIsCheckedInItsOrderUnderItsWord) {
  session_.Load(MakeSampleProject(), kValidBase);
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
  session_.Load(MakeSampleProject(), kValidBase);
  zrsimprp::SIMProperties& control = session_.Control();
  control.pagDensity.flxConstantDensity.SetCols(2);
  control.pagPopulation.flxN.SetCols(2);
  zrsim::PageChecker(session_).CheckAll();
  EXPECT_EQ(control.pagDensity.flxConstantDensity.Cols(), 4);
  EXPECT_EQ(control.pagPopulation.flxN.Cols(), 4);
}

TEST_F(PageCheckerTest, AnInvalidSimulationPageHandsNothingOn) {
  session_.Load(MakeSampleProject(), kValidBase + "Reps=0;");
  zrsimprp::SIMProperties& control = session_.Control();
  control.pagDensity.flxConstantDensity.SetCols(2);
  const std::vector<zrsim::PageVerdict> verdicts = zrsim::PageChecker(session_).CheckAll();
  EXPECT_FALSE(verdicts[0].valid);
  EXPECT_EQ(control.pagDensity.flxConstantDensity.Cols(), 2);
}

TEST_F(PageCheckerTest, AFailingHandOverIsReportedUnderItsRoutineAndTheWalkGoesOn) {
  // p = 1 passes the General page's check, but the mean cluster size then divides by zero in the
  // hand-over on leaving it, which the control runs on leaving the Population tab.
  session_.Load(MakeSampleProject(),
                kValidBase + "Clusters=True /Distribution=Negative-Binomial /param=2,1;");
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

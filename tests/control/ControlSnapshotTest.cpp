#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "ControlTestFixture.h"
#include "zrsimprp/control/ControlSnapshot.h"

namespace zrsimprp {
namespace {

using ControlSnapshotTest = ControlTest;

TEST_F(ControlSnapshotTest, AnUntouchedControlEqualsItsSnapshot) {
  auto control = Open("Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;");
  const ControlSnapshot snapshot = ControlSnapshot::Take(*control);
  EXPECT_EQ(snapshot, ControlSnapshot::Take(*control));
  control->pagSimulation.txtReps.UserType("11");
  EXPECT_NE(snapshot, ControlSnapshot::Take(*control));
}

TEST_F(ControlSnapshotTest, RestorePutsBackTextsTicksOptionsAndCellsWithoutRunningHandlersTwice) {
  auto control = Open("Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;");
  const ControlSnapshot snapshot = ControlSnapshot::Take(*control);
  const int population_option = control->pagPopulation.optNcalculation.Selected();
  CPagDensity& density = control->pagDensity;
  control->pagSimulation.txtReps.UserType("99");
  density.chkHotspots.UserClick();
  density.cmdAddHotspot.UserClick();
  density.flxHotspots.UserEditCell(1, 0, "5");
  density.flxConstantDensity.UserEditCell(1, 2, "7");
  control->pagPopulation.optNcalculation.UserSelect(population_option == 2 ? 0 : 2);

  snapshot.Restore(*control);
  EXPECT_EQ(control->pagSimulation.txtReps.Text(), "10");
  EXPECT_EQ(density.chkHotspots.Value(), CheckBox::kUnchecked);
  EXPECT_FALSE(density.cmdAddHotspot.Enabled());
  EXPECT_EQ(density.flxHotspots.Rows(), 1);
  EXPECT_EQ(density.flxConstantDensity.TextMatrix(1, 2), "0");
  EXPECT_EQ(control->pagPopulation.optNcalculation.Selected(), population_option);
  EXPECT_EQ(snapshot, ControlSnapshot::Take(*control));
}

TEST_F(ControlSnapshotTest, EveryPublicControlOfEveryPageIsHeldOnce) {
  auto control = Open("");
  const std::vector<Control*> controls = ControlSnapshot::ControlsOf(*control);
  std::set<const Control*> distinct(controls.begin(), controls.end());
  EXPECT_EQ(distinct.size(), controls.size());
  EXPECT_TRUE(distinct.count(&control->pagMisc.txtCores));
  EXPECT_TRUE(distinct.count(&control->pagSimulation.optDesign.Button(1)));
  EXPECT_FALSE(distinct.count(&control->tapSimulationDefinition)) << "the tabs are where a person is";
}

}  // namespace
}  // namespace zrsimprp

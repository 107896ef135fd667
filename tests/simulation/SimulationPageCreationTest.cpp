#include <string>

#include "SimulationTestProject.h"

namespace zrsimprp {
namespace {

Color Window() { return Color::System(SystemColorRole::kWindowBackground); }
Color ButtonFace() { return Color::System(SystemColorRole::kButtonFace); }

TEST_F(SimulationPageTest, ControlsCarryTheirCaptions) {
  EXPECT_EQ(page_.lalSurveyDesign.Caption(), "Survey design");
  ASSERT_EQ(page_.optDesign.Count(), 2);
  EXPECT_EQ(page_.optDesign.Button(0).Caption(), "Select design (generate multiple surveys)");
  EXPECT_EQ(page_.optDesign.Button(1).Caption(), "Select single survey");
  EXPECT_EQ(page_.cboDesign.Text(), "Design");
  EXPECT_EQ(page_.cboDesign.ListStyle(), ComboBox::Style::kEditable);
  EXPECT_EQ(page_.cboSurvey.Text(), "Survey");
  EXPECT_EQ(page_.cboSurvey.ListStyle(), ComboBox::Style::kEditable);
  EXPECT_EQ(page_.lalSimulationOptions.Caption(), "Region selection");
  EXPECT_EQ(page_.lblRegion.Caption(), "Region / strata layer:");
  EXPECT_EQ(page_.cboRegionLayer.Text(), "");
  EXPECT_EQ(page_.cboRegionLayer.ListStyle(), ComboBox::Style::kListOnly);
  EXPECT_EQ(page_.lalReps.Caption(), "Number of Repetitions");
  EXPECT_EQ(page_.txtReps.Text(), "1");
}

TEST_F(SimulationPageTest, RepetitionsLabelLeavesNineteenBlanksForTheBox) {
  const std::string caption = page_.labReps.Caption();
  EXPECT_EQ(caption, "Repeat the simulation" + std::string(19, ' ') + "times");
}

TEST_F(SimulationPageTest, CreationTurnsTheDesignOptionOnAndDisablesTheSurveyList) {
  EXPECT_EQ(page_.optDesign.Selected(), 0);
  EXPECT_TRUE(page_.cboDesign.Enabled());
  EXPECT_EQ(page_.cboDesign.BackColor(), Window());
  EXPECT_FALSE(page_.cboSurvey.Enabled());
  EXPECT_EQ(page_.cboSurvey.BackColor(), ButtonFace());
  EXPECT_EQ(page_.TransectObjectType(), "Design");
}

TEST_F(SimulationPageTest, SurveyOptionEnablesTheSurveyListAndGreysTheDesignList) {
  page_.optDesign.Select(1);
  EXPECT_TRUE(page_.cboSurvey.Enabled());
  EXPECT_EQ(page_.cboSurvey.BackColor(), Window());
  EXPECT_FALSE(page_.cboDesign.Enabled());
  EXPECT_EQ(page_.cboDesign.BackColor(), ButtonFace());
  page_.optDesign.Select(0);
  EXPECT_TRUE(page_.cboDesign.Enabled());
  EXPECT_EQ(page_.cboDesign.BackColor(), Window());
  EXPECT_FALSE(page_.cboSurvey.Enabled());
  EXPECT_EQ(page_.cboSurvey.BackColor(), ButtonFace());
}

TEST_F(SimulationPageTest, NewPageHasNoStrata) {
  EXPECT_EQ(page_.StrataNum(), 0);
  EXPECT_TRUE(page_.StrataNames().empty());
  EXPECT_EQ(page_.StrataLayer(), "None");
}

}  // namespace
}  // namespace zrsimprp

// A control whose host never handed it a project database: nothing may crash, and Initialize must
// tell the host what is missing.
#include <string>

#include "RobustnessFixture.h"
#include "support/ErrorNumberOf.h"

namespace zrsimprp {
namespace {

class MissingProjectTest : public RobustnessTest {
 protected:
  // A control on no project at all (the fixture's project is never handed over).
  SIMProperties& Unconnected(const std::string& definition) {
    CModGlobal::Clear();
    control_ = std::make_unique<SIMProperties>(platform_);
    control_->SetDefinition(definition);
    return *control_;
  }

  // The "(Error raised from: ...)" lines of every report shown so far, in order.
  std::vector<std::string> ReportOrigins() const {
    std::vector<std::string> origins;
    for (const HeadlessPlatform::Message& message : platform_.Messages()) {
      EXPECT_EQ(message.title, kReportTitle);
      EXPECT_EQ(FirstLine(message.text), kReportFirstLine);
      origins.push_back(RaisedFrom(message.text));
    }
    return origins;
  }
};

TEST_F(MissingProjectTest, InitializeRaisesObjectNotSetNamingTheMissingDatabase) {
  SIMProperties& control = Unconnected("Reps=5;");
  const auto error = RaisedError([&] { control.Initialize(); });
  ASSERT_TRUE(error) << "Initialize without a project database did not raise";
  EXPECT_EQ(error->number, 91);
  EXPECT_EQ(error->source, "SIM");
  EXPECT_EQ(error->description, "No project database has been given to the control");
}

TEST_F(MissingProjectTest, InitializeReportsThePagesThatListProjectRecordsBeforeRaising) {
  SIMProperties& control = Unconnected("Reps=5;");
  EXPECT_THROW(control.Initialize(), RuntimeError);
  EXPECT_EQ(ReportOrigins(),
            (std::vector<std::string>{"(Error raised from: ZrSIMPrp.PagSimulation.Inititalize)",
                                      "(Error raised from: ZrSIMPrp.PagAnalyses.Inititalize)"}));
  // The definition was read before the tabs were restored from the (missing) settings.
  EXPECT_EQ(control.pagSimulation.Reps(), "5");
}

TEST_F(MissingProjectTest, DefinitionAfterwardsReportsTheMissingSettingsAndGivesTheEmptyText) {
  SIMProperties& control = Unconnected("Reps=5;");
  EXPECT_THROW(control.Initialize(), RuntimeError);
  platform_.ClearMessages();
  std::string text = "unchanged";
  EXPECT_NO_THROW(text = control.Definition());
  EXPECT_EQ(text, "");
  ASSERT_EQ(platform_.Messages().size(), 1u);
  EXPECT_EQ(RaisedFrom(platform_.Messages()[0].text), "(Error raised from: ZrSIMPrp.SIM.WriteDefinition)");
  EXPECT_EQ(Description(platform_.Messages()[0].text), "No project database has been given to the control");
}

TEST_F(MissingProjectTest, DefinitionBeforeAnyInitializeNeverThrows) {
  SIMProperties& control = Unconnected("Reps=5;");
  std::string text = "unchanged";
  EXPECT_NO_THROW(text = control.Definition());
  EXPECT_EQ(text, "");
}

TEST_F(MissingProjectTest, IsValidAndTabChangesWithoutAProjectNeverThrow) {
  SIMProperties& control = Unconnected("");
  EXPECT_THROW(control.Initialize(), RuntimeError);
  EXPECT_NO_THROW(control.IsValid());
  for (int tab = 0; tab <= 5; ++tab) EXPECT_NO_THROW(control.tapSimulationDefinition.SetCurrentTab(tab));
  EXPECT_NO_THROW(control.tabsPopulationDescription.UserClickTab(2));
}

TEST_F(MissingProjectTest, ResetDefinitionRaisesObjectNotSet) {
  SIMProperties& control = Unconnected("");
  try {
    control.ResetDefinition();
    FAIL() << "ResetDefinition without a project database did not raise";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 91);
    EXPECT_EQ(error.description, "No project database has been given to the control");
  }
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <string>

#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/pages/CPagMisc/CPagMisc.h"

namespace zrsimprp {
namespace {

constexpr const char* kNotAnInteger = "The maximum number of cores must either be an integer or left blank.";
constexpr const char* kUnexpected =
    "An unexpected error occured while checking the options on this page.   Please check they are valid and "
    "change any incorrect values";

class MiscPage : public testing::Test {
 protected:
  // The box ticked and the core limit typed, as a person would.
  std::string CheckTickedWith(const std::string& cores) {
    if (page_.chkParallel.Value() != CheckBox::kChecked) page_.chkParallel.UserClick();
    page_.txtCores.UserType(cores);
    std::string message;
    last_result_ = page_.IsValid(message);
    return message;
  }

  HeadlessPlatform platform_;
  CPagMisc page_{platform_};
  bool last_result_ = false;
};

TEST_F(MiscPage, ControlsShowTheirCaptionsExactly) {
  EXPECT_EQ(page_.frmCores.Caption(), "Cores");
  EXPECT_EQ(
      page_.labCores.Caption(),
      "The maximum number of cores that the simulation will use is one less than the number of cores on the "
      "machine. If Max cores exceeds this number or is left blank it will default to using one less than the "
      "number of cores on the machine.");
  EXPECT_EQ(page_.chkParallel.Caption(), "Run in parallel");
  EXPECT_EQ(page_.lalMisc.Caption(), "Additional simulation options");
  EXPECT_EQ(page_.labMaxCores.Caption(), "Max cores:");
}

TEST_F(MiscPage, DesignStateHasTheBoxClearAndTheCoresBlankAndDisabled) {
  EXPECT_EQ(page_.chkParallel.Value(), CheckBox::kUnchecked);
  EXPECT_FALSE(page_.txtCores.Enabled());
  EXPECT_EQ(page_.txtCores.Text(), "");
  EXPECT_EQ(page_.Parallel(), "False");
  EXPECT_EQ(page_.Cores(), "max cores");
}

TEST_F(MiscPage, TickingTheBoxEnablesTheCoreLimit) {
  ASSERT_TRUE(page_.chkParallel.UserClick());
  EXPECT_TRUE(page_.txtCores.Enabled());
  EXPECT_EQ(page_.Parallel(), "True");
  ASSERT_TRUE(page_.chkParallel.UserClick());
  EXPECT_FALSE(page_.txtCores.Enabled());
  EXPECT_EQ(page_.Parallel(), "False");
}

TEST_F(MiscPage, ParallelTrueInAnyCaseTicksTheBoxAndEnablesTheCoreLimit) {
  page_.SetParallel("TRUE");
  EXPECT_EQ(page_.chkParallel.Value(), CheckBox::kChecked);
  EXPECT_TRUE(page_.txtCores.Enabled());
  EXPECT_EQ(page_.Parallel(), "True");
  page_.SetParallel("true");
  EXPECT_EQ(page_.Parallel(), "True");
}

TEST_F(MiscPage, ParallelWithAnyOtherTextClearsTheBox) {
  page_.SetParallel("True");
  page_.SetParallel("yes");
  EXPECT_EQ(page_.chkParallel.Value(), CheckBox::kUnchecked);
  EXPECT_FALSE(page_.txtCores.Enabled());
  page_.SetParallel("True");
  page_.SetParallel("");
  EXPECT_EQ(page_.Parallel(), "False");
}

TEST_F(MiscPage, ABlankCoreLimitTravelsAsMaxCoresAndComesBackBlank) {
  page_.SetParallel("True");
  const std::string written = page_.Cores();
  EXPECT_EQ(written, "max cores");
  page_.txtCores.SetText("6");
  page_.SetCores(written);
  EXPECT_EQ(page_.txtCores.Text(), "");
}

TEST_F(MiscPage, MaxCoresInAnyCaseBlanksTheCoreLimit) {
  page_.txtCores.SetText("6");
  page_.SetCores("MAX Cores");
  EXPECT_EQ(page_.txtCores.Text(), "");
}

TEST_F(MiscPage, AnyOtherCoreLimitIsKeptAsItStands) {
  page_.SetCores("4");
  EXPECT_EQ(page_.txtCores.Text(), "4");
  EXPECT_EQ(page_.Cores(), "4");
  page_.SetCores(" 2.5x");
  EXPECT_EQ(page_.Cores(), " 2.5x");
}

TEST_F(MiscPage, ParallelFalseLeavesTheCoreLimitAsItWas) {
  page_.SetParallel("True");
  page_.SetCores("3");
  page_.SetParallel("False");
  EXPECT_EQ(page_.txtCores.Text(), "3");
  EXPECT_FALSE(page_.txtCores.Enabled());
}

TEST_F(MiscPage, TickedWithLettersFails) {
  EXPECT_EQ(CheckTickedWith("abc"), kNotAnInteger);
  EXPECT_FALSE(last_result_);
}

TEST_F(MiscPage, TickedWithAnEmptyLimitPasses) {
  EXPECT_EQ(CheckTickedWith(""), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(MiscPage, TickedWithThreePasses) {
  EXPECT_EQ(CheckTickedWith("3"), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(MiscPage, TickedWithANegativeWholeNumberPasses) {
  EXPECT_EQ(CheckTickedWith("-2"), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(MiscPage, TickedWithZeroPasses) {
  EXPECT_EQ(CheckTickedWith("0"), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(MiscPage, TickedWithAWholeExponentNumberPasses) {
  EXPECT_EQ(CheckTickedWith("1e1"), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(MiscPage, TickedWithAFractionFails) {
  EXPECT_EQ(CheckTickedWith("2.5"), kNotAnInteger);
  EXPECT_FALSE(last_result_);
}

TEST_F(MiscPage, TickedWithAWholeNumberWrittenWithDecimalsPasses) {
  EXPECT_EQ(CheckTickedWith("4.0"), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(MiscPage, TickedWithAMalformedNumberFails) {
  EXPECT_EQ(CheckTickedWith("1.2.3"), kNotAnInteger);
  EXPECT_FALSE(last_result_);
}

TEST_F(MiscPage, ClearWithLettersPasses) {
  page_.txtCores.SetText("abc");
  std::string message = "left over";
  EXPECT_TRUE(page_.IsValid(message));
  EXPECT_EQ(message, "");
}

TEST_F(MiscPage, TheFailureIsAppendedToTheIncomingMessage) {
  page_.SetParallel("True");
  page_.SetCores("abc");
  std::string message = "Misc: ";
  EXPECT_FALSE(page_.IsValid(message));
  EXPECT_EQ(message, std::string("Misc: ") + kNotAnInteger);
}

TEST_F(MiscPage, ANumberBeyondRangeGivesTheUnexpectedErrorText) {
  page_.SetParallel("True");
  page_.SetCores("1e400");
  std::string message = "Misc: ";
  EXPECT_FALSE(page_.IsValid(message));
  EXPECT_EQ(message, kUnexpected);
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(MiscPage, InitializeClearsTheBoxAndBlanksAndDisablesTheCoreLimit) {
  page_.SetParallel("True");
  page_.SetCores("8");
  page_.Initialize();
  EXPECT_EQ(page_.chkParallel.Value(), CheckBox::kUnchecked);
  EXPECT_FALSE(page_.txtCores.Enabled());
  EXPECT_EQ(page_.txtCores.Text(), "");
  EXPECT_EQ(page_.Parallel(), "False");
  EXPECT_EQ(page_.Cores(), "max cores");
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(MiscPage, InitializeReportsAnErrorAsPagMiscInititalize) {
  page_.SetParallel("True");
  page_.chkParallel.Subscribe([] { throw RuntimeError(5, "Test", "Broken check box"); });
  page_.Initialize();
  ASSERT_EQ(platform_.Messages().size(), 1u);
  EXPECT_EQ(platform_.Messages()[0].title, "Pellunar Internal Error");
  EXPECT_EQ(platform_.Messages()[0].icon, MessageIcon::Critical);
  EXPECT_NE(platform_.Messages()[0].text.find("(Error raised from: ZrSIMPrp.PagMisc.Inititalize)"),
            std::string::npos);
  EXPECT_NE(platform_.Messages()[0].text.find("Broken check box"), std::string::npos);
}

}  // namespace
}  // namespace zrsimprp

#include <string>

#include "SimulationTestProject.h"

namespace zrsimprp {
namespace {

constexpr const char* kGreaterThanZero = "The number of repetitions must be greater than 0.";
constexpr const char* kInteger = "The number of repetitions must be an integer.";
constexpr const char* kNumeric = "The number of repetitions must be numeric.";
constexpr const char* kUnexpected =
    "An unexpected error occured while checking the options on this page.   Please check they are valid "
    "and change any incorrect values";

class SimulationRepetitionsTest : public SimulationPageTest {
 protected:
  // The message IsValid leaves for `repetitions`, and whether it passed.
  std::string Check(const std::string& repetitions, bool& valid) {
    page_.SetReps(repetitions);
    std::string message = "left over from before";
    valid = page_.IsValid(message);
    return message;
  }
  void ExpectValid(const std::string& repetitions) {
    bool valid = false;
    EXPECT_EQ(Check(repetitions, valid), "") << '"' << repetitions << '"';
    EXPECT_TRUE(valid) << '"' << repetitions << '"';
  }
  void ExpectMessage(const std::string& repetitions, const std::string& expected) {
    bool valid = true;
    EXPECT_EQ(Check(repetitions, valid), expected) << '"' << repetitions << '"';
    EXPECT_FALSE(valid) << '"' << repetitions << '"';
  }
};

TEST_F(SimulationRepetitionsTest, TenIsValid) { ExpectValid("10"); }
TEST_F(SimulationRepetitionsTest, OneIsValid) { ExpectValid("1"); }
TEST_F(SimulationRepetitionsTest, ZeroMustBeGreaterThanZero) { ExpectMessage("0", kGreaterThanZero); }
TEST_F(SimulationRepetitionsTest, MinusThreeMustBeGreaterThanZero) { ExpectMessage("-3", kGreaterThanZero); }
TEST_F(SimulationRepetitionsTest, TwoAndAHalfMustBeAnInteger) { ExpectMessage("2.5", kInteger); }
TEST_F(SimulationRepetitionsTest, OneTenthInExponentFormMustBeAnInteger) { ExpectMessage("1e-1", kInteger); }
TEST_F(SimulationRepetitionsTest, HalfMustBeAnIntegerRatherThanPositive) { ExpectMessage("0.5", kInteger); }
TEST_F(SimulationRepetitionsTest, LettersMustBeNumeric) { ExpectMessage("abc", kNumeric); }
TEST_F(SimulationRepetitionsTest, EmptyBoxMustBeNumeric) { ExpectMessage("", kNumeric); }
TEST_F(SimulationRepetitionsTest, BlanksOnlyMustBeNumeric) { ExpectMessage("   ", kNumeric); }
TEST_F(SimulationRepetitionsTest, ThousandInExponentFormIsValid) { ExpectValid("1e3"); }
TEST_F(SimulationRepetitionsTest, FortyThousandGivesTheUnexpectedErrorText) {
  ExpectMessage("40000", kUnexpected);
}
TEST_F(SimulationRepetitionsTest, BlanksAroundSevenAreValid) { ExpectValid(" 7 "); }
TEST_F(SimulationRepetitionsTest, SixteenBitLimitIsValid) { ExpectValid("32767"); }
TEST_F(SimulationRepetitionsTest, JustBeyondSixteenBitsGivesTheUnexpectedErrorText) {
  ExpectMessage("32768", kUnexpected);
}
TEST_F(SimulationRepetitionsTest, HugeNumberGivesTheUnexpectedErrorText) {
  ExpectMessage("1e400", kUnexpected);
}
TEST_F(SimulationRepetitionsTest, DecimalCommaMustBeNumeric) { ExpectMessage("1,5", kNumeric); }

TEST_F(SimulationRepetitionsTest, ValidationShowsNoMessageBox) {
  bool valid = true;
  Check("abc", valid);
  Check("40000", valid);
  EXPECT_TRUE(platform_.Messages().empty());
}

}  // namespace
}  // namespace zrsimprp

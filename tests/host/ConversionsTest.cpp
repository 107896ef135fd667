#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <string>
#include <vector>

#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

TEST(Conversions, NumericTestAcceptsTheTextsOfTheNumericForm) {
  for (const char* text : {" 7 ", "1e3", ".5", "-3", "4.", "+2", "1E-1", "0", "\t12\t", "3.25e+2", "-0.0"}) {
    EXPECT_TRUE(IsNumeric(text)) << text;
  }
}

TEST(Conversions, NumericTestRejectsEverythingElse) {
  for (const char* text : {"", " ", "abc", "1.2.3", "inf", "nan", "0x10", "1,5", ".", "-", "1e", "e3", "1 2",
                           "--1", "1e+", "1.5x", "$5"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
}

TEST(Conversions, ToDoubleReadsNumericText) {
  EXPECT_DOUBLE_EQ(ToDouble(" 7 "), 7.0);
  EXPECT_DOUBLE_EQ(ToDouble("1e3"), 1000.0);
  EXPECT_DOUBLE_EQ(ToDouble(".5"), 0.5);
  EXPECT_DOUBLE_EQ(ToDouble("-3"), -3.0);
  EXPECT_DOUBLE_EQ(ToDouble("4."), 4.0);
  EXPECT_DOUBLE_EQ(ToDouble("+2.5"), 2.5);
}

TEST(Conversions, ToDoubleOfTextThatIsNotNumericIsTypeMismatch) {
  EXPECT_EQ(ErrorNumberOf([] { ToDouble("abc"); }), 13);
  EXPECT_EQ(ErrorNumberOf([] { ToDouble(""); }), 13);
  EXPECT_EQ(ErrorNumberOf([] { ToDouble("1,5"); }), 13);
}

TEST(Conversions, ToDoubleBeyondTheRangeOfADoubleIsOverflow) {
  EXPECT_EQ(ErrorNumberOf([] { ToDouble("1e400"); }), 6);
  EXPECT_EQ(ToDouble("1e-400"), 0.0);
}

TEST(Conversions, ToDoubleIgnoresTheProcessLocale) {
  const std::string previous = std::setlocale(LC_NUMERIC, nullptr);
  if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr) std::setlocale(LC_NUMERIC, "C");
  EXPECT_DOUBLE_EQ(ToDouble("1.5"), 1.5);
  std::setlocale(LC_NUMERIC, previous.c_str());
}

TEST(Conversions, IntegerConversionsRoundHalfToEven) {
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(3.5), 4);
  EXPECT_EQ(ToInt16(-2.5), -2);
  EXPECT_EQ(ToInt16(0.4), 0);
  EXPECT_EQ(ToInt16("2.6"), 3);
  EXPECT_EQ(ToInt32(1.5), 2);
  EXPECT_EQ(ToInt32("-7.5"), -8);
}

TEST(Conversions, IntegerConversionsOverflowOutsideTheirRange) {
  EXPECT_EQ(ToInt16(32767.0), 32767);
  EXPECT_EQ(ToInt16(-32768.0), -32768);
  EXPECT_EQ(ErrorNumberOf([] { ToInt16(32767.5); }), 6);  // rounds to 32768
  EXPECT_EQ(ErrorNumberOf([] { ToInt16("40000"); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { ToInt16(-32768.6); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { ToInt32(3e9); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { ToInt32(std::nan("")); }), 6);
  EXPECT_EQ(ErrorNumberOf([] { ToInt16("x"); }), 13);
}

TEST(Conversions, BooleanWordsInAnyCaseAndNumbers) {
  EXPECT_TRUE(ToBoolean("True"));
  EXPECT_TRUE(ToBoolean(" tRUE "));
  EXPECT_FALSE(ToBoolean("FALSE"));
  EXPECT_TRUE(ToBoolean("-1"));
  EXPECT_TRUE(ToBoolean("0.5"));
  EXPECT_FALSE(ToBoolean("0"));
  EXPECT_EQ(ErrorNumberOf([] { ToBoolean("yes"); }), 13);
  EXPECT_EQ(ErrorNumberOf([] { ToBoolean(""); }), 13);
  EXPECT_EQ(BooleanText(true), "True");
  EXPECT_EQ(BooleanText(false), "False");
}

TEST(Conversions, DoubleTextIsShortAndReadsBack) {
  EXPECT_EQ(DoubleText(0.0), "0");
  EXPECT_EQ(DoubleText(1.7), "1.7");
  EXPECT_EQ(DoubleText(0.1 + 0.2), "0.3");
  EXPECT_EQ(DoubleText(-3.0), "-3");
  EXPECT_EQ(DoubleText(1e20), "1E+20");
  EXPECT_EQ(DoubleText(1.5e-7), "1.5E-07");
}

TEST(Conversions, DivisionByZeroRaisesInsteadOfGivingInfinity) {
  EXPECT_DOUBLE_EQ(Divide(1.0, 4.0), 0.25);
  EXPECT_EQ(ErrorNumberOf([] { Divide(1.0, 0.0); }), 11);
  EXPECT_EQ(ErrorNumberOf([] { Divide(0.0, 0.0); }), 11);
}

TEST(Conversions, TextComparisonIgnoresCase) {
  EXPECT_TRUE(TextEquals("Hazard Rate", "hazard rate"));
  EXPECT_TRUE(TextEquals("", ""));
  EXPECT_FALSE(TextEquals("Poisson", "Poisson "));
  EXPECT_EQ(ToLowerAscii("STRATUM Layer"), "stratum layer");
}

TEST(Conversions, SplitGivesNoPiecesForTheEmptyText) {
  EXPECT_TRUE(Split("", ',').empty());
  EXPECT_EQ(Split("a", ','), std::vector<std::string>({"a"}));
  EXPECT_EQ(Split("a,", ','), std::vector<std::string>({"a", ""}));
  EXPECT_EQ(Split(",", ','), std::vector<std::string>({"", ""}));
  EXPECT_EQ(Split("1,2,3", ','), std::vector<std::string>({"1", "2", "3"}));
}

TEST(Conversions, JoinIsTheInverseOfSplit) {
  for (const std::string text : {"a", "a,", ",", "1,2,3", ",x,,y,"}) {
    EXPECT_EQ(Join(Split(text, ','), ","), text);
  }
  EXPECT_EQ(Join({}, ","), "");
}

}  // namespace
}  // namespace zrsimprp

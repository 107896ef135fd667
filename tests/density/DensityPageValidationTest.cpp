#include "DensityPageTest.h"

namespace zrsimprp {
namespace {

constexpr const char* kUnexpected =
    "An unexpected error occured while checking the options on this page.   Please check they are valid and "
    "change any incorrect values";
constexpr const char* kSpacingNotNumeric = "The grid spacing must only contain numeric values.";
constexpr const char* kSpacingNotPositive = "The grid spacing must be greater than 0.";
constexpr const char* kNoFormula = "Please enter a formula to describe density.";
constexpr const char* kNoEquals = "The density formula must begin with an equals sign (=).";
constexpr const char* kTwoEquals = "The density formula should only contain one equals sign.";
constexpr const char* kForeignCharacter =
    "The density formula must be a function of x and y coordinates only, other covariates are not currently "
    "permitted. Apart from x and y only numeric values or basic mathematical symbols are permitted.";
constexpr const char* kMissingOperator =
    "The density formula should always use *, /, +, - symbols to show mathematical relationships of numeric "
    "values to x and y. E.g. 0.5x must be written 0.5*x.";
constexpr const char* kNoHotspotRows =
    "You have checked the option to add hotspots but have not added any information to the table defining "
    "the "
    "location, size and magnitude of them.";

using DensityValidation = DensityPageTest;

// A formula page with a valid grid spacing, ready for a formula under test.
class DensityFormula : public DensityPageTest {
 protected:
  void SetUp() override {
    PrepareUniformPage();
    page_.SetDescription("Simple");
  }
  std::string CheckFormula(const std::string& formula) {
    page_.SetFormula(formula);
    return Check();
  }
};

TEST_F(DensityValidation, AValidUniformPagePassesAndClearsTheMessage) {
  PrepareUniformPage();
  std::string message = "left over";
  EXPECT_TRUE(page_.IsValid(message));
  EXPECT_EQ(message, "");
}

TEST_F(DensityValidation, GridSpacingOfTenPasses) {
  PrepareUniformPage();
  page_.SetGridSpacing("10");
  EXPECT_EQ(Check(), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(DensityValidation, GridSpacingOfOneHalfPasses) {
  PrepareUniformPage();
  page_.SetGridSpacing("0.5");
  EXPECT_EQ(Check(), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(DensityValidation, GridSpacingOfZeroMustBeGreaterThanZero) {
  PrepareUniformPage();
  page_.SetGridSpacing("0");
  EXPECT_EQ(Check(), kSpacingNotPositive);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, GridSpacingOfZeroPointZeroMustBeGreaterThanZero) {
  PrepareUniformPage();
  page_.SetGridSpacing("0.0");
  EXPECT_EQ(Check(), kSpacingNotPositive);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, NegativeGridSpacingFailsTheCharacterTest) {
  PrepareUniformPage();
  page_.SetGridSpacing("-5");
  EXPECT_EQ(Check(), kSpacingNotNumeric);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, ExponentGridSpacingFailsTheCharacterTest) {
  PrepareUniformPage();
  page_.SetGridSpacing("1e3");
  EXPECT_EQ(Check(), kSpacingNotNumeric);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, GridSpacingWithLettersOrBlanksFailsTheCharacterTest) {
  PrepareUniformPage();
  page_.SetGridSpacing("ten");
  EXPECT_EQ(Check(), kSpacingNotNumeric);
  page_.SetGridSpacing(" 10");
  EXPECT_EQ(Check(), kSpacingNotNumeric);
}

TEST_F(DensityValidation, EmptyGridSpacingGivesTheUnexpectedErrorText) {
  PrepareUniformPage();
  page_.SetGridSpacing("");
  std::string message = "Earlier text. ";
  EXPECT_FALSE(page_.IsValid(message));
  EXPECT_EQ(message, kUnexpected);
}

TEST_F(DensityValidation, MalformedGridSpacingGivesTheUnexpectedErrorText) {
  PrepareUniformPage();
  page_.SetGridSpacing("1.2.3");
  EXPECT_EQ(Check(), kUnexpected);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, AFailureMessageIsAppendedToTheIncomingText) {
  PrepareUniformPage();
  page_.SetGridSpacing("0");
  std::string message = "Density: ";
  EXPECT_FALSE(page_.IsValid(message));
  EXPECT_EQ(message, std::string("Density: ") + kSpacingNotPositive);
}

TEST_F(DensityValidation, GridSpacingIsCheckedBeforeTheDensities) {
  PrepareUniformPage();
  page_.flxConstantDensity.SetTextMatrix(1, 2, "");
  page_.SetGridSpacing("0");
  EXPECT_EQ(Check(), kSpacingNotPositive);
}

TEST_F(DensityValidation, ABlankDensityCellNamesItsStratum) {
  PrepareUniformPage();
  ASSERT_TRUE(page_.flxConstantDensity.UserEditCell(1, 2, ""));
  EXPECT_EQ(
      Check(),
      "There is a blank cell in the column of the population size table for strata 'Centre'.  Please enter "
      "a value in that cell.");
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, TheFirstBlankDensityCellIsNamed) {
  PrepareUniformPage();
  page_.SetDensities("1,,");
  EXPECT_EQ(
      Check(),
      "There is a blank cell in the column of the population size table for strata 'Centre'.  Please enter "
      "a value in that cell.");
}

TEST_F(DensityValidation, UniformDensitiesAreNotCheckedForBeingNumbers) {
  PrepareUniformPage();
  page_.SetDensities("abc,-1,1e9");
  EXPECT_EQ(Check(), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(DensityValidation, TheFormulaIsNotCheckedUnderTheUniformOption) {
  PrepareUniformPage();
  page_.SetFormula("rubbish");
  EXPECT_EQ(Check(), "");
}

TEST_F(DensityValidation, TheDsmOptionHasNoCheck) {
  PrepareUniformPage();
  page_.SetDescription("DSM");
  page_.SetDensities(",,");
  page_.SetFormula("");
  EXPECT_EQ(Check(), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(DensityFormula, BlankDensitiesAreNotCheckedUnderTheFormulaOption) {
  page_.SetDensities(",,");
  EXPECT_EQ(CheckFormula("=x"), "");
}

TEST_F(DensityFormula, AnEmptyFormulaAsksForOne) {
  EXPECT_EQ(CheckFormula(""), kNoFormula);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityFormula, TheExampleWithoutItsLeadingWordsPasses) {
  EXPECT_EQ(CheckFormula("= -100 + x*1.02 + y*1.15"), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(DensityFormula, TheExampleTextItselfDoesNotBeginWithEquals) {
  EXPECT_EQ(CheckFormula("e.g. = -100 + x*1.02 + y*1.15"), kNoEquals);
}

TEST_F(DensityFormula, AFormulaWithoutLeadingEqualsFails) {
  EXPECT_EQ(CheckFormula("-100 + x*1.02"), kNoEquals);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityFormula, BlanksBeforeTheEqualsSignAreSkipped) { EXPECT_EQ(CheckFormula("   =  2 * x"), ""); }

TEST_F(DensityFormula, AFormulaOfBlanksOnlyDoesNotBeginWithEquals) {
  EXPECT_EQ(CheckFormula("   "), kNoEquals);
}

TEST_F(DensityFormula, ASecondEqualsSignFails) {
  EXPECT_EQ(CheckFormula("= x + 1 = 2"), kTwoEquals);
  EXPECT_EQ(CheckFormula("=="), kTwoEquals);
}

TEST_F(DensityFormula, ANumberWrittenStraightBeforeXFails) {
  EXPECT_EQ(CheckFormula("= 0.5x"), kMissingOperator);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityFormula, TwoCoordinatesSeparatedOnlyByABlankFail) {
  EXPECT_EQ(CheckFormula("= x y"), kMissingOperator);
}

TEST_F(DensityFormula, ANumberSeparatedFromXOnlyByABlankFails) {
  EXPECT_EQ(CheckFormula("= 2 x"), kMissingOperator);
}

TEST_F(DensityFormula, ANumberStraightAfterACoordinateFails) {
  EXPECT_EQ(CheckFormula("= y2"), kMissingOperator);
}

TEST_F(DensityFormula, UpperCaseCoordinatesFollowTheSameRule) {
  EXPECT_EQ(CheckFormula("= 3X"), kMissingOperator);
  EXPECT_EQ(CheckFormula("= X Y"), kMissingOperator);
}

TEST_F(DensityFormula, UpperCaseCoordinatesPass) {
  EXPECT_EQ(CheckFormula("=X*Y"), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(DensityFormula, ABracketIsNotPermitted) {
  EXPECT_EQ(CheckFormula("= (x + 1)*2"), kForeignCharacter);
  EXPECT_FALSE(last_result_);
  EXPECT_EQ(CheckFormula("= x*2)"), kForeignCharacter);
}

TEST_F(DensityFormula, OtherCovariatesAreNotPermitted) {
  EXPECT_EQ(CheckFormula("= depth*2"), kForeignCharacter);
  EXPECT_EQ(CheckFormula("= 1E3"), kForeignCharacter);
}

TEST_F(DensityFormula, EveryBasicSymbolIsPermitted) {
  EXPECT_EQ(CheckFormula("= 2^x - y/3 + .5*x - -1"), "");
}

TEST_F(DensityFormula, OperatorOrderIsNotChecked) { EXPECT_EQ(CheckFormula("= x^ + * 1.2.3"), ""); }

TEST_F(DensityFormula, TheFormulaMessageIsAppended) {
  page_.SetFormula("= 2x");
  std::string message = "Density: ";
  EXPECT_FALSE(page_.IsValid(message));
  EXPECT_EQ(message, std::string("Density: ") + kMissingOperator);
}

TEST_F(DensityValidation, TickedHotspotsWithoutRowsFail) {
  PrepareUniformPage();
  page_.chkHotspots.UserClick();
  EXPECT_EQ(Check(), kNoHotspotRows);
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, CompleteHotspotsPass) {
  PrepareUniformPage();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "abc,-4,0.5,-2");
  EXPECT_EQ(Check(), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(DensityValidation, AMissingHotspotCellNamesItsRowAndColumnHeading) {
  PrepareUniformPage();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,3,4");
  page_.AddHotspot();
  page_.SetHotspotValues(2, "1,2,,4");
  EXPECT_EQ(
      Check(),
      "There is a missing value in row 2 of the Sigma column in the hotspots table. Please complete this "
      "information.");
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, AMissingCentreIsReportedBeforeALaterColumn) {
  PrepareUniformPage();
  page_.AddHotspot();
  EXPECT_EQ(
      Check(),
      "There is a missing value in row 1 of the Centre X column in the hotspots table. Please complete this "
      "information.");
}

TEST_F(DensityValidation, MissingValuesAreReportedBeforeABadSigma) {
  PrepareUniformPage();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,0,4");
  page_.AddHotspot();
  page_.SetHotspotValues(2, "1,2,3,");
  EXPECT_EQ(
      Check(),
      "There is a missing value in row 2 of the Amplitude column in the hotspots table. Please complete this "
      "information.");
}

TEST_F(DensityValidation, ASigmaOfZeroMustBeGreaterThanZero) {
  PrepareUniformPage();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,3,4");
  page_.AddHotspot();
  page_.SetHotspotValues(2, "1,2,0,4");
  EXPECT_EQ(
      Check(),
      "The value of sigma in row 2 of the hotspots table must be greater than zero. Please correct this "
      "information.");
  EXPECT_FALSE(last_result_);
}

TEST_F(DensityValidation, ANegativeSigmaMustBeGreaterThanZero) {
  PrepareUniformPage();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,-0.1,4");
  EXPECT_EQ(
      Check(),
      "The value of sigma in row 1 of the hotspots table must be greater than zero. Please correct this "
      "information.");
}

TEST_F(DensityValidation, ASigmaThatIsNotANumberGivesTheUnexpectedErrorText) {
  PrepareUniformPage();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,wide,4");
  std::string message = "Earlier text. ";
  EXPECT_FALSE(page_.IsValid(message));
  EXPECT_EQ(message, kUnexpected);
}

TEST_F(DensityValidation, UntickedHotspotsAreNotChecked) {
  PrepareUniformPage();
  page_.AddHotspot();
  page_.chkHotspots.UserClick();
  EXPECT_EQ(Check(), "");
  EXPECT_TRUE(last_result_);
}

TEST_F(DensityValidation, ValidationShowsNoMessageBox) {
  PrepareUniformPage();
  page_.SetGridSpacing("");
  Check();
  EXPECT_TRUE(platform_.Messages().empty());
}

}  // namespace
}  // namespace zrsimprp

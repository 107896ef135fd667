#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/pages/CPagPopulationCovars/CPagPopulationCovars.h"

namespace zrsimprp {
namespace {

const std::string kUnexpected =
    "An unexpected error occured while checking the options on this page.   Please check they are valid and "
    "change any incorrect values";
const std::string kSumMessage =
    "The probabilities in the table do not sum to 1.  Please ammend these values.";
const std::string kNoNameMessage =
    "You have not entered a name for the categorical covariate.  Please provide the covariate name.";
const std::string kNoDistributionMessage =
    "No parameter distribution has been specified.  Please select a distribution.";
const std::string kSigmaMessage =
    "The value provided for sigma should be greater than 0.  Please ammend this value.";

class CovariatesPage : public ::testing::Test {
 protected:
  void SetUp() override { page.Initialize(); }

  std::string Check(bool expected_result) {
    std::string message;
    EXPECT_EQ(page.IsValid(message), expected_result);
    return message;
  }

  void UseCategorical(const std::string& name, const std::string& levels, const std::string& probabilities) {
    page.SetCategoricalCov(true);
    page.SetCategoricalName(name);
    page.SetCategoricalLevels(levels);
    page.SetCategoricalProbs(probabilities);
  }

  void UseContinuous(const std::string& name, const std::string& distribution, const std::string& params) {
    page.SetContinuousCovariate(true);
    page.SetContinuousName(name);
    page.SetContinuousDist(distribution);
    page.SetContinuousParams(params);
  }

  HeadlessPlatform platform;
  CPagPopulationCovars page{platform};
};

// ---------------------------------------------------------------------------------------------
// Form load and Initialize

TEST(CovariatesPageLoad, ControlsCarryTheirCaptions) {
  HeadlessPlatform platform;
  CPagPopulationCovars page(platform);
  EXPECT_EQ(page.chkContinuousCov.Caption(), "Include continuous covariate");
  EXPECT_EQ(page.chkCategoricalCov.Caption(), "Include categorical covariate");
  EXPECT_EQ(page.cmdSubCovValue.Caption(), "-");
  EXPECT_EQ(page.cmdAddCovValue.Caption(), "+");
  EXPECT_EQ(page.lalPopCovariates.Caption(), "Population Covariates");
  EXPECT_EQ(page.labDistribution.Caption(), "Covariate distribution:");
  EXPECT_EQ(page.labContinuousCov.Caption(), "Covariate Name:");
  EXPECT_EQ(page.labCategoricalCov.Caption(), "Covariate name:");
  EXPECT_EQ(page.cboDistribution.ListStyle(), ComboBox::Style::kListOnly);
  ASSERT_EQ(page.cboDistribution.ListCount(), 3);
  EXPECT_EQ(page.cboDistribution.List(0), "Please Select");
  EXPECT_EQ(page.cboDistribution.List(1), "Normal");
  EXPECT_EQ(page.cboDistribution.List(2), "Log-Normal");
}

TEST(CovariatesPageLoad, FormStateAfterLoad) {
  HeadlessPlatform platform;
  CPagPopulationCovars page(platform);
  EXPECT_EQ(page.ContinuousCov(), "");
  EXPECT_EQ(page.CatCovLevels(), std::vector<std::string>{""});
  EXPECT_DOUBLE_EQ(page.MeanConinuousCov(), 0.0);
  EXPECT_FALSE(page.labCategoricalCov.Enabled());
  EXPECT_FALSE(page.txtCategoricalCov.Enabled());
  EXPECT_EQ(page.txtCategoricalCov.Text(), "");
  EXPECT_FALSE(page.cmdAddCovValue.Enabled());
  EXPECT_FALSE(page.cmdSubCovValue.Enabled());
  EXPECT_FALSE(page.labContinuousCov.Enabled());
  EXPECT_FALSE(page.txtContinuousCov.Enabled());
  EXPECT_EQ(page.txtContinuousCov.Text(), "");
  EXPECT_FALSE(page.labDistribution.Enabled());
  EXPECT_EQ(page.cboDistribution.ListIndex(), 0);
  EXPECT_EQ(page.ContinuousDist(), "Please Select");
  EXPECT_FALSE(page.cboDistribution.Enabled());
  EXPECT_TRUE(page.chkCategoricalCov.Enabled());
  EXPECT_TRUE(page.chkContinuousCov.Enabled());
}

TEST(CovariatesPageLoad, TablesHaveTheirLabelsAndWidths) {
  HeadlessPlatform platform;
  CPagPopulationCovars page(platform);
  EXPECT_EQ(page.flxCategoricalCov.Rows(), 2);
  EXPECT_EQ(page.flxCategoricalCov.Cols(), 1);
  EXPECT_EQ(page.flxCategoricalCov.FixedCols(), 1);
  EXPECT_TRUE(page.flxCategoricalCov.Editable());
  EXPECT_FALSE(page.flxCategoricalCov.Enabled());
  EXPECT_EQ(page.flxCategoricalCov.TextMatrix(0, 0), "Cov. Value:");
  EXPECT_EQ(page.flxCategoricalCov.TextMatrix(1, 0), "Probability:");
  EXPECT_EQ(page.flxCategoricalCov.ColWidth(0), 1000);

  EXPECT_EQ(page.flxContinuousCov.Rows(), 2);
  EXPECT_EQ(page.flxContinuousCov.Cols(), 1);
  EXPECT_EQ(page.flxContinuousCov.FixedCols(), 1);
  EXPECT_TRUE(page.flxContinuousCov.Editable());
  EXPECT_FALSE(page.flxContinuousCov.Enabled());
  EXPECT_EQ(page.flxContinuousCov.TextMatrix(0, 0), "Parameter Name:");
  EXPECT_EQ(page.flxContinuousCov.TextMatrix(1, 0), "Parameter Value");
  EXPECT_EQ(page.flxContinuousCov.ColWidth(0), 1500);
}

TEST_F(CovariatesPage, InitializeEmptiesBothTablesAndDisablesTheCheckBoxes) {
  UseCategorical("sex", "m,f", "0.5,0.5");
  UseContinuous("size", "Normal", "3,1");
  page.Initialize();
  EXPECT_EQ(page.flxCategoricalCov.Rows(), 2);
  EXPECT_EQ(page.flxCategoricalCov.Cols(), 1);
  EXPECT_EQ(page.flxContinuousCov.Rows(), 2);
  EXPECT_EQ(page.flxContinuousCov.Cols(), 1);
  EXPECT_FALSE(page.chkCategoricalCov.Enabled());
  EXPECT_FALSE(page.chkContinuousCov.Enabled());
  EXPECT_FALSE(page.chkCategoricalCov.UserClick());
  // Ticks still follow the properties.
  page.SetCategoricalCov(false);
  EXPECT_FALSE(page.CategoricalCov());
  page.SetCategoricalCov(true);
  EXPECT_TRUE(page.CategoricalCov());
  EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(CovariatesPage, InitializeForgetsTheLastDistribution) {
  UseContinuous("size", "Normal", "3,1");
  page.Initialize();
  EXPECT_EQ(page.ContinuousDist(), "Normal");
  // The list still shows "Normal", but choosing it again must rebuild the emptied table.
  page.SetContinuousDist("Normal");
  ASSERT_EQ(page.flxContinuousCov.Cols(), 3);
  EXPECT_EQ(page.flxContinuousCov.TextMatrix(0, 1), "mu");
  EXPECT_EQ(page.flxContinuousCov.TextMatrix(0, 2), "sigma");
  EXPECT_EQ(page.ContinuousParams(), ",");
}

// ---------------------------------------------------------------------------------------------
// Check boxes and level buttons

TEST_F(CovariatesPage, ContinuousBoxEnablesAndDisablesItsFiveControlsWithoutEmptying) {
  page.SetContinuousCovariate(true);
  EXPECT_TRUE(page.ContinuousCovariate());
  EXPECT_TRUE(page.labContinuousCov.Enabled());
  EXPECT_TRUE(page.txtContinuousCov.Enabled());
  EXPECT_TRUE(page.labDistribution.Enabled());
  EXPECT_TRUE(page.cboDistribution.Enabled());
  EXPECT_TRUE(page.flxContinuousCov.Enabled());
  page.SetContinuousName("size");
  page.SetContinuousCovariate(false);
  EXPECT_FALSE(page.ContinuousCovariate());
  EXPECT_FALSE(page.labContinuousCov.Enabled());
  EXPECT_FALSE(page.txtContinuousCov.Enabled());
  EXPECT_FALSE(page.labDistribution.Enabled());
  EXPECT_FALSE(page.cboDistribution.Enabled());
  EXPECT_FALSE(page.flxContinuousCov.Enabled());
  EXPECT_EQ(page.ContinuousName(), "size");
}

TEST_F(CovariatesPage, CategoricalBoxEnablesMinusOnlyWithALevelColumn) {
  page.SetCategoricalCov(true);
  EXPECT_TRUE(page.labCategoricalCov.Enabled());
  EXPECT_TRUE(page.txtCategoricalCov.Enabled());
  EXPECT_TRUE(page.flxCategoricalCov.Enabled());
  EXPECT_TRUE(page.cmdAddCovValue.Enabled());
  EXPECT_FALSE(page.cmdSubCovValue.Enabled());
  page.SetCategoricalLevels("a");
  page.SetCategoricalCov(false);
  EXPECT_FALSE(page.labCategoricalCov.Enabled());
  EXPECT_FALSE(page.txtCategoricalCov.Enabled());
  EXPECT_FALSE(page.flxCategoricalCov.Enabled());
  EXPECT_FALSE(page.cmdAddCovValue.Enabled());
  EXPECT_FALSE(page.cmdSubCovValue.Enabled());
  page.SetCategoricalCov(true);
  EXPECT_TRUE(page.cmdSubCovValue.Enabled());
  EXPECT_EQ(page.CategoricalValues(0), "a");
}

TEST_F(CovariatesPage, PlusAddsACentredLiveLevelColumn) {
  page.SetCategoricalCov(true);
  ASSERT_TRUE(page.cmdAddCovValue.UserClick());
  ASSERT_EQ(page.flxCategoricalCov.Cols(), 2);
  EXPECT_EQ(page.flxCategoricalCov.CellAlignmentAt(0, 1), CellAlignment::kCenterCenter);
  EXPECT_EQ(page.flxCategoricalCov.CellAlignmentAt(1, 1), CellAlignment::kCenterCenter);
  EXPECT_EQ(page.flxCategoricalCov.CellBackColor(0, 1), page.flxCategoricalCov.BackColor());
  EXPECT_TRUE(page.cmdSubCovValue.Enabled());
  EXPECT_TRUE(page.flxCategoricalCov.UserEditCell(0, 1, "m"));
  EXPECT_EQ(page.CategoricalValues(0), "m");
}

TEST_F(CovariatesPage, MinusAtOneLevelColumnRemovesItAndDisablesItself) {
  UseCategorical("sex", "m", "1");
  ASSERT_TRUE(page.cmdSubCovValue.Enabled());
  ASSERT_TRUE(page.cmdSubCovValue.UserClick());
  EXPECT_EQ(page.flxCategoricalCov.Cols(), 1);
  EXPECT_FALSE(page.cmdSubCovValue.Enabled());
  EXPECT_FALSE(page.cmdSubCovValue.UserClick());
  EXPECT_EQ(page.flxCategoricalCov.Cols(), 1);
}

TEST_F(CovariatesPage, MinusRemovesTheLastLevelAndItsProbability) {
  UseCategorical("sex", "m,f,u", "0.5,0.4,0.1");
  ASSERT_TRUE(page.cmdSubCovValue.UserClick());
  EXPECT_EQ(page.CategoricalValues(0), "m,f");
  EXPECT_EQ(page.CategoricalValues(1), "0.5,0.4");
  EXPECT_TRUE(page.cmdSubCovValue.Enabled());
}

// ---------------------------------------------------------------------------------------------
// Properties

TEST_F(CovariatesPage, LevelsABCWithProbabilitiesRoundTripAndPass) {
  UseCategorical("sex", "a,b,c", "0.5,0.25,0.25");
  EXPECT_EQ(page.flxCategoricalCov.Cols(), 4);
  EXPECT_EQ(page.CategoricalValues(0), "a,b,c");
  EXPECT_EQ(page.CategoricalValues(1), "0.5,0.25,0.25");
  EXPECT_EQ(page.CategoricalName(), "sex");
  EXPECT_EQ(Check(true), "");
}

TEST_F(CovariatesPage, CategoricalLevelsAddColumnsButWriteFromTheFirstLevelColumn) {
  // The levels expect the bare table that Initialize leaves; on a filled one they add columns at the
  // end and still write from column 1.
  page.SetCategoricalLevels("a,b");
  page.SetCategoricalLevels("c");
  EXPECT_EQ(page.flxCategoricalCov.Cols(), 4);
  EXPECT_EQ(page.CategoricalValues(0), "c,b,");
}

TEST_F(CovariatesPage, CategoricalLevelsEmptyTextAddsNothing) {
  page.SetCategoricalLevels("");
  EXPECT_EQ(page.flxCategoricalCov.Cols(), 1);
  EXPECT_EQ(page.CategoricalValues(0), "");
}

TEST_F(CovariatesPage, CategoricalProbsWithOnePartWriteOnlyTheFirstColumn) {
  UseCategorical("sex", "a,b", "0.4,0.6");
  page.SetCategoricalProbs("1");
  EXPECT_EQ(page.CategoricalValues(1), "1,0.6");
}

TEST_F(CovariatesPage, CategoricalProbsBeyondTheLastLevelWriteThoseThatFitThenRaiseTheGridError) {
  page.SetCategoricalLevels("a");
  EXPECT_EQ(ErrorNumberOf([&] { page.SetCategoricalProbs("0.5,0.5"); }), 381);
  EXPECT_EQ(page.flxCategoricalCov.Cols(), 2);
  EXPECT_EQ(page.CategoricalValues(1), "0.5");
}

TEST_F(CovariatesPage, CategoricalValuesOfAMissingRowRaiseTheGridErrorAtTheFirstCell) {
  // With no level column no cell is read, so nothing fails.
  EXPECT_EQ(page.CategoricalValues(2), "");
  page.SetCategoricalLevels("a");
  EXPECT_EQ(ErrorNumberOf([&] { page.CategoricalValues(2); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { page.CategoricalValues(-1); }), 381);
}

TEST_F(CovariatesPage, ContinuousParamsRoundTripMuThenSigma) {
  UseContinuous("size", "Log-Normal", "0,1");
  EXPECT_EQ(page.ContinuousParams(), "0,1");
  page.SetContinuousParams("5");
  EXPECT_EQ(page.ContinuousParams(), "5,1");
}

TEST_F(CovariatesPage, ContinuousParamsBeyondSigmaRaiseTheGridError) {
  page.SetContinuousCovariate(true);
  page.SetContinuousDist("Normal");
  EXPECT_EQ(ErrorNumberOf([&] { page.SetContinuousParams("1,2,3"); }), 381);
  // Mu and sigma are written before the third part finds no column.
  EXPECT_EQ(page.flxContinuousCov.Cols(), 3);
  EXPECT_EQ(page.ContinuousParams(), "1,2");
}

TEST_F(CovariatesPage, ContinuousParamsWithoutADistributionRaiseTheGridError) {
  EXPECT_EQ(ErrorNumberOf([&] { page.SetContinuousParams("1"); }), 381);
  EXPECT_EQ(page.ContinuousParams(), "");
}

TEST_F(CovariatesPage, ContinuousDistIgnoresCaseAndFallsBackToPleaseSelect) {
  page.SetContinuousDist("log-normal");
  EXPECT_EQ(page.ContinuousDist(), "Log-Normal");
  EXPECT_EQ(page.flxContinuousCov.Cols(), 3);
  page.SetContinuousDist("Gamma");
  EXPECT_EQ(page.ContinuousDist(), "Please Select");
  EXPECT_EQ(page.flxContinuousCov.Cols(), 1);
}

TEST_F(CovariatesPage, ContinuousDistRaises382InDesignMode) {
  platform.SetUserMode(false);
  EXPECT_EQ(ErrorNumberOf([&] { page.SetContinuousDist("Normal"); }), 382);
  EXPECT_EQ(page.ContinuousDist(), "Please Select");
  EXPECT_EQ(page.flxContinuousCov.Cols(), 1);
}

TEST_F(CovariatesPage, NormalTwiceDoesNotRebuildTheParameterTable) {
  UseContinuous("size", "Normal", "3,1");
  page.SetContinuousDist("Normal");
  EXPECT_EQ(page.ContinuousParams(), "3,1");
  ASSERT_TRUE(page.cboDistribution.UserSelect(1));
  EXPECT_EQ(page.ContinuousParams(), "3,1");
}

TEST_F(CovariatesPage, NormalThenLogNormalKeepsMuAndSigma) {
  UseContinuous("size", "Normal", "3,1");
  ASSERT_TRUE(page.cboDistribution.UserSelect(2));
  EXPECT_EQ(page.ContinuousDist(), "Log-Normal");
  EXPECT_EQ(page.ContinuousParams(), "3,1");
  page.SetContinuousDist("Normal");
  EXPECT_EQ(page.ContinuousParams(), "3,1");
}

TEST_F(CovariatesPage, PleaseSelectDropsTheParameters) {
  UseContinuous("size", "Normal", "3,1");
  ASSERT_TRUE(page.cboDistribution.UserSelect(0));
  EXPECT_EQ(page.flxContinuousCov.Cols(), 1);
  EXPECT_EQ(page.ContinuousParams(), "");
  ASSERT_TRUE(page.cboDistribution.UserSelect(1));
  EXPECT_EQ(page.ContinuousParams(), ",");
}

// ---------------------------------------------------------------------------------------------
// Covariate summary

TEST_F(CovariatesPage, LevelLabelsAreNameDotLevel) {
  UseCategorical("sex", "m,f", "0.5,0.5");
  page.UpdateCovariateInfo();
  EXPECT_EQ(page.CatCovLevels(), (std::vector<std::string>{"sex.m", "sex.f"}));
}

TEST_F(CovariatesPage, NoCategoricalCovariateGivesOneEmptyLevel) {
  UseCategorical("sex", "m,f", "0.5,0.5");
  page.UpdateCovariateInfo();
  page.SetCategoricalCov(false);
  page.UpdateCovariateInfo();
  EXPECT_EQ(page.CatCovLevels(), std::vector<std::string>{""});
}

TEST_F(CovariatesPage, LogNormalMuZeroSigmaOneGivesExpOfAHalf) {
  UseContinuous("size", "Log-Normal", "0,1");
  page.UpdateCovariateInfo();
  EXPECT_EQ(page.ContinuousCov(), "size");
  EXPECT_NEAR(page.MeanConinuousCov(), 1.6487212707, 1e-10);
  EXPECT_DOUBLE_EQ(page.MeanConinuousCov(), std::exp(0.5));
}

TEST_F(CovariatesPage, NormalMuThreeGivesThree) {
  UseContinuous("size", "Normal", "3,2");
  page.UpdateCovariateInfo();
  EXPECT_DOUBLE_EQ(page.MeanConinuousCov(), 3.0);
}

TEST_F(CovariatesPage, ContinuousWithoutDistributionHasMeanZero) {
  page.SetContinuousCovariate(true);
  page.SetContinuousName("size");
  page.UpdateCovariateInfo();
  EXPECT_EQ(page.ContinuousCov(), "size");
  EXPECT_DOUBLE_EQ(page.MeanConinuousCov(), 0.0);
}

TEST_F(CovariatesPage, UntickedContinuousClearsNameAndMean) {
  UseContinuous("size", "Normal", "3,2");
  page.UpdateCovariateInfo();
  page.SetContinuousCovariate(false);
  page.UpdateCovariateInfo();
  EXPECT_EQ(page.ContinuousCov(), "");
  EXPECT_DOUBLE_EQ(page.MeanConinuousCov(), 0.0);
}

TEST_F(CovariatesPage, SummaryOfANonNumericMuRaisesToTheCaller) {
  UseContinuous("size", "Normal", "abc,1");
  EXPECT_EQ(ErrorNumberOf([&] { page.UpdateCovariateInfo(); }), 13);
}

// ---------------------------------------------------------------------------------------------
// Checks

TEST_F(CovariatesPage, NeitherBoxTickedIsValidWhateverTheTablesHold) {
  page.SetCategoricalLevels("a b,;,");
  page.SetCategoricalProbs("x,7,-1");
  page.SetContinuousDist("Normal");
  page.SetContinuousParams("q,-4");
  std::string message = "old";
  EXPECT_TRUE(page.IsValid(message));
  EXPECT_EQ(message, "");
}

class CategoricalSum : public CovariatesPage,
                       public ::testing::WithParamInterface<std::pair<const char*, bool>> {};

TEST_P(CategoricalSum, ProbabilitiesMustSumToExactlyOneInColumnOrder) {
  const std::string probabilities = GetParam().first;
  const bool passes = GetParam().second;
  std::string levels;
  for (size_t i = 0, n = Split(probabilities, ',').size(); i < n; ++i) {
    levels += (i ? ",l" : "l") + std::to_string(i);
  }
  UseCategorical("group", levels, probabilities);
  EXPECT_EQ(Check(passes), passes ? "" : kSumMessage);
}

INSTANTIATE_TEST_SUITE_P(Sums, CategoricalSum,
                         ::testing::Values(std::make_pair("0.3,0.3,0.4", true),
                                           std::make_pair("0.333,0.333,0.334", true),
                                           std::make_pair("0.333,0.333,0.333", false),
                                           std::make_pair("0.1,0.2,0.7", true),
                                           std::make_pair("0.7,0.2,0.1", false),
                                           std::make_pair("0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1", false),
                                           std::make_pair("1", true), std::make_pair("0.5,0.6", false)));

TEST_F(CovariatesPage, CategoricalWithoutNameFails) {
  UseCategorical("", "a", "1");
  EXPECT_EQ(Check(false), kNoNameMessage);
}

TEST_F(CovariatesPage, CategoricalNameWithASpaceFailsWithTheSharedNameCheck) {
  UseCategorical("my sex", "a", "1");
  EXPECT_EQ(
      Check(false),
      "Spaces are not allowed in covariate or covariate value names.  Please change the values you have "
      "provided.");
}

TEST_F(CovariatesPage, CategoricalNameChecksFollowTheSharedOrder) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a;b", "Semicolons are not allowed in covariate or covariate value names."},
      {"a:b", "Colons are not allowed in covariate or covariate value names."},
      {"a^b", "Mathematical symbols are not allowed in covariate or covariate factor names."},
      {"a|b", "Symbols other than '.' or '_' are not allowed in covariate or covariate factor names."},
      {"a;b c", "Spaces are not allowed in covariate or covariate value names."},
  };
  UseCategorical("x", "a", "1");
  for (const auto& [name, text] : cases) {
    page.SetCategoricalName(name);
    EXPECT_EQ(Check(false), text + "  Please change the values you have provided.") << name;
  }
  page.SetCategoricalName("size_2.(cm)#$%");
  EXPECT_EQ(Check(true), "");
}

TEST_F(CovariatesPage, CategoricalTableWithoutLevelsFails) {
  page.SetCategoricalCov(true);
  page.SetCategoricalName("sex");
  EXPECT_EQ(
      Check(false),
      "You have not entered any information in the table relating to the categorical covariate.  Please "
      "create some additional columns and provide the required values.");
}

TEST_F(CovariatesPage, BlankLevelNamesItsColumn) {
  UseCategorical("sex", "m,,f", "0.5,0.25,0.25");
  EXPECT_EQ(Check(false),
            "There is a blank cell in the first row of column 2.  Please enter a value in that cell.");
}

TEST_F(CovariatesPage, LevelNameGoesThroughTheSharedNameCheck) {
  UseCategorical("sex", "m,f-x", "0.5,0.5");
  EXPECT_EQ(Check(false),
            "Mathematical symbols are not allowed in covariate or covariate factor names.  Please change the "
            "values you have provided.");
}

TEST_F(CovariatesPage, BlankProbabilityNamesItsColumn) {
  UseCategorical("sex", "m,f,u", "0.5,0.5");
  EXPECT_EQ(Check(false),
            "There is a blank cell in the second row of column 3.  Please enter a value in that cell.");
}

TEST_F(CovariatesPage, ColumnsAreCheckedLevelThenProbabilityLeftToRight) {
  UseCategorical("sex", "m,f,", "0.5,");
  EXPECT_EQ(Check(false),
            "There is a blank cell in the second row of column 2.  Please enter a value in that cell.");
}

TEST_F(CovariatesPage, NonNumericProbabilityGivesTheUnexpectedErrorText) {
  UseCategorical("sex", "m,f", "half,0.5");
  std::string message = "previous ";
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(message, kUnexpected);
  EXPECT_EQ(message, CModErrorHandling::kUnexpectedCheckMessage);
}

TEST_F(CovariatesPage, FailureMessageIsAppendedToTheArgument) {
  UseCategorical("", "a", "1");
  std::string message = "Covariates: ";
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(message, "Covariates: " + kNoNameMessage);
}

TEST_F(CovariatesPage, CategoricalIsCheckedBeforeContinuous) {
  UseCategorical("sex", "m,f", "0.5,0.6");
  UseContinuous("", "Please Select", "");
  EXPECT_EQ(Check(false), kSumMessage);
}

TEST_F(CovariatesPage, ContinuousWithoutNameReusesTheCategoricalWording) {
  UseContinuous("", "Normal", "0,1");
  EXPECT_EQ(Check(false), kNoNameMessage);
}

TEST_F(CovariatesPage, ContinuousNameGoesThroughTheSharedNameCheck) {
  UseContinuous("body:size", "Normal", "0,1");
  EXPECT_EQ(
      Check(false),
      "Colons are not allowed in covariate or covariate value names.  Please change the values you have "
      "provided.");
  page.SetContinuousName("a@b");
  EXPECT_EQ(
      Check(false),
      "Symbols other than '.' or '_' are not allowed in covariate or covariate factor names.  Please change "
      "the values you have provided.");
}

TEST_F(CovariatesPage, ContinuousWithPleaseSelectFails) {
  page.SetContinuousCovariate(true);
  page.SetContinuousName("size");
  EXPECT_EQ(Check(false), kNoDistributionMessage);
}

TEST_F(CovariatesPage, ContinuousBlankMuOrSigmaFails) {
  UseContinuous("size", "Normal", ",1");
  EXPECT_EQ(Check(false), "A value has not been specified for mu.  Please supply this value.");
  page.SetContinuousParams("0,");
  EXPECT_EQ(Check(false), "A value has not been specified for sigma.  Please supply this value.");
}

TEST_F(CovariatesPage, SigmaOfZeroFails) {
  UseContinuous("size", "Log-Normal", "0,0");
  EXPECT_EQ(Check(false), kSigmaMessage);
}

TEST_F(CovariatesPage, SigmaOfMinusOneFails) {
  UseContinuous("size", "Normal", "0,-1");
  EXPECT_EQ(Check(false), kSigmaMessage);
}

TEST_F(CovariatesPage, NonNumericMuPasses) {
  UseContinuous("size", "Normal", "abc,1");
  EXPECT_EQ(Check(true), "");
}

TEST_F(CovariatesPage, NonNumericSigmaGivesTheUnexpectedErrorText) {
  UseContinuous("size", "Normal", "0,wide");
  EXPECT_EQ(Check(false), kUnexpected);
}

TEST_F(CovariatesPage, BothCovariatesValidTogether) {
  UseCategorical("sex", "m,f", "0.5,0.5");
  UseContinuous("size", "Log-Normal", "1,0.5");
  EXPECT_EQ(Check(true), "");
}

}  // namespace
}  // namespace zrsimprp

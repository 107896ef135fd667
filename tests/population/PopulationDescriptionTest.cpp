#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/pages/CPagPopulationDescription/CPagPopulationDescription.h"

namespace zrsimprp {
namespace {

const std::string kUnexpected =
    "An unexpected error occured while checking the options on this page.   Please check they are valid and "
    "change any incorrect values";

class PopulationPage : public ::testing::Test {
 protected:
  void SetUp() override { page.Initialize(); }

  // A freshly loaded page with the given strata under "Fixed N".
  void UseStrata(const std::vector<std::string>& names) {
    page.UpdateFlxN(static_cast<int32_t>(names.size()), names);
  }

  std::string Check(bool expected_result) {
    std::string message;
    EXPECT_EQ(page.IsValid(message), expected_result);
    return message;
  }

  void UsePmf(const std::string& sizes, const std::string& probabilities) {
    page.SetClusteredPop("True");
    page.SetClusterDistribution("pmf");
    page.SetClusterPMFSize(sizes);
    page.SetClusterPMFProb(probabilities);
  }

  void UseDistribution(const std::string& name, const std::string& params) {
    page.SetClusteredPop("True");
    page.SetClusterDistribution(name);
    page.SetClusterParams(params);
  }

  Color Grey(const Grid& grid) { return grid.BackColorFixed(); }
  Color Normal(const Grid& grid) { return grid.BackColor(); }

  HeadlessPlatform platform;
  CPagPopulationDescription page{platform};
};

// ---------------------------------------------------------------------------------------------
// Creation and Initialize

TEST(PopulationPageCreation, ControlsCarryTheirCaptions) {
  HeadlessPlatform platform;
  CPagPopulationDescription page(platform);
  EXPECT_EQ(page.lalPopsize.Caption(), "Population Size");
  ASSERT_EQ(page.optNcalculation.Count(), 3);
  EXPECT_EQ(page.optNcalculation.Button(0).Caption(), "Fixed N");
  EXPECT_EQ(page.optNcalculation.Button(1).Caption(),
            "Poisson N (generated according to density surface pdf)");
  EXPECT_EQ(page.optNcalculation.Button(2).Caption(), "Fixed average D (Poisson N)");
  EXPECT_EQ(page.lal.Caption(), "Animals in clusters");
  EXPECT_EQ(page.chkClusters.Caption(), "Generate cluster sizes");
  EXPECT_EQ(page.frmClusterSize.Caption(), "Cluster Size Distribution");
  ASSERT_EQ(page.optClusterDist.Count(), 2);
  EXPECT_EQ(page.optClusterDist.Button(0).Caption(),
            "Specify probability mass function (pmf) for cluster size");
  EXPECT_EQ(page.optClusterDist.Button(1).Caption(), "Define distribution for cluster size:");
  EXPECT_EQ(page.cmdAddSize.Caption(), "+");
  EXPECT_EQ(page.cmdSubSize.Caption(), "-");
  EXPECT_EQ(page.cboDistribution.ListStyle(), ComboBox::Style::kListOnly);
  ASSERT_EQ(page.cboDistribution.ListCount(), 3);
  EXPECT_EQ(page.cboDistribution.List(0), "Please Select");
  EXPECT_EQ(page.cboDistribution.List(1), "Poisson");
  EXPECT_EQ(page.cboDistribution.List(2), "Negative-Binomial");
}

TEST(PopulationPageCreation, FormStateBeforeInitialize) {
  HeadlessPlatform platform;
  CPagPopulationDescription page(platform);
  EXPECT_TRUE(page.cmdAddSize.Enabled());
  EXPECT_FALSE(page.cmdSubSize.Enabled());
  EXPECT_EQ(page.optNcalculation.Selected(), 1);
  EXPECT_FALSE(page.cboDistribution.Enabled());
  EXPECT_EQ(page.optClusterDist.Selected(), 0);
  EXPECT_FALSE(page.optClusterDist.Button(0).Enabled());
  EXPECT_FALSE(page.optClusterDist.Button(1).Enabled());
  EXPECT_TRUE(page.flxN.Enabled());
  EXPECT_FALSE(page.flxClusterSize.Enabled());
  EXPECT_FALSE(page.flxClusterParam.Enabled());
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 0.0);
}

TEST(PopulationPageCreation, TablesHaveTheirShapes) {
  HeadlessPlatform platform;
  CPagPopulationDescription page(platform);
  EXPECT_EQ(page.flxN.Rows(), 2);
  EXPECT_EQ(page.flxN.Cols(), 2);
  EXPECT_EQ(page.flxN.FixedRows(), 1);
  EXPECT_EQ(page.flxN.FixedCols(), 1);
  EXPECT_EQ(page.flxN.TextMatrix(1, 1), "0");
  EXPECT_EQ(page.flxN.CellAlignmentAt(1, 0), CellAlignment::kRightCenter);

  EXPECT_EQ(page.flxClusterSize.Rows(), 2);
  EXPECT_EQ(page.flxClusterSize.Cols(), 1);
  EXPECT_EQ(page.flxClusterSize.FixedRows(), 0);
  EXPECT_EQ(page.flxClusterSize.FixedCols(), 1);
  EXPECT_EQ(page.flxClusterSize.TextMatrix(0, 0), "Cluster Size");
  EXPECT_EQ(page.flxClusterSize.TextMatrix(1, 0), "Probability");

  EXPECT_EQ(page.flxClusterParam.Rows(), 2);
  EXPECT_EQ(page.flxClusterParam.Cols(), 1);
  EXPECT_EQ(page.flxClusterParam.FixedRows(), 1);
  EXPECT_EQ(page.flxClusterParam.TextMatrix(0, 0), "Parameter Name:");
  EXPECT_EQ(page.flxClusterParam.TextMatrix(1, 0), "Parameter Value");
}

TEST_F(PopulationPage, InitializeLeavesOnlyFixedNOpenToTheUser) {
  EXPECT_EQ(page.optNcalculation.Selected(), 0);
  EXPECT_TRUE(page.optNcalculation.Button(0).Enabled());
  EXPECT_FALSE(page.optNcalculation.Button(1).Enabled());
  EXPECT_FALSE(page.optNcalculation.Button(2).Enabled());
  EXPECT_TRUE(page.flxN.Enabled());
  EXPECT_EQ(page.flxN.TextMatrix(1, 0), "N:");
  EXPECT_EQ(page.flxN.Cols(), 2);
  EXPECT_EQ(page.flxN.TextMatrix(1, 1), "0");
  EXPECT_EQ(page.chkClusters.Value(), CheckBox::kUnchecked);
  EXPECT_FALSE(page.chkClusters.Enabled());
  EXPECT_FALSE(page.optClusterDist.Button(0).Enabled());
  EXPECT_FALSE(page.optClusterDist.Button(1).Enabled());
  EXPECT_EQ(page.cboDistribution.ListIndex(), 0);
  EXPECT_EQ(page.cboDistribution.Text(), "Please Select");
  EXPECT_FALSE(page.cboDistribution.Enabled());
  EXPECT_FALSE(page.flxClusterParam.Enabled());
  EXPECT_EQ(page.flxClusterParam.Cols(), 1);
  EXPECT_FALSE(page.flxClusterSize.Enabled());
  EXPECT_EQ(page.flxClusterSize.Cols(), 1);
  EXPECT_FALSE(page.cmdAddSize.Enabled());
  EXPECT_FALSE(page.cmdSubSize.Enabled());
  EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(PopulationPage, InitializeDropsStrataPmfColumnsAndParameters) {
  UseStrata({"A", "B", "C"});
  page.SetPopSizeValues("1,2,3");
  UsePmf("1,2", "0.5,0.5");
  page.SetClusterDistribution("Poisson");
  page.SetClusterParams("4");
  page.Initialize();
  EXPECT_EQ(page.flxN.Cols(), 2);
  EXPECT_EQ(page.flxN.TextMatrix(1, 1), "0");
  EXPECT_EQ(page.flxClusterSize.Cols(), 1);
  EXPECT_EQ(page.flxClusterParam.Cols(), 1);
  EXPECT_EQ(page.chkClusters.Value(), CheckBox::kUnchecked);
  EXPECT_EQ(page.ClusteredPop(), "False");
}

TEST_F(PopulationPage, InitializeForgetsTheLastDistribution) {
  page.SetClusteredPop("True");
  page.SetClusterDistribution("Poisson");
  page.SetClusterParams("3");
  page.Initialize();
  // The list is back on "Please Select"; choosing Poisson again must build the table afresh.
  page.optClusterDist.Select(1);
  page.cboDistribution.SetListIndex(1);
  EXPECT_EQ(page.flxClusterParam.Cols(), 2);
  EXPECT_EQ(page.flxClusterParam.TextMatrix(0, 1), "lambda");
  EXPECT_EQ(page.flxClusterParam.TextMatrix(1, 1), "");
}

TEST_F(PopulationPage, InitializeReportsAnErrorAsPagPopulationInititalize) {
  page.flxN.SetRows(1);  // row 1 is gone, so the "0" cannot be written
  page.Initialize();
  ASSERT_EQ(platform.Messages().size(), 1u);
  const auto& report = platform.Messages()[0];
  EXPECT_EQ(report.title, "Pellunar Internal Error");
  EXPECT_EQ(report.icon, MessageIcon::Critical);
  EXPECT_NE(report.text.find("(Error raised from: ZrSIMPrp.PagPopulation.Inititalize)"), std::string::npos);
  EXPECT_NE(report.text.find("(Error number: 381)"), std::string::npos);
  EXPECT_EQ(platform.Beeps(), 1);
}

// ---------------------------------------------------------------------------------------------
// Population size table

TEST_F(PopulationPage, UpdateFlxNWritesStrataNamesAndZeros) {
  UseStrata({"A", "B", "C"});
  EXPECT_EQ(page.flxN.Rows(), 2);
  ASSERT_EQ(page.flxN.Cols(), 4);
  EXPECT_EQ(page.flxN.TextMatrix(0, 1), "A");
  EXPECT_EQ(page.flxN.TextMatrix(0, 2), "B");
  EXPECT_EQ(page.flxN.TextMatrix(0, 3), "C");
  EXPECT_EQ(page.PopSizeValues(), "0,0,0");
  EXPECT_EQ(page.flxN.CellAlignmentAt(0, 3), CellAlignment::kCenterCenter);
  EXPECT_EQ(page.flxN.CellAlignmentAt(1, 3), CellAlignment::kCenterCenter);
}

TEST_F(PopulationPage, UpdateFlxNFromThreeToTwoStrataDropsTheThirdValue) {
  UseStrata({"A", "B", "C"});
  page.SetPopSizeValues("10,20,30");
  UseStrata({"A", "B"});
  EXPECT_EQ(page.flxN.Cols(), 3);
  EXPECT_EQ(page.PopSizeValues(), "10,20");
  UseStrata({"A", "B", "C"});
  EXPECT_EQ(page.PopSizeValues(), "10,20,0");
}

TEST_F(PopulationPage, UpdateFlxNFromTwoToFourStrataKeepsValuesAndZeroesNewCells) {
  UseStrata({"A", "B"});
  page.SetPopSizeValues("7,8");
  UseStrata({"W", "X", "Y", "Z"});
  EXPECT_EQ(page.PopSizeValues(), "7,8,0,0");
  EXPECT_EQ(page.flxN.TextMatrix(0, 1), "W");
  EXPECT_EQ(page.flxN.TextMatrix(0, 4), "Z");
}

TEST_F(PopulationPage, UpdateFlxNKeepsAnEmptiedCellEmptyOnlyUntilTheNextCall) {
  UseStrata({"A", "B"});
  page.flxN.SetTextMatrix(1, 2, "");
  UseStrata({"A", "B"});
  EXPECT_EQ(page.PopSizeValues(), "0,0");
}

TEST_F(PopulationPage, FixedDShowsNAfterUpdateFlxNUntilOptionTwoIsClickedAgain) {
  page.SetPopulationSize("Fixed D");
  EXPECT_EQ(page.flxN.TextMatrix(1, 0), "D:");
  UseStrata({"A", "B"});
  EXPECT_EQ(page.flxN.TextMatrix(1, 0), "N:");
  EXPECT_EQ(page.PopulationSize(), "Fixed D");
  page.SetPopulationSize("Fixed D");
  EXPECT_EQ(page.flxN.TextMatrix(1, 0), "D:");
}

TEST_F(PopulationPage, UpdateFlxNGreysTheValuesUnderPoissonN) {
  page.SetPopulationSize("Poisson N");
  UseStrata({"A", "B", "C"});
  for (int c = 1; c <= 3; ++c) EXPECT_EQ(page.flxN.CellBackColor(1, c), Grey(page.flxN)) << c;
}

TEST_F(PopulationPage, UpdateFlxNWithNoStrataLeavesTheLabelColumnOnly) {
  page.UpdateFlxN(0, {});
  EXPECT_EQ(page.flxN.Cols(), 1);
  EXPECT_EQ(page.PopSizeValues(), "");
  EXPECT_EQ(page.flxN.TextMatrix(1, 0), "N:");
}

TEST_F(PopulationPage, UpdateFlxNWithTooFewNamesFailsAtTheFirstMissingNameAfterTheTableIsResized) {
  page.SetPopulationSize("Fixed D");
  UseStrata({"A", "B"});
  page.SetPopSizeValues("1,2");
  try {
    page.UpdateFlxN(4, {"P", "Q"});
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 9);
    EXPECT_EQ(error.description, "Subscript out of range");
  }
  // The new columns exist and the names before the missing one are written, with "N:" as the label;
  // the third column got neither name nor zero, and the centring that follows the names never ran.
  ASSERT_EQ(page.flxN.Cols(), 5);
  EXPECT_EQ(page.flxN.TextMatrix(1, 0), "N:");
  EXPECT_EQ(page.flxN.TextMatrix(0, 1), "P");
  EXPECT_EQ(page.flxN.TextMatrix(0, 2), "Q");
  EXPECT_EQ(page.flxN.TextMatrix(0, 3), "");
  EXPECT_EQ(page.PopSizeValues(), "1,2,,");
  EXPECT_EQ(page.flxN.CellAlignmentAt(1, 4), CellAlignment::kGeneral);
}

TEST_F(PopulationPage, UpdateFlxNWithANegativeCountIsRefusedByTheGrid) {
  UseStrata({"A", "B"});
  // One below zero leaves no column for the label; further below, the grid refuses the count.
  EXPECT_EQ(ErrorNumberOf([&] { page.UpdateFlxN(-1, {}); }), 381);
  EXPECT_EQ(page.flxN.Cols(), 0);
  UseStrata({"A"});
  EXPECT_EQ(ErrorNumberOf([&] { page.UpdateFlxN(-2, {}); }), 380);
  EXPECT_EQ(page.flxN.Cols(), 2);
  EXPECT_EQ(page.flxN.TextMatrix(0, 1), "A");
}

TEST_F(PopulationPage, UpdateFlxNWithACountThatLeavesNoRoomForTheLabelColumnOverflows) {
  UseStrata({"A"});
  EXPECT_EQ(ErrorNumberOf([&] { page.UpdateFlxN(2147483647, {"A"}); }), 6);
  EXPECT_EQ(page.flxN.Cols(), 2);
}

TEST_F(PopulationPage, PoissonNDisablesAndGreysTheTableButKeepsItsLabel) {
  UseStrata({"A", "B"});
  page.SetPopulationSize("Fixed D");
  page.SetPopulationSize("Poisson N");
  EXPECT_FALSE(page.flxN.Enabled());
  EXPECT_EQ(page.flxN.CellBackColor(1, 1), Grey(page.flxN));
  EXPECT_EQ(page.flxN.CellBackColor(1, 2), Grey(page.flxN));
  EXPECT_EQ(page.flxN.TextMatrix(1, 0), "D:");
  page.SetPopulationSize("Fixed N");
  EXPECT_TRUE(page.flxN.Enabled());
  EXPECT_EQ(page.flxN.CellBackColor(1, 2), Normal(page.flxN));
  EXPECT_EQ(page.flxN.TextMatrix(1, 0), "N:");
}

TEST_F(PopulationPage, PopulationSizeWordsIgnoreCaseAndOtherWordsChangeNothing) {
  page.SetPopulationSize("poisson n");
  EXPECT_EQ(page.PopulationSize(), "Poisson N");
  page.SetPopulationSize("fixed d");
  EXPECT_EQ(page.PopulationSize(), "Fixed D");
  page.SetPopulationSize("Fixed average D");
  EXPECT_EQ(page.PopulationSize(), "Fixed D");
  page.SetPopulationSize("FIXED N");
  EXPECT_EQ(page.PopulationSize(), "Fixed N");
}

TEST_F(PopulationPage, PopSizeValuesRoundTripThroughTheTable) {
  UseStrata({"A", "B", "C"});
  page.SetPopSizeValues("10,0,5.5");
  EXPECT_EQ(page.flxN.TextMatrix(1, 3), "5.5");
  EXPECT_EQ(page.PopSizeValues(), "10,0,5.5");
}

TEST_F(PopulationPage, PopSizeValuesEmptyTextWritesNothing) {
  UseStrata({"A", "B"});
  page.SetPopSizeValues("4,5");
  page.SetPopSizeValues("");
  EXPECT_EQ(page.PopSizeValues(), "4,5");
}

TEST_F(PopulationPage, PopSizeValuesWithFewerPiecesLeaveTheOtherCells) {
  UseStrata({"A", "B", "C"});
  page.SetPopSizeValues("4,5,6");
  page.SetPopSizeValues("9");
  EXPECT_EQ(page.PopSizeValues(), "9,5,6");
}

TEST_F(PopulationPage, PopSizeValuesWithMorePiecesThanStrataWriteThoseThatFitThenRaise) {
  UseStrata({"A", "B"});
  EXPECT_EQ(ErrorNumberOf([&] { page.SetPopSizeValues("1,2,3"); }), 381);
  EXPECT_EQ(page.flxN.Cols(), 3);
  EXPECT_EQ(page.PopSizeValues(), "1,2");
}

// ---------------------------------------------------------------------------------------------
// Population size checks

TEST_F(PopulationPage, ThreeStrataWithTenZeroAndFiveAndAHalfAreValid) {
  UseStrata({"A", "B", "C"});
  page.SetPopSizeValues("10,0,5.5");
  EXPECT_EQ(page.PopSizeValues(), "10,0,5.5");
  std::string message = "left over";
  EXPECT_TRUE(page.IsValid(message));
  EXPECT_EQ(message, "");
}

TEST_F(PopulationPage, NegativeValueUnderBNamesStratumB) {
  UseStrata({"A", "B", "C"});
  page.SetPopSizeValues("10,-1,5.5");
  EXPECT_EQ(Check(false),
            "There value for N/D in the population size table for strata 'B' cannot be less than 0.  Please "
            "ammend the value in that cell.");
}

TEST_F(PopulationPage, NegativeValueUnderFixedDFailsToo) {
  UseStrata({"A", "B"});
  page.SetPopulationSize("Fixed D");
  page.SetPopSizeValues("-0.5,3");
  EXPECT_EQ(Check(false),
            "There value for N/D in the population size table for strata 'A' cannot be less than 0.  Please "
            "ammend the value in that cell.");
}

TEST_F(PopulationPage, BlankValueNamesItsStratum) {
  UseStrata({"North", "South"});
  page.flxN.SetTextMatrix(1, 2, "");
  EXPECT_EQ(Check(false),
            "There is a blank cell in the column of the population size table for strata 'South'.  Please "
            "enter a value in that cell.");
}

TEST_F(PopulationPage, FirstFailingColumnFromTheLeftIsReported) {
  UseStrata({"A", "B", "C"});
  page.SetPopSizeValues("1,-2,");
  page.flxN.SetTextMatrix(1, 3, "");
  EXPECT_EQ(Check(false),
            "There value for N/D in the population size table for strata 'B' cannot be less than 0.  Please "
            "ammend the value in that cell.");
}

TEST_F(PopulationPage, FailureMessageIsAppendedToTheArgument) {
  UseStrata({"A"});
  page.SetPopSizeValues("-1");
  std::string message = "Before. ";
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(message,
            "Before. There value for N/D in the population size table for strata 'A' cannot be less than 0.  "
            "Please ammend the value in that cell.");
}

TEST_F(PopulationPage, PoissonNDoesNotCheckThePopulationSizeTable) {
  UseStrata({"A", "B", "C"});
  page.SetPopSizeValues("-1,,x");
  page.SetPopulationSize("Poisson N");
  EXPECT_EQ(Check(true), "");
}

TEST_F(PopulationPage, NoStrataColumnsPassUnderEveryOption) {
  page.UpdateFlxN(0, {});
  for (const char* option : {"Fixed N", "Poisson N", "Fixed D"}) {
    page.SetPopulationSize(option);
    EXPECT_EQ(Check(true), "") << option;
  }
}

TEST_F(PopulationPage, NonNumericPopulationSizeGivesTheUnexpectedErrorText) {
  UseStrata({"A"});
  page.SetPopSizeValues("ten");
  std::string message = "previous text ";
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(message, kUnexpected);
  EXPECT_EQ(message, CModErrorHandling::kUnexpectedCheckMessage);
}

// ---------------------------------------------------------------------------------------------
// Clusters check box and option buttons

TEST_F(PopulationPage, ClusteredPopTrueOpensThePmfControls) {
  page.SetClusteredPop("True");
  EXPECT_EQ(page.chkClusters.Value(), CheckBox::kChecked);
  EXPECT_EQ(page.ClusteredPop(), "True");
  EXPECT_TRUE(page.Clusters());
  EXPECT_TRUE(page.flxClusterSize.Enabled());
  EXPECT_TRUE(page.optClusterDist.Button(0).Enabled());
  EXPECT_TRUE(page.optClusterDist.Button(1).Enabled());
  EXPECT_TRUE(page.cmdAddSize.Enabled());
  EXPECT_FALSE(page.cmdSubSize.Enabled());  // no pmf column yet
  EXPECT_FALSE(page.cboDistribution.Enabled());
  EXPECT_FALSE(page.flxClusterParam.Enabled());
}

TEST_F(PopulationPage, ClusteredPopIgnoresCaseAndAnyOtherWordUnchecks) {
  page.SetClusteredPop("true");
  EXPECT_EQ(page.ClusteredPop(), "True");
  page.SetClusteredPop("Yes");
  EXPECT_EQ(page.ClusteredPop(), "False");
  EXPECT_FALSE(page.Clusters());
  EXPECT_FALSE(page.flxClusterSize.Enabled());
  EXPECT_FALSE(page.cmdAddSize.Enabled());
  EXPECT_FALSE(page.optClusterDist.Button(0).Enabled());
}

TEST_F(PopulationPage, GrayedClustersBoxCountsAsClustersButNotAsClusteredPop) {
  page.chkClusters.SetValue(CheckBox::kGrayed);
  EXPECT_TRUE(page.Clusters());
  EXPECT_EQ(page.ClusteredPop(), "False");
  EXPECT_FALSE(page.flxClusterSize.Enabled());
}

TEST_F(PopulationPage, ClustersBoxEnablesMinusWhenThePmfHasColumns) {
  page.SetClusteredPop("True");
  page.SetClusterPMFSize("1");
  page.SetClusteredPop("False");
  EXPECT_FALSE(page.cmdSubSize.Enabled());
  page.SetClusteredPop("True");
  EXPECT_TRUE(page.cmdSubSize.Enabled());
}

TEST_F(PopulationPage, ClustersBoxLeavesTheListAndParameterTableAlone) {
  page.SetClusteredPop("True");
  page.SetClusterDistribution("Poisson");
  page.SetClusteredPop("False");
  EXPECT_TRUE(page.cboDistribution.Enabled());
  EXPECT_TRUE(page.flxClusterParam.Enabled());
}

TEST_F(PopulationPage, PmfOptionEnablesMinusEvenWithoutADataColumn) {
  page.SetClusteredPop("True");
  page.SetClusterDistribution("pmf");
  EXPECT_TRUE(page.cmdSubSize.Enabled());
  EXPECT_TRUE(page.cmdAddSize.Enabled());
  EXPECT_FALSE(page.cboDistribution.Enabled());
  EXPECT_TRUE(page.flxClusterSize.Enabled());
  EXPECT_FALSE(page.flxClusterParam.Enabled());
}

TEST_F(PopulationPage, DistributionOptionGreysThePmfAndOpensTheParameters) {
  UsePmf("1,2", "0.5,0.5");
  page.SetClusterDistribution("Negative-Binomial");
  EXPECT_EQ(page.optClusterDist.Selected(), 1);
  EXPECT_TRUE(page.cboDistribution.Enabled());
  EXPECT_FALSE(page.cmdAddSize.Enabled());
  EXPECT_FALSE(page.cmdSubSize.Enabled());
  EXPECT_FALSE(page.flxClusterSize.Enabled());
  for (int r = 0; r <= 1; ++r) {
    for (int c = 1; c <= 2; ++c)
      EXPECT_EQ(page.flxClusterSize.CellBackColor(r, c), Grey(page.flxClusterSize));
  }
  EXPECT_TRUE(page.flxClusterParam.Enabled());
  EXPECT_EQ(page.flxClusterParam.CellBackColor(1, 1), Normal(page.flxClusterParam));
  EXPECT_EQ(page.flxClusterParam.CellBackColor(1, 2), Normal(page.flxClusterParam));

  page.SetClusterDistribution("pmf");
  EXPECT_EQ(page.flxClusterSize.CellBackColor(0, 2), Normal(page.flxClusterSize));
  EXPECT_EQ(page.flxClusterParam.CellBackColor(1, 1), Grey(page.flxClusterParam));
  EXPECT_EQ(page.ClusterPMF(0), "1,2");  // the pmf values survive the switch
}

// ---------------------------------------------------------------------------------------------
// "+" and "-" and the pmf before-edit guard

TEST_F(PopulationPage, PlusAddsACentredLiveEmptyColumn) {
  page.SetClusteredPop("True");
  ASSERT_TRUE(page.cmdAddSize.UserClick());
  ASSERT_EQ(page.flxClusterSize.Cols(), 2);
  EXPECT_EQ(page.flxClusterSize.TextMatrix(0, 1), "");
  EXPECT_EQ(page.flxClusterSize.TextMatrix(1, 1), "");
  EXPECT_EQ(page.flxClusterSize.CellAlignmentAt(0, 1), CellAlignment::kCenterCenter);
  EXPECT_EQ(page.flxClusterSize.CellAlignmentAt(1, 1), CellAlignment::kCenterCenter);
  EXPECT_EQ(page.flxClusterSize.CellBackColor(1, 1), Normal(page.flxClusterSize));
  EXPECT_TRUE(page.cmdSubSize.Enabled());
}

TEST_F(PopulationPage, MinusDownToNoColumnDisablesItselfAndPlusEnablesItAgain) {
  UsePmf("1,2", "0.5,0.5");
  ASSERT_TRUE(page.cmdSubSize.UserClick());
  EXPECT_EQ(page.ClusterPMF(0), "1");
  EXPECT_TRUE(page.cmdSubSize.Enabled());
  ASSERT_TRUE(page.cmdSubSize.UserClick());
  EXPECT_EQ(page.flxClusterSize.Cols(), 1);
  EXPECT_FALSE(page.cmdSubSize.Enabled());
  EXPECT_FALSE(page.cmdSubSize.UserClick());
  EXPECT_EQ(page.flxClusterSize.Cols(), 1);
  ASSERT_TRUE(page.cmdAddSize.UserClick());
  EXPECT_TRUE(page.cmdSubSize.Enabled());
  EXPECT_EQ(page.ClusterPMF(0), "");  // a new column starts empty
}

TEST_F(PopulationPage, MinusOnTheLabelColumnOnlyKeepsIt) {
  page.SetClusteredPop("True");
  page.SetClusterDistribution("pmf");  // enables "-" with no data column
  ASSERT_TRUE(page.cmdSubSize.UserClick());
  EXPECT_EQ(page.flxClusterSize.Cols(), 1);
  EXPECT_FALSE(page.cmdSubSize.Enabled());
}

TEST_F(PopulationPage, PmfBeforeEditGuardRefusesAGreyedCell) {
  UsePmf("1,2", "0.5,0.5");
  page.SetClusterDistribution("Poisson");
  // Even with the table switched on, a greyed cell may not be edited.
  page.flxClusterSize.SetEnabled(true);
  EXPECT_FALSE(page.flxClusterSize.UserEditCell(1, 1, "0.9"));
  EXPECT_EQ(page.flxClusterSize.TextMatrix(1, 1), "0.5");
  page.SetClusterDistribution("pmf");
  EXPECT_TRUE(page.flxClusterSize.UserEditCell(1, 1, "0.9"));
  EXPECT_EQ(page.flxClusterSize.TextMatrix(1, 1), "0.9");
}

TEST_F(PopulationPage, PmfBeforeEditGuardRefusesAnyCellNotInTheNormalColour) {
  UsePmf("1", "1");
  page.flxClusterSize.SetCellBackColor(0, 1, 0, 1, Color::Rgb(255, 0, 0));
  EXPECT_FALSE(page.flxClusterSize.UserEditCell(0, 1, "3"));
  EXPECT_TRUE(page.flxClusterSize.UserEditCell(1, 1, "1"));
}

TEST_F(PopulationPage, PopulationTableHasNoBeforeEditGuard) {
  UseStrata({"A"});
  page.flxN.SetCellBackColor(1, 1, 1, 1, page.flxN.BackColorFixed());
  EXPECT_TRUE(page.flxN.UserEditCell(1, 1, "12"));
}

// ---------------------------------------------------------------------------------------------
// pmf properties and mean

TEST_F(PopulationPage, PmfOneTwoThreeGivesMeanOnePointSeven) {
  UsePmf("1,2,3", "0.5,0.3,0.2");
  EXPECT_EQ(page.flxClusterSize.Cols(), 4);
  EXPECT_EQ(page.ClusterPMF(0), "1,2,3");
  EXPECT_EQ(page.ClusterPMF(1), "0.5,0.3,0.2");
  EXPECT_EQ(page.ClusterDistribution(), "pmf");
  EXPECT_EQ(Check(true), "");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 1.7);
}

TEST_F(PopulationPage, MeanClusterSizeChangesOnlyThroughUpdateClusterInfo) {
  UsePmf("2", "1");
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 0.0);
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 2.0);
  page.flxClusterSize.SetTextMatrix(0, 1, "5");
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 2.0);
}

TEST_F(PopulationPage, PmfProbabilitiesAreNotNormalisedForTheMean) {
  UsePmf("2,4", "0.5,1");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 5.0);
}

TEST_F(PopulationPage, ClusterPMFSizeWithEmptyTextAddsAColumnThenFails) {
  page.SetClusteredPop("True");
  EXPECT_EQ(ErrorNumberOf([&] { page.SetClusterPMFSize(""); }), 9);
  ASSERT_EQ(page.flxClusterSize.Cols(), 2);
  EXPECT_EQ(page.ClusterPMF(0), "");
  EXPECT_EQ(page.flxClusterSize.CellBackColor(0, 1), page.flxClusterSize.BackColor());
  EXPECT_TRUE(page.cmdSubSize.Enabled());
}

TEST_F(PopulationPage, ClusterPMFOfAnEmptyTableFails) {
  EXPECT_EQ(ErrorNumberOf([&] { page.ClusterPMF(0); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { page.ClusterPMF(2); }), 381);
}

TEST_F(PopulationPage, ClusterPMFProbBeyondTheSizesWritesThoseThatFitThenFails) {
  page.SetClusteredPop("True");
  page.SetClusterPMFSize("1,2");
  EXPECT_EQ(ErrorNumberOf([&] { page.SetClusterPMFProb("0.2,0.3,0.5"); }), 381);
  EXPECT_EQ(page.flxClusterSize.Cols(), 3);
  EXPECT_EQ(page.ClusterPMF(1), "0.2,0.3");
}

TEST_F(PopulationPage, ClusterPMFProbWithOnePieceWritesOnlyTheFirstColumn) {
  page.SetClusteredPop("True");
  page.SetClusterPMFSize("1,2");
  page.SetClusterPMFProb("1");
  EXPECT_EQ(page.ClusterPMF(1), "1,");
}

// ---------------------------------------------------------------------------------------------
// pmf checks

TEST_F(PopulationPage, PmfWithoutColumnsFails) {
  page.SetClusteredPop("True");
  EXPECT_EQ(Check(false),
            "You have not entered any information in the cluster size table.  Please create some additional "
            "columns and provide the required values.");
}

TEST_F(PopulationPage, PmfBlankSizeNamesItsColumn) {
  UsePmf("1,2", "0.5,0.5");
  page.flxClusterSize.SetTextMatrix(0, 2, "");
  EXPECT_EQ(
      Check(false),
      "The cluster size value in column 2 of the cluster size table has not been entered.  Please supply "
      "this value.");
}

TEST_F(PopulationPage, PmfSizeBelowOneFails) {
  UsePmf("1,0.5", "0.5,0.5");
  EXPECT_EQ(
      Check(false),
      "The cluster size value in column 2 of the cluster size table is less than 1.  Please ammend this "
      "value.");
}

TEST_F(PopulationPage, PmfBlankProbabilityFails) {
  UsePmf("1,2", "0.5");
  EXPECT_EQ(
      Check(false),
      "The probability value in column 2 of the cluster size table has not been entered.  Please supply "
      "this value.");
}

TEST_F(PopulationPage, PmfProbabilityOutsideZeroToOneFails) {
  UsePmf("1,2", "1.5,-0.5");
  EXPECT_EQ(Check(false),
            "The probability in column 1 of the cluster size table must be a value between 0 and 1.  Please "
            "ammend this value.");
  page.SetClusterPMFProb("1,-0.5");
  EXPECT_EQ(Check(false),
            "The probability in column 2 of the cluster size table must be a value between 0 and 1.  Please "
            "ammend this value.");
}

TEST_F(PopulationPage, PmfChecksTheSizeBeforeTheProbabilityOfEachColumn) {
  UsePmf("1,0", "2,0.5");
  EXPECT_EQ(Check(false),
            "The probability in column 1 of the cluster size table must be a value between 0 and 1.  Please "
            "ammend this value.");
}

TEST_F(PopulationPage, PmfSumIsComparedExactlyInColumnOrder) {
  const std::string sum_message =
      "The probabilities in the cluster size table do not sum to 1.  Please ammend these values.";
  UsePmf("1,2,3", "0.7,0.2,0.1");
  EXPECT_EQ(Check(false), sum_message);
  page.SetClusterPMFProb("0.1,0.2,0.7");
  EXPECT_EQ(Check(true), "");
  page.SetClusterPMFProb("0.5,0.3,0.3");
  EXPECT_EQ(Check(false), sum_message);
}

TEST_F(PopulationPage, PmfOfTenColumnsOfOneTenthFails) {
  UsePmf("1,2,3,4,5,6,7,8,9,10", "0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1,0.1");
  EXPECT_EQ(Check(false),
            "The probabilities in the cluster size table do not sum to 1.  Please ammend these values.");
}

TEST_F(PopulationPage, PmfSizesMayBeFractionalAndRepeated) {
  UsePmf("1.5,1.5", "0.5,0.5");
  EXPECT_EQ(Check(true), "");
}

TEST_F(PopulationPage, PmfNonNumericSizeGivesTheUnexpectedErrorText) {
  UsePmf("1,two", "0.5,0.5");
  EXPECT_EQ(Check(false), kUnexpected);
}

TEST_F(PopulationPage, PmfMeanOfANonNumericSizeRaisesToTheCaller) {
  UsePmf("1,two", "0.5,0.5");
  EXPECT_EQ(ErrorNumberOf([&] { page.UpdateClusterInfo(); }), 13);
}

// ---------------------------------------------------------------------------------------------
// Distribution list and parameter table

TEST_F(PopulationPage, PoissonBuildsALambdaColumn) {
  page.SetClusteredPop("True");
  page.SetClusterDistribution("Poisson");
  EXPECT_EQ(page.ClusterDistribution(), "Poisson");
  ASSERT_EQ(page.flxClusterParam.Cols(), 2);
  EXPECT_EQ(page.flxClusterParam.TextMatrix(0, 1), "lambda");
  EXPECT_EQ(page.ClusterParams(), "");
  EXPECT_EQ(page.flxClusterParam.CellAlignmentAt(1, 1), CellAlignment::kCenterCenter);
}

TEST_F(PopulationPage, NegativeBinomialBuildsRAndPColumns) {
  page.SetClusteredPop("True");
  page.SetClusterDistribution("Negative-Binomial");
  ASSERT_EQ(page.flxClusterParam.Cols(), 3);
  EXPECT_EQ(page.flxClusterParam.TextMatrix(0, 1), "r");
  EXPECT_EQ(page.flxClusterParam.TextMatrix(0, 2), "p");
  page.SetClusterParams("2.5,0.5");
  EXPECT_EQ(page.ClusterParams(), "2.5,0.5");
}

TEST_F(PopulationPage, ChoosingPoissonTwiceKeepsLambda) {
  UseDistribution("Poisson", "3");
  ASSERT_TRUE(page.cboDistribution.UserSelect(1));
  EXPECT_EQ(page.ClusterParams(), "3");
  page.cboDistribution.SetListIndex(1);
  EXPECT_EQ(page.ClusterParams(), "3");
}

TEST_F(PopulationPage, NegativeBinomialThenPoissonEmptiesTheValues) {
  UseDistribution("Negative-Binomial", "4,0.2");
  ASSERT_TRUE(page.cboDistribution.UserSelect(1));
  EXPECT_EQ(page.flxClusterParam.Cols(), 2);
  EXPECT_EQ(page.ClusterParams(), "");
  page.SetClusterParams("5");
  ASSERT_TRUE(page.cboDistribution.UserSelect(2));
  EXPECT_EQ(page.ClusterParams(), ",");
}

TEST_F(PopulationPage, PleaseSelectDropsTheParameterColumns) {
  UseDistribution("Negative-Binomial", "4,0.2");
  ASSERT_TRUE(page.cboDistribution.UserSelect(0));
  EXPECT_EQ(page.flxClusterParam.Cols(), 1);
  EXPECT_EQ(page.ClusterDistribution(), "Please Select");
  EXPECT_EQ(ErrorNumberOf([&] { page.ClusterParams(); }), 381);
}

TEST_F(PopulationPage, ClusterDistributionInLowerCaseSelectsPoisson) {
  page.SetClusteredPop("True");
  page.SetClusterDistribution("poisson");
  EXPECT_EQ(page.cboDistribution.Text(), "Poisson");
  EXPECT_EQ(page.ClusterDistribution(), "Poisson");
  EXPECT_EQ(page.flxClusterParam.TextMatrix(0, 1), "lambda");
  page.SetClusterDistribution("PMF");
  EXPECT_EQ(page.ClusterDistribution(), "pmf");
}

TEST_F(PopulationPage, ClusterDistributionAlwaysEmptiesTheParameters) {
  UseDistribution("Poisson", "3");
  page.SetClusterDistribution("Poisson");
  EXPECT_EQ(page.ClusterParams(), "");
}

TEST_F(PopulationPage, ClusterDistributionWordOutsideTheThreeChangesNothing) {
  UseDistribution("Negative-Binomial", "4,0.2");
  page.SetClusterDistribution("Geometric");
  EXPECT_EQ(page.optClusterDist.Selected(), 1);
  EXPECT_EQ(page.ClusterDistribution(), "Negative-Binomial");
  EXPECT_EQ(page.ClusterParams(), "4,0.2");
  page.SetClusterDistribution("Please Select");
  EXPECT_EQ(page.ClusterDistribution(), "Negative-Binomial");
}

TEST_F(PopulationPage, ClusterDistributionRaises382InDesignMode) {
  platform.SetUserMode(false);
  EXPECT_EQ(ErrorNumberOf([&] { page.SetClusterDistribution("Poisson"); }), 382);
  EXPECT_EQ(page.optClusterDist.Selected(), 0);
  EXPECT_EQ(page.cboDistribution.Text(), "Please Select");
}

TEST_F(PopulationPage, ClusterParamsNeedsTheDistributionFirst) {
  page.SetClusteredPop("True");
  EXPECT_EQ(ErrorNumberOf([&] { page.SetClusterParams("3"); }), 381);
  EXPECT_EQ(page.flxClusterParam.Cols(), 1);
  page.SetClusterDistribution("Poisson");
  // Lambda is written before the second piece finds no column.
  EXPECT_EQ(ErrorNumberOf([&] { page.SetClusterParams("3,4"); }), 381);
  EXPECT_EQ(page.ClusterParams(), "3");
  EXPECT_EQ(ErrorNumberOf([&] { page.SetClusterParams(""); }), 9);
  EXPECT_EQ(page.ClusterParams(), "3");
}

// ---------------------------------------------------------------------------------------------
// Distribution checks and means

TEST_F(PopulationPage, PoissonLambdaBlankFails) {
  page.SetClusteredPop("True");
  page.SetClusterDistribution("Poisson");
  EXPECT_EQ(Check(false), "A value has not been specified for lambda.  Please supply this value.");
}

TEST_F(PopulationPage, PoissonLambdaBelowOneFailsAndOnePasses) {
  UseDistribution("Poisson", "0.99");
  EXPECT_EQ(Check(false), "The value provided for lambda is less than 1.  Please ammend this value.");
  page.SetClusterParams("1");
  EXPECT_EQ(Check(true), "");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 1.0);
}

TEST_F(PopulationPage, PoissonMeanIsLambda) {
  UseDistribution("Poisson", "3.25");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 3.25);
}

TEST_F(PopulationPage, NegativeBinomialBlankParameterFails) {
  const std::string message = "A value has not been specified for either r or p.  Please supply this value.";
  UseDistribution("Negative-Binomial", "2");
  EXPECT_EQ(Check(false), message);
  page.SetClusterParams(",0.5");
  EXPECT_EQ(Check(false), message);
}

TEST_F(PopulationPage, NegativeBinomialRMustBeAboveZero) {
  UseDistribution("Negative-Binomial", "0,0.5");
  EXPECT_EQ(Check(false), "The value provided for r must be greater than 0.  Please ammend this value.");
}

TEST_F(PopulationPage, NegativeBinomialPMustBeBetweenZeroAndOne) {
  const std::string message = "The value provided for p must be between 0 and 1.  Please ammend this value.";
  UseDistribution("Negative-Binomial", "2,1.01");
  EXPECT_EQ(Check(false), message);
  page.SetClusterParams("2,-0.01");
  EXPECT_EQ(Check(false), message);
  page.SetClusterParams("2,0");
  EXPECT_EQ(Check(true), "");
  page.SetClusterParams("2,1");
  EXPECT_EQ(Check(true), "");
}

TEST_F(PopulationPage, NegativeBinomialRTwoAndAHalfPHalfIsValidWithMeanTwo) {
  UseDistribution("Negative-Binomial", "2.5,0.5");
  EXPECT_EQ(Check(true), "");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 2.0);
}

TEST_F(PopulationPage, NegativeBinomialRRoundsHalvesToEven) {
  UseDistribution("Negative-Binomial", "3.5,0.5");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 4.0);
}

TEST_F(PopulationPage, NegativeBinomialRBelowAHalfIsValidWithMeanZero) {
  UseDistribution("Negative-Binomial", "0.4,0.5");
  EXPECT_EQ(Check(true), "");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 0.0);
}

TEST_F(PopulationPage, NegativeBinomialPOfOneRaisesDivisionByZero) {
  UseDistribution("Negative-Binomial", "2,0.5");
  page.UpdateClusterInfo();
  page.SetClusterParams("2,1");
  EXPECT_EQ(ErrorNumberOf([&] { page.UpdateClusterInfo(); }), 11);
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 2.0);  // the last good mean stays
}

TEST_F(PopulationPage, PleaseSelectFailsWithNoDistributionMessage) {
  page.SetClusteredPop("True");
  page.optClusterDist.Select(1);
  EXPECT_EQ(Check(false), "No cluster size distribution has been specified.  Please select a distribution.");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 0.0);
}

TEST_F(PopulationPage, NonNumericLambdaGivesTheUnexpectedErrorText) {
  UseDistribution("Poisson", "many");
  EXPECT_EQ(Check(false), kUnexpected);
}

TEST_F(PopulationPage, ClustersOffPassWhateverTheClusterTablesHoldAndMeanIsZero) {
  UsePmf("x,0", "5,");
  page.SetClusteredPop("False");
  EXPECT_EQ(Check(true), "");
  UseDistribution("Negative-Binomial", "2,0.5");
  page.UpdateClusterInfo();
  ASSERT_DOUBLE_EQ(page.MeanClusterSize(), 2.0);
  page.SetClusterParams("-3,7");
  page.SetClusteredPop("False");
  EXPECT_EQ(Check(true), "");
  page.UpdateClusterInfo();
  EXPECT_DOUBLE_EQ(page.MeanClusterSize(), 0.0);
}

TEST_F(PopulationPage, PopulationSizeIsCheckedBeforeClusters) {
  UseStrata({"A"});
  page.SetPopSizeValues("-1");
  page.SetClusteredPop("True");
  EXPECT_EQ(Check(false),
            "There value for N/D in the population size table for strata 'A' cannot be less than 0.  Please "
            "ammend the value in that cell.");
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/pages/CPagDetectability/CPagDetectability.h"

namespace zrsimprp {
namespace {

class DetectabilityPage : public ::testing::Test {
 protected:
  bool IsGrey(int row, int col) {
    return page.flxDetect.CellBackColor(row, col) == page.flxDetect.BackColorFixed();
  }
  bool IsNormal(int row, int col) {
    return page.flxDetect.CellBackColor(row, col) == page.flxDetect.BackColor();
  }
  std::string Cell(int row, int col) { return page.flxDetect.TextMatrix(row, col); }
  void StratifyThree() {
    page.UpdateStrataInfo(3, {"North", "Middle", "South"});
    page.SetParamByStratum("True");
  }
  HeadlessPlatform platform;
  CPagDetectability page{platform};
};

TEST_F(DetectabilityPage, ControlsCarryTheirCaptions) {
  EXPECT_EQ(page.labDetFunc.Caption(),
            "This provides a guide to the average detectability of the population.");
  EXPECT_EQ(page.cmdDetFunc.Caption(), "Display Detection Function");
  EXPECT_EQ(page.chkStratify.Caption(), "Define parameters for each stratum");
  EXPECT_EQ(page.labDetect.Caption(), "Detection function model:");
  EXPECT_EQ(page.lalDetectability.Caption(), "Detectability");
  EXPECT_EQ(page.labStrata.Caption(), "");
  EXPECT_EQ(page.frmDetFunc.Caption(), "Detection Function");
}

TEST_F(DetectabilityPage, LoadOffersBothKeyFunctionsAndSelectsHalfNormal) {
  EXPECT_EQ(page.cboDetect.ListStyle(), ComboBox::Style::kListOnly);
  ASSERT_EQ(page.cboDetect.ListCount(), 2);
  EXPECT_EQ(page.cboDetect.List(0), "Half-Normal");
  EXPECT_EQ(page.cboDetect.List(1), "Hazard Rate");
  EXPECT_EQ(page.cboDetect.ListIndex(), 0);
  EXPECT_EQ(page.DetFunction(), "Half-Normal");
  EXPECT_TRUE(page.cboDetect.Enabled());
  EXPECT_TRUE(page.chkStratify.Enabled());
  EXPECT_EQ(page.chrtDetFunction.ChartType(), Chart::Type::kXY2D);
}

TEST_F(DetectabilityPage, LoadGivesScaleZeroAndAnEmptyGreyShape) {
  EXPECT_EQ(page.NumParams(), 2);
  EXPECT_EQ(page.ParamName(1), "Scale");
  EXPECT_EQ(page.ParamName(2), "Shape");
  EXPECT_EQ(page.Param(1), "0");
  EXPECT_EQ(page.Param(2), "");
  EXPECT_EQ(Cell(0, 0), "Region");
  EXPECT_EQ(Cell(0, 1), "Study Area");
  EXPECT_EQ(page.flxDetect.Rows(), 3);
  EXPECT_EQ(page.flxDetect.Cols(), 2);
  EXPECT_TRUE(page.flxDetect.Editable());
  EXPECT_TRUE(page.flxDetect.Enabled());
  EXPECT_TRUE(IsNormal(1, 1));
  EXPECT_TRUE(IsGrey(2, 1));
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(page.flxDetect.CellAlignmentAt(row, 1), CellAlignment::kCenterCenter) << row;
  }
  EXPECT_EQ(page.ParamByStratum(), "False");
}

TEST_F(DetectabilityPage, DetFunctionLetInDesignModeRaises382) {
  platform.SetUserMode(false);
  EXPECT_EQ(ErrorNumberOf([&] { page.SetDetFunction("Hazard Rate"); }), 382);
  EXPECT_EQ(page.DetFunction(), "Half-Normal");
}

TEST_F(DetectabilityPage, HazardRateMakesTheShapeRowEditable) {
  page.SetDetFunction("hazard rate");
  EXPECT_EQ(page.DetFunction(), "Hazard Rate");
  EXPECT_TRUE(IsNormal(2, 1));
}

TEST_F(DetectabilityPage, UnknownKeyFunctionFallsBackToHalfNormal) {
  page.SetDetFunction("Hazard Rate");
  page.SetDetFunction("Uniform");
  EXPECT_EQ(page.DetFunction(), "Half-Normal");
  EXPECT_TRUE(IsGrey(2, 1));
}

TEST_F(DetectabilityPage, BackToHalfNormalKeepsShapeValuesButGreysThem) {
  StratifyThree();
  page.SetDetFunction("Hazard Rate");
  page.SetParam(2, "1.5,x,");
  page.SetDetFunction("Half-Normal");
  EXPECT_EQ(page.Param(2), "1.5,x,");
  for (int col = 1; col <= 3; ++col) EXPECT_TRUE(IsGrey(2, col)) << col;
  std::string message = "stale";
  EXPECT_TRUE(page.IsValid(message));
  EXPECT_EQ(message, "");
}

TEST_F(DetectabilityPage, ParamByStratumAcceptsTrueInAnyCase) {
  page.SetParamByStratum("true");
  EXPECT_EQ(page.chkStratify.Value(), CheckBox::kChecked);
  EXPECT_EQ(page.ParamByStratum(), "True");
  EXPECT_EQ(page.flxDetect.Cols(), 2);
  EXPECT_EQ(Cell(0, 1), "Study Area");
  page.SetParamByStratum("yes");
  EXPECT_EQ(page.ParamByStratum(), "False");
}

TEST_F(DetectabilityPage, StratifyingMakesOneCentredColumnPerStratum) {
  StratifyThree();
  ASSERT_EQ(page.flxDetect.Cols(), 4);
  EXPECT_EQ(Cell(0, 1), "North");
  EXPECT_EQ(Cell(0, 2), "Middle");
  EXPECT_EQ(Cell(0, 3), "South");
  EXPECT_EQ(page.Param(1), "0,0,0");
  // The shape row stays grey under Half-Normal, so it is not filled.
  EXPECT_EQ(page.Param(2), ",,");
  for (int col = 1; col <= 3; ++col) {
    EXPECT_TRUE(IsNormal(1, col));
    EXPECT_TRUE(IsGrey(2, col));
    for (int row = 0; row <= 2; ++row)
      EXPECT_EQ(page.flxDetect.CellAlignmentAt(row, col), CellAlignment::kCenterCenter);
  }
}

TEST_F(DetectabilityPage, StratifyingCarriesAnEditableShapeToEveryStratum) {
  page.SetDetFunction("Hazard Rate");
  page.SetParam(2, "3");
  StratifyThree();
  EXPECT_EQ(page.Param(2), "3,0,0");
  for (int col = 1; col <= 3; ++col) EXPECT_TRUE(IsNormal(2, col));
}

TEST_F(DetectabilityPage, ParamJoinsTheStrataValuesAndOnePartSetsOnlyColumnOne) {
  StratifyThree();
  page.SetParam(1, "1,2,3");
  EXPECT_EQ(page.Param(1), "1,2,3");
  page.SetParam(1, "5");
  EXPECT_EQ(page.Param(1), "5,2,3");
}

TEST_F(DetectabilityPage, ParamIgnoresPartsBeyondTheLastColumn) {
  StratifyThree();
  page.SetParam(1, "1,2,3,4");
  EXPECT_EQ(page.Param(1), "1,2,3");
}

TEST_F(DetectabilityPage, ParamWithTooFewPartsWritesThePartsGivenThenRaisesSubscriptError) {
  StratifyThree();
  page.SetParam(1, "1,2,3");
  try {
    page.SetParam(1, "5,6");
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 9);
    EXPECT_EQ(error.description, "Subscript out of range");
  }
  // "5" and "6" are written before the third part is found missing.
  EXPECT_EQ(page.Param(1), "5,6,3");
}

TEST_F(DetectabilityPage, ParamOfEmptyTextRaisesSubscriptErrorBeforeAnyCellChanges) {
  StratifyThree();
  page.SetParam(1, "1,2,3");
  EXPECT_EQ(ErrorNumberOf([&] { page.SetParam(1, ""); }), 9);
  EXPECT_EQ(page.Param(1), "1,2,3");
}

TEST_F(DetectabilityPage, ParamOutsideTheTableRaisesGridIndexError) {
  EXPECT_EQ(ErrorNumberOf([&] { page.Param(7); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { page.SetParam(7, "1"); }), 381);
  EXPECT_EQ(ErrorNumberOf([&] { page.ParamName(-1); }), 381);
}

TEST_F(DetectabilityPage, UnstratifyingKeepsColumnOneAndRestoresStudyArea) {
  StratifyThree();
  page.SetParam(1, "1,2,3");
  page.SetParamByStratum("False");
  EXPECT_EQ(page.flxDetect.Cols(), 2);
  EXPECT_EQ(Cell(0, 1), "Study Area");
  EXPECT_EQ(page.Param(1), "1");
}

TEST_F(DetectabilityPage, StrataInfoWhileUnstratifiedOnlyStoresTheStrata) {
  page.UpdateStrataInfo(3, {"North", "Middle", "South"});
  EXPECT_EQ(page.flxDetect.Cols(), 2);
  page.SetParamByStratum("True");
  EXPECT_EQ(page.flxDetect.Cols(), 4);
  page.UpdateStrataInfo(2, {"East", "West"});
  EXPECT_EQ(page.flxDetect.Cols(), 3);
  EXPECT_EQ(Cell(0, 1), "East");
  EXPECT_EQ(Cell(0, 2), "West");
  page.UpdateStrataInfo(1, {"Whole"});
  EXPECT_EQ(page.flxDetect.Cols(), 2);
  EXPECT_EQ(Cell(0, 1), "Study Area");
}

TEST_F(DetectabilityPage, StrataInfoWithTooFewNamesFailsAtTheFirstMissingNameAfterTheColumnsAreMade) {
  page.SetDetFunction("Hazard Rate");
  page.UpdateFlxDetect(true, 2, "", 0, {""});
  page.SetParam(1, "7");
  page.SetParamByStratum("True");
  try {
    page.UpdateStrataInfo(4, {"North", "Middle"});
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 9);
    EXPECT_EQ(error.description, "Subscript out of range");
  }
  // Every new column is made, centred and painted; the names before the missing one are written with
  // zeros in their empty editable cells, and the columns from the missing name on stay empty.
  ASSERT_EQ(page.flxDetect.Cols(), 5);
  EXPECT_EQ(Cell(0, 1), "North");
  EXPECT_EQ(Cell(0, 2), "Middle");
  EXPECT_EQ(Cell(0, 3), "");
  EXPECT_EQ(page.Param(1), "7,0,,");
  EXPECT_EQ(page.Param(2), "0,0,,");
  EXPECT_EQ(page.Param(3), "0,0,,");
  for (int col = 1; col <= 4; ++col) {
    for (int row = 1; row <= 3; ++row) EXPECT_TRUE(IsNormal(row, col)) << row << "," << col;
    EXPECT_EQ(page.flxDetect.CellAlignmentAt(0, col), CellAlignment::kCenterCenter);
  }
}

TEST_F(DetectabilityPage, StratifyingWithAStrataCountThatLeavesNoRoomForTheLabelColumnOverflows) {
  page.UpdateStrataInfo(2147483647, {"North"});
  EXPECT_EQ(ErrorNumberOf([&] { page.SetParamByStratum("True"); }), 6);
  EXPECT_EQ(page.flxDetect.Cols(), 2);
}

TEST_F(DetectabilityPage, CovariateRowsWithALevelListLackingElementZeroFailAfterTheEarlierRows) {
  page.UpdateFlxDetect(false, 0, "", 0, {"a", "b"});
  EXPECT_EQ(ErrorNumberOf([&] { page.UpdateFlxDetect(true, 2, "wind", 1, {}); }), 9);
  // The cluster and continuous rows were settled before the levels were looked at; the level rows
  // and the stored levels are as they were.
  ASSERT_EQ(page.NumParams(), 6);
  EXPECT_EQ(page.ParamName(3), "cluster size");
  EXPECT_EQ(page.ParamName(4), "wind");
  EXPECT_EQ(page.ParamName(5), "a");
  EXPECT_EQ(page.ParamName(6), "b");
  page.UpdateFlxDetect(true, 2, "wind", 1, {"b"});
  EXPECT_EQ(page.NumParams(), 5);
  EXPECT_EQ(page.ParamName(5), "b");
}

TEST_F(DetectabilityPage, ClusterSizeRowIsInsertedOnceAtRowThree) {
  page.UpdateFlxDetect(true, 2.5, "", 0, {""});
  page.UpdateFlxDetect(true, 2.5, "", 0, {""});
  EXPECT_EQ(page.NumParams(), 3);
  EXPECT_EQ(page.ParamName(3), "cluster size");
  EXPECT_EQ(page.Param(3), "0");
  EXPECT_EQ(page.ParamRow("cluster size"), 3);
  EXPECT_TRUE(IsNormal(3, 1));
  EXPECT_EQ(page.flxDetect.CellAlignmentAt(3, 1), CellAlignment::kCenterCenter);
}

TEST_F(DetectabilityPage, ClusterSizeRowGoesWhenClustersGo) {
  page.UpdateFlxDetect(true, 2.5, "wind", 1, {""});
  page.SetParam(4, "0.3");
  page.UpdateFlxDetect(false, 0, "wind", 1, {""});
  EXPECT_EQ(page.NumParams(), 3);
  EXPECT_EQ(page.ParamRow("cluster size"), 0);
  EXPECT_EQ(page.ParamName(3), "wind");
  EXPECT_EQ(page.Param(3), "0.3");
}

TEST_F(DetectabilityPage, ClusterSizeRowFillsEveryStratum) {
  StratifyThree();
  page.UpdateFlxDetect(true, 2, "", 0, {""});
  EXPECT_EQ(page.Param(3), "0,0,0");
  for (int col = 1; col <= 3; ++col) EXPECT_TRUE(IsNormal(3, col));
}

TEST_F(DetectabilityPage, ContinuousCovariateRowFollowsClusterSize) {
  page.UpdateFlxDetect(true, 2, "wind", 4.5, {""});
  EXPECT_EQ(page.ParamName(3), "cluster size");
  EXPECT_EQ(page.ParamName(4), "wind");
  EXPECT_EQ(page.Param(4), "0");
}

TEST_F(DetectabilityPage, RenamingTheContinuousCovariateKeepsItsValues) {
  page.UpdateFlxDetect(false, 0, "wind", 4.5, {""});
  page.SetParam(3, "0.25");
  page.UpdateFlxDetect(false, 0, "seastate", 2, {""});
  EXPECT_EQ(page.NumParams(), 3);
  EXPECT_EQ(page.ParamName(3), "seastate");
  EXPECT_EQ(page.Param(3), "0.25");
}

TEST_F(DetectabilityPage, RemovingTheContinuousCovariateRemovesItsRow) {
  page.UpdateFlxDetect(true, 2, "wind", 4.5, {"a"});
  page.UpdateFlxDetect(true, 2, "", 0, {"a"});
  EXPECT_EQ(page.NumParams(), 4);
  EXPECT_EQ(page.ParamName(3), "cluster size");
  EXPECT_EQ(page.ParamName(4), "a");
  EXPECT_EQ(page.ParamRow("wind"), 0);
}

TEST_F(DetectabilityPage, NewLevelsReplaceDroppedRowsKeepKeptOnesAndAppendNewOnes) {
  page.UpdateFlxDetect(false, 0, "", 0, {"b", "c"});
  ASSERT_EQ(page.NumParams(), 4);
  EXPECT_EQ(page.ParamName(3), "b");
  EXPECT_EQ(page.ParamName(4), "c");
  page.SetParam(3, "0.7");
  page.SetParam(4, "0.9");
  page.UpdateFlxDetect(false, 0, "", 0, {"a", "b"});
  ASSERT_EQ(page.NumParams(), 4);
  EXPECT_EQ(page.ParamName(3), "b");
  EXPECT_EQ(page.Param(3), "0.7");
  EXPECT_EQ(page.ParamName(4), "a");
  EXPECT_EQ(page.Param(4), "0");
  EXPECT_EQ(page.ParamRow("c"), 0);
  EXPECT_TRUE(IsNormal(4, 1));
  EXPECT_EQ(page.flxDetect.CellAlignmentAt(4, 1), CellAlignment::kCenterCenter);
}

TEST_F(DetectabilityPage, KeptLevelRowsMoveUpWithTheirValuesAcrossStrata) {
  StratifyThree();
  page.UpdateFlxDetect(false, 0, "", 0, {"c", "b", "d"});
  page.SetParam(4, "1,2,3");
  page.SetParam(5, "4,5,6");
  page.UpdateFlxDetect(false, 0, "", 0, {"d", "b"});
  ASSERT_EQ(page.NumParams(), 4);
  EXPECT_EQ(page.ParamName(3), "b");
  EXPECT_EQ(page.Param(3), "1,2,3");
  EXPECT_EQ(page.ParamName(4), "d");
  EXPECT_EQ(page.Param(4), "4,5,6");
  for (int row = 3; row <= 4; ++row) {
    for (int col = 1; col <= 3; ++col) {
      EXPECT_TRUE(IsNormal(row, col));
      EXPECT_EQ(page.flxDetect.CellAlignmentAt(row, col), CellAlignment::kCenterCenter);
    }
  }
}

TEST_F(DetectabilityPage, LevelNamesAreMatchedWithoutRegardToCase) {
  page.UpdateFlxDetect(false, 0, "", 0, {"Low", "High"});
  page.SetParam(4, "2");
  page.UpdateFlxDetect(false, 0, "", 0, {"high"});
  EXPECT_EQ(page.NumParams(), 3);
  EXPECT_EQ(page.ParamName(3), "High");
  EXPECT_EQ(page.Param(3), "2");
}

TEST_F(DetectabilityPage, NoLevelsRemovesEveryLevelRow) {
  page.UpdateFlxDetect(true, 2, "wind", 1, {"a", "b", "c"});
  EXPECT_EQ(page.NumParams(), 7);
  page.UpdateFlxDetect(true, 2, "wind", 1, {""});
  EXPECT_EQ(page.NumParams(), 4);
  EXPECT_EQ(page.ParamName(4), "wind");
}

TEST_F(DetectabilityPage, ParamRowReturnsTheLastMatchIgnoringCaseAndZeroForUnknown) {
  EXPECT_EQ(page.ParamRow("nothing"), 0);
  EXPECT_EQ(page.ParamRow("SCALE"), 1);
  EXPECT_EQ(page.ParamRow("Region"), 0);
  page.UpdateFlxDetect(false, 0, "", 0, {"shape"});
  EXPECT_EQ(page.ParamRow("Shape"), 3);
}

TEST_F(DetectabilityPage, InitializeDisablesTheStratifyBoxThePreviewAndItsButton) {
  page.Initialize();
  EXPECT_FALSE(page.chkStratify.Enabled());
  EXPECT_FALSE(page.chrtDetFunction.Enabled());
  EXPECT_FALSE(page.cmdDetFunc.Enabled());
  EXPECT_FALSE(page.cmdDetFunc.UserClick());
  EXPECT_FALSE(page.chkStratify.UserClick());
  // A definition still sets the tick, and nothing enables the controls again.
  page.SetParamByStratum("True");
  EXPECT_EQ(page.ParamByStratum(), "True");
  EXPECT_FALSE(page.chkStratify.Enabled());
  EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(DetectabilityPage, InitializeReportsAnErrorAsAnInternalError) {
  page.chrtDetFunction.Subscribe([] { throw RuntimeError(13, "View", "Type mismatch"); });
  page.Initialize();
  ASSERT_EQ(platform.Messages().size(), 1u);
  const auto& report = platform.Messages()[0];
  EXPECT_EQ(report.title, "Pellunar Internal Error");
  EXPECT_EQ(report.icon, MessageIcon::Critical);
  EXPECT_EQ(report.text, CModErrorHandling::InternalErrorText("ZrSIMPrp", "PagDetectability", "Inititalize",
                                                              RuntimeError(13, "View", "Type mismatch")));
}

TEST_F(DetectabilityPage, PreviewDrawsTheFixedHalfNormalCurve) {
  page.Initialize();
  const Chart& chart = page.chrtDetFunction;
  EXPECT_EQ(chart.Width(), 3000);
  EXPECT_EQ(chart.Height(), 2000);
  EXPECT_DOUBLE_EQ(chart.XAxis().minimum, 0);
  EXPECT_DOUBLE_EQ(chart.XAxis().maximum, 50);
  EXPECT_DOUBLE_EQ(chart.XAxis().major_division, 2);
  EXPECT_DOUBLE_EQ(chart.YAxis().minimum, 0);
  EXPECT_DOUBLE_EQ(chart.YAxis().maximum, 30);
  EXPECT_FALSE(chart.YAxis().shown);
  EXPECT_EQ(chart.RowLabelCount(), 1);
  EXPECT_EQ(chart.ColumnLabelCount(), 2);
  ASSERT_EQ(chart.RowCount(), 50);
  ASSERT_EQ(chart.ColumnCount(), 2);
  EXPECT_DOUBLE_EQ(chart.Data(1, 1), 0);
  EXPECT_NEAR(chart.Data(1, 2), 26.966271, 5e-7);
  EXPECT_DOUBLE_EQ(chart.Data(50, 1), 49);
  EXPECT_NEAR(chart.Data(50, 2), 1.186297, 5e-7);
  EXPECT_DOUBLE_EQ(chart.Data(25, 1), 24);
}

TEST_F(DetectabilityPage, PreviewIgnoresTheTable) {
  page.SetParam(1, "55");
  page.Initialize();
  EXPECT_NEAR(page.chrtDetFunction.Data(1, 2), 26.966271, 5e-7);
}

TEST_F(DetectabilityPage, PreviewButtonStepsThroughTheStrataAndStartsAgain) {
  StratifyThree();
  page.Initialize();
  page.cmdDetFunc.SetEnabled(true);
  const std::vector<std::string> names{"North", "Middle", "South", "North"};
  const std::vector<std::string> captions{"Next Strata", "Next Strata", "Display Detection Fuction",
                                          "Next Strata"};
  for (size_t press = 0; press < names.size(); ++press) {
    ASSERT_TRUE(page.cmdDetFunc.UserClick());
    EXPECT_EQ(page.labStrata.Caption(), names[press]) << press;
    EXPECT_EQ(page.cmdDetFunc.Caption(), captions[press]) << press;
  }
  EXPECT_TRUE(platform.Messages().empty());
}

TEST_F(DetectabilityPage, PreviewButtonGuardReportsAStepPastTheLastColumnInsteadOfRaising) {
  page.UpdateStrataInfo(3, {"North", "Middle", "South"});
  page.Initialize();
  page.cmdDetFunc.SetEnabled(true);
  ASSERT_TRUE(page.cmdDetFunc.UserClick());
  EXPECT_EQ(page.labStrata.Caption(), "Study Area");
  // The table has one value column, but the strata send the second press to column 2.
  EXPECT_NO_THROW(page.cmdDetFunc.UserClick());
  ASSERT_EQ(platform.Messages().size(), 1u);
  EXPECT_EQ(platform.Messages()[0].title, "Pellunar Internal Error");
  EXPECT_EQ(platform.Messages()[0].icon, MessageIcon::Critical);
  EXPECT_NE(
      platform.Messages()[0].text.find("(Error raised from: ZrSIMPrp.PagDetectability.cmdDetFunc_Click)\r\n"
                                       "(Error source: Grid)\r\n(Error number: 381)"),
      std::string::npos)
      << platform.Messages()[0].text;
}

TEST_F(DetectabilityPage, EditGuardRefusesAGreyedCell) {
  EXPECT_FALSE(page.flxDetect.UserEditCell(2, 1, "4"));
  EXPECT_EQ(Cell(2, 1), "");
  EXPECT_TRUE(page.flxDetect.UserEditCell(1, 1, "4"));
  EXPECT_EQ(page.Param(1), "4");
  page.SetDetFunction("Hazard Rate");
  EXPECT_TRUE(page.flxDetect.UserEditCell(2, 1, "1.2"));
  EXPECT_EQ(page.Param(2), "1.2");
}

TEST_F(DetectabilityPage, EditGuardLooksAtTheCurrentCell) {
  page.flxDetect.UserSelectCell(2, 1);
  EXPECT_TRUE(page.flxDetect.UserCanEditCell(1, 1));
  EXPECT_EQ(page.flxDetect.Row(), 1);
  EXPECT_FALSE(page.flxDetect.UserCanEditCell(2, 1));
  EXPECT_EQ(page.flxDetect.Row(), 2);
}

TEST_F(DetectabilityPage, IsValidNamesTheEmptyParameterAndStudyArea) {
  page.flxDetect.SetTextMatrix(1, 1, "");
  std::string message;
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(
      message,
      "There is no value supplied for parameter Scale for strata 'Study Area'.  Please enter a value in this "
      "cell.");
}

TEST_F(DetectabilityPage, IsValidNamesTheNonNumericParameterAndStratum) {
  StratifyThree();
  page.UpdateFlxDetect(false, 0, "wind", 1, {""});
  page.SetParam(3, "1,1..2,abc");
  std::string message;
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(
      message,
      "The value supplied for parameter wind for strata 'Middle' is not numeric.  Please ammend the value in "
      "this cell.");
}

TEST_F(DetectabilityPage, IsValidStopsAtTheFirstOffendingCellRowByRow) {
  StratifyThree();
  page.SetDetFunction("Hazard Rate");
  page.SetParam(1, "1,2,x");
  page.SetParam(2, ",1,1");
  std::string message;
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(
      message,
      "The value supplied for parameter Scale for strata 'South' is not numeric.  Please ammend the value in "
      "this cell.");
}

TEST_F(DetectabilityPage, IsValidAppendsToTheMessageItIsGiven) {
  page.flxDetect.SetTextMatrix(1, 1, "");
  std::string message = "Before. ";
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(message,
            "Before. There is no value supplied for parameter Scale for strata 'Study Area'.  Please enter a "
            "value in "
            "this cell.");
}

TEST_F(DetectabilityPage, IsValidChecksAnEditableShape) {
  page.SetDetFunction("Hazard Rate");
  std::string message;
  EXPECT_FALSE(page.IsValid(message));
  EXPECT_EQ(
      message,
      "There is no value supplied for parameter Shape for strata 'Study Area'.  Please enter a value in this "
      "cell.");
  page.SetParam(2, "2");
  EXPECT_TRUE(page.IsValid(message));
  EXPECT_EQ(message, "");
}

TEST_F(DetectabilityPage, IsValidAcceptsNumbersInAnyForm) {
  StratifyThree();
  page.SetParam(1, "1e3, 7 ,-.5");
  std::string message = "old";
  EXPECT_TRUE(page.IsValid(message));
  EXPECT_EQ(message, "");
}

TEST(DetectabilityMessages, UnexpectedCheckMessageIsTheSharedText) {
  EXPECT_STREQ(
      CModErrorHandling::kUnexpectedCheckMessage,
      "An unexpected error occured while checking the options on this page.   Please check they are valid "
      "and change any incorrect values");
}

}  // namespace
}  // namespace zrsimprp

#include "DensityPageTest.h"
#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

using DensityPage = DensityPageTest;

TEST_F(DensityPage, CreationShowsTheCaptionsExactly) {
  EXPECT_EQ(page_.lalDensity.Caption(), "Relative density surface");
  ASSERT_EQ(page_.optDensity.Count(), 3);
  EXPECT_EQ(page_.optDensity.Button(0).Caption(), "Uniform density (within strata where applicable)");
  EXPECT_EQ(page_.optDensity.Button(1).Caption(), "Simple model ");
  EXPECT_EQ(page_.optDensity.Button(2).Caption(), "DSM analysis");
  EXPECT_EQ(page_.txtFormula.Text(), "e.g. = -100 + x*1.02 + y*1.15");
  EXPECT_EQ(page_.labLayer.Caption(), "Layer:");
  EXPECT_EQ(page_.cboLayer.Text(), "Layer");
  EXPECT_EQ(page_.labField.Caption(), "Field:");
  EXPECT_EQ(page_.cboField.Text(), "Field");
  EXPECT_EQ(page_.labGridSpace.Caption(), "GridSpacing:");
  EXPECT_EQ(page_.chkHotspots.Caption(), "Add Hotspots");
  EXPECT_EQ(page_.cmdAddHotspot.Caption(), "+");
  EXPECT_EQ(page_.cmdSubHotspot.Caption(), "-");
}

TEST_F(DensityPage, CreationSetsUpTheStrataGridWithTheBlankEndedLabel) {
  EXPECT_EQ(page_.flxConstantDensity.Rows(), 2);
  EXPECT_EQ(page_.flxConstantDensity.Cols(), 2);
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(1, 0), "Density: ");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(1, 1), "0");
}

TEST_F(DensityPage, CreationSetsUpTheHotspotGridWithHeadingsOnly) {
  EXPECT_EQ(page_.flxHotspots.Rows(), 1);
  ASSERT_EQ(page_.flxHotspots.Cols(), 4);
  EXPECT_EQ(page_.flxHotspots.TextMatrix(0, 0), "Centre X");
  EXPECT_EQ(page_.flxHotspots.TextMatrix(0, 1), "Centre Y");
  EXPECT_EQ(page_.flxHotspots.TextMatrix(0, 2), "Sigma");
  EXPECT_EQ(page_.flxHotspots.TextMatrix(0, 3), "Amplitude");
  EXPECT_EQ(page_.flxHotspots.FixedCols(), 0);
}

TEST_F(DensityPage, CreationDisablesFormulaDsmListsAndHotspotButtons) {
  EXPECT_FALSE(page_.txtFormula.Enabled());
  EXPECT_FALSE(page_.cboLayer.Enabled());
  EXPECT_FALSE(page_.cboField.Enabled());
  EXPECT_FALSE(page_.labLayer.Enabled());
  EXPECT_FALSE(page_.labField.Enabled());
  EXPECT_FALSE(page_.cmdAddHotspot.Enabled());
  EXPECT_FALSE(page_.cmdSubHotspot.Enabled());
}

TEST_F(DensityPage, InitializeAllowsOnlyTheUniformOption) {
  page_.Initialize();
  EXPECT_EQ(page_.Description(), "Uniform");
  EXPECT_TRUE(page_.optDensity.Button(0).Enabled());
  EXPECT_FALSE(page_.optDensity.Button(1).Enabled());
  EXPECT_FALSE(page_.optDensity.Button(2).Enabled());
  EXPECT_FALSE(page_.optDensity.UserSelect(1));
  EXPECT_FALSE(page_.optDensity.UserSelect(2));
  EXPECT_EQ(page_.Description(), "Uniform");
}

TEST_F(DensityPage, InitializeResetsGridsFormulaAndHotspots) {
  page_.SetDescription("Simple");
  page_.SetFormula("=x");
  page_.AddHotspot();
  page_.AddHotspot();
  page_.Initialize();
  EXPECT_TRUE(page_.flxConstantDensity.Editable());
  EXPECT_FALSE(page_.flxHotspots.Editable());
  EXPECT_EQ(page_.flxHotspots.Rows(), 1);
  EXPECT_EQ(page_.flxHotspots.Cols(), 4);
  EXPECT_EQ(page_.flxHotspots.TextMatrix(0, 2), "Sigma");
  EXPECT_FALSE(page_.txtFormula.Enabled());
  EXPECT_EQ(page_.Formula(), "e.g. = -100 + x*1.02 + y*1.15");
  EXPECT_FALSE(page_.labLayer.Enabled());
  EXPECT_FALSE(page_.labField.Enabled());
  EXPECT_FALSE(page_.cmdAddHotspot.Enabled());
  EXPECT_FALSE(page_.cmdSubHotspot.Enabled());
  EXPECT_EQ(page_.chkHotspots.Value(), CheckBox::kUnchecked);
  EXPECT_EQ(page_.NumHotspots(), 0);
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(DensityPage, InitializeReportsAnErrorAsPagDensityInititalize) {
  page_.SetFormula("=x");
  page_.txtFormula.Subscribe([] { throw RuntimeError(5, "Test", "Broken text box"); });
  page_.Initialize();
  ASSERT_EQ(platform_.Messages().size(), 1u);
  EXPECT_EQ(platform_.Messages()[0].title, "Pellunar Internal Error");
  EXPECT_EQ(platform_.Messages()[0].icon, MessageIcon::Critical);
  EXPECT_NE(platform_.Messages()[0].text.find("(Error raised from: ZrSIMPrp.PagDensity.Inititalize)"),
            std::string::npos);
  EXPECT_NE(platform_.Messages()[0].text.find("Broken text box"), std::string::npos);
  EXPECT_EQ(platform_.Beeps(), 1);
}

TEST_F(DensityPage, DescriptionIsEmptyBeforeAnyOptionIsOn) { EXPECT_EQ(page_.Description(), ""); }

TEST_F(DensityPage, DescriptionNamesTheOptionIgnoringCase) {
  page_.Initialize();
  page_.SetDescription("simple");
  EXPECT_EQ(page_.Description(), "Simple");
  page_.SetDescription("dsm");
  EXPECT_EQ(page_.Description(), "DSM");
  page_.SetDescription("UNIFORM");
  EXPECT_EQ(page_.Description(), "Uniform");
}

TEST_F(DensityPage, DescriptionWithAnUnknownWordChangesNothing) {
  page_.Initialize();
  page_.SetDescription("Simple");
  page_.SetDescription("Gaussian");
  EXPECT_EQ(page_.Description(), "Simple");
  page_.SetDescription("");
  EXPECT_EQ(page_.Description(), "Simple");
}

TEST_F(DensityPage, SimpleOptionGreysDensitiesAndOpensTheFormulaWithoutTheExample) {
  PrepareUniformPage();
  page_.SetDescription("Simple");
  EXPECT_FALSE(page_.flxConstantDensity.Editable());
  for (int c = 1; c <= 3; ++c) {
    EXPECT_EQ(page_.flxConstantDensity.CellBackColor(1, c), page_.flxConstantDensity.BackColorFixed());
  }
  EXPECT_TRUE(page_.txtFormula.Enabled());
  EXPECT_EQ(page_.Formula(), "");
}

TEST_F(DensityPage, SimpleOptionKeepsAFormulaAlreadyTyped) {
  page_.Initialize();
  page_.SetFormula("= 2*x");
  page_.SetDescription("Simple");
  EXPECT_EQ(page_.Formula(), "= 2*x");
}

TEST_F(DensityPage, UniformOptionGivesDensitiesTheNormalLookAgain) {
  PrepareUniformPage();
  page_.SetDescription("Simple");
  page_.SetDescription("Uniform");
  EXPECT_TRUE(page_.flxConstantDensity.Editable());
  EXPECT_FALSE(page_.txtFormula.Enabled());
  for (int c = 1; c <= 3; ++c) {
    EXPECT_EQ(page_.flxConstantDensity.CellBackColor(1, c), page_.flxConstantDensity.BackColor());
  }
  EXPECT_TRUE(page_.flxConstantDensity.UserEditCell(1, 2, "4"));
}

TEST_F(DensityPage, DsmOptionChangesNoControl) {
  page_.Initialize();
  page_.SetDescription("DSM");
  EXPECT_TRUE(page_.flxConstantDensity.Editable());
  EXPECT_FALSE(page_.txtFormula.Enabled());
  EXPECT_FALSE(page_.cboLayer.Enabled());
  EXPECT_FALSE(page_.cboField.Enabled());
  EXPECT_EQ(page_.Formula(), "e.g. = -100 + x*1.02 + y*1.15");
}

TEST_F(DensityPage, StrataArrivalLabelsTheGridAndFillsZeros) {
  page_.Initialize();
  page_.UpdateFlxConstantDensity(3, {"North", "Centre", "South"});
  EXPECT_EQ(page_.flxConstantDensity.Rows(), 2);
  ASSERT_EQ(page_.flxConstantDensity.Cols(), 4);
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 0), "Strata:");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(1, 0), "Density:");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 1), "North");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 2), "Centre");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 3), "South");
  EXPECT_EQ(page_.Densities(), "0,0,0");
}

TEST_F(DensityPage, StrataChangeKeepsTypedDensitiesAndFillsNewColumnsWithZero) {
  page_.Initialize();
  page_.UpdateFlxConstantDensity(2, {"A", "B"});
  ASSERT_TRUE(page_.flxConstantDensity.UserEditCell(1, 1, "5"));
  ASSERT_TRUE(page_.flxConstantDensity.UserEditCell(1, 2, "7.5"));
  page_.UpdateFlxConstantDensity(4, {"P", "Q", "R", "S"});
  EXPECT_EQ(page_.Densities(), "5,7.5,0,0");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 4), "S");
  page_.UpdateFlxConstantDensity(1, {"Only"});
  EXPECT_EQ(page_.Densities(), "5");
  page_.UpdateFlxConstantDensity(3, {"A", "B", "C"});
  EXPECT_EQ(page_.Densities(), "5,0,0");
}

TEST_F(DensityPage, StrataChangeFillsABlankedDensityWithZero) {
  page_.Initialize();
  page_.UpdateFlxConstantDensity(2, {"A", "B"});
  page_.flxConstantDensity.SetTextMatrix(1, 1, "");
  page_.UpdateFlxConstantDensity(2, {"A", "B"});
  EXPECT_EQ(page_.Densities(), "0,0");
}

TEST_F(DensityPage, StrataArrivingUnderTheFormulaOptionAreGreyed) {
  page_.Initialize();
  page_.SetDescription("Simple");
  page_.UpdateFlxConstantDensity(3, {"A", "B", "C"});
  for (int c = 1; c <= 3; ++c) {
    EXPECT_EQ(page_.flxConstantDensity.CellBackColor(1, c), page_.flxConstantDensity.BackColorFixed());
  }
}

TEST_F(DensityPage, StrataArrivingUnderTheUniformOptionHaveTheNormalLook) {
  page_.Initialize();
  page_.UpdateFlxConstantDensity(3, {"A", "B", "C"});
  for (int c = 1; c <= 3; ++c) {
    EXPECT_EQ(page_.flxConstantDensity.CellBackColor(1, c), page_.flxConstantDensity.BackColor());
  }
}

TEST_F(DensityPage, NoStrataLeavesOnlyTheLabelColumnAndNoDensities) {
  page_.Initialize();
  page_.UpdateFlxConstantDensity(0, {});
  EXPECT_EQ(page_.flxConstantDensity.Cols(), 1);
  EXPECT_EQ(page_.Densities(), "");
}

TEST_F(DensityPage, FewerStrataNamesThanTheCountFailAtTheFirstMissingNameAfterTheGridIsResized) {
  page_.Initialize();
  page_.SetDescription("Simple");
  page_.UpdateFlxConstantDensity(2, {"A", "B"});
  page_.SetDensities("5,6");
  page_.flxConstantDensity.SetCellBackColor(1, 1, 1, 2, page_.flxConstantDensity.BackColor());
  try {
    page_.UpdateFlxConstantDensity(4, {"P", "Q"});
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 9);
    EXPECT_EQ(error.description, "Subscript out of range");
  }
  // The new columns exist, the names before the missing one are written with their zeros, and the
  // greying that follows the names never ran.
  ASSERT_EQ(page_.flxConstantDensity.Cols(), 5);
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 0), "Strata:");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 1), "P");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 2), "Q");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 3), "");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 4), "");
  EXPECT_EQ(page_.Densities(), "5,6,,");
  EXPECT_EQ(page_.flxConstantDensity.CellBackColor(1, 1), page_.flxConstantDensity.BackColor());
}

TEST_F(DensityPage, AStrataHandOverWithNoNamesAtAllFailsAtTheFirstColumn) {
  page_.Initialize();
  EXPECT_EQ(ErrorNumberOf([&] { page_.UpdateFlxConstantDensity(2, {}); }), 9);
  ASSERT_EQ(page_.flxConstantDensity.Cols(), 3);
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(1, 0), "Density:");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 1), "");
}

TEST_F(DensityPage, ANegativeStrataCountIsRefusedByTheGrid) {
  page_.Initialize();
  // One below zero leaves no column for the labels; further below, the grid refuses the count.
  EXPECT_EQ(ErrorNumberOf([&] { page_.UpdateFlxConstantDensity(-1, {}); }), 381);
  EXPECT_EQ(page_.flxConstantDensity.Cols(), 0);
  page_.UpdateFlxConstantDensity(1, {"A"});
  EXPECT_EQ(ErrorNumberOf([&] { page_.UpdateFlxConstantDensity(-2, {}); }), 380);
  EXPECT_EQ(page_.flxConstantDensity.Cols(), 2);
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(0, 1), "A");
}

TEST_F(DensityPage, AStrataCountWithNoRoomForTheLabelColumnOverflows) {
  page_.Initialize();
  EXPECT_EQ(ErrorNumberOf([&] { page_.UpdateFlxConstantDensity(2147483647, {"A"}); }), 6);
  EXPECT_EQ(page_.flxConstantDensity.Cols(), 2);
}

TEST_F(DensityPage, DensitiesRoundTripThroughTheStrataGrid) {
  PrepareUniformPage();
  page_.SetDensities("1.5,2,30");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(1, 1), "1.5");
  EXPECT_EQ(page_.flxConstantDensity.TextMatrix(1, 3), "30");
  EXPECT_EQ(page_.Densities(), "1.5,2,30");
}

TEST_F(DensityPage, DensitiesWithFewerPartsLeaveTheLaterColumns) {
  PrepareUniformPage();
  page_.SetDensities("1,2,3");
  page_.SetDensities("9");
  EXPECT_EQ(page_.Densities(), "9,2,3");
  page_.SetDensities("");
  EXPECT_EQ(page_.Densities(), "9,2,3");
}

TEST_F(DensityPage, DensitiesWithMorePartsThanColumnsRaiseToTheCaller) {
  PrepareUniformPage();
  try {
    page_.SetDensities("1,2,3,4");
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 381);
  }
  EXPECT_EQ(page_.flxConstantDensity.Cols(), 4);
}

TEST_F(DensityPage, FormulaAndGridSpacingAreTheTextBoxes) {
  page_.SetFormula("= 3 + x");
  page_.SetGridSpacing("25");
  EXPECT_EQ(page_.txtFormula.Text(), "= 3 + x");
  EXPECT_EQ(page_.txtGridSpace.Text(), "25");
  EXPECT_EQ(page_.Formula(), "= 3 + x");
  EXPECT_EQ(page_.GridSpacing(), "25");
}

TEST_F(DensityPage, DsmLayerAndFieldSelectTheMatchingEntryIgnoringCase) {
  page_.cboLayer.AddItem("Habitat");
  page_.cboLayer.AddItem("Depth");
  page_.cboField.AddItem("Value");
  page_.cboField.AddItem("Estimate");
  page_.SetDSMLayer("depth");
  page_.SetDSMField("ESTIMATE");
  EXPECT_EQ(page_.DSMLayer(), "Depth");
  EXPECT_EQ(page_.DSMField(), "Estimate");
}

TEST_F(DensityPage, DsmLayerAndFieldFallBackToTheFirstEntry) {
  page_.cboLayer.AddItem("Habitat");
  page_.cboLayer.AddItem("Depth");
  page_.cboField.AddItem("Value");
  page_.SetDSMLayer("Elevation");
  page_.SetDSMField("Other");
  EXPECT_EQ(page_.DSMLayer(), "Habitat");
  EXPECT_EQ(page_.DSMField(), "Value");
}

TEST_F(DensityPage, DsmLayerWithAnEmptyListLeavesTheText) {
  page_.SetDSMLayer("Elevation");
  EXPECT_EQ(page_.DSMLayer(), "Layer");
  EXPECT_EQ(page_.cboLayer.ListIndex(), -1);
}

TEST_F(DensityPage, DsmSettersRaise382InDesignMode) {
  page_.cboLayer.AddItem("Habitat");
  platform_.SetUserMode(false);
  try {
    page_.SetDSMLayer("Habitat");
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 382);
  }
  try {
    page_.SetDSMField("Value");
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 382);
  }
  EXPECT_EQ(page_.cboLayer.ListIndex(), -1);
}

}  // namespace
}  // namespace zrsimprp

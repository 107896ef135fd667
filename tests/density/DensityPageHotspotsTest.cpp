#include "DensityPageTest.h"
#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

using DensityHotspots = DensityPageTest;

TEST_F(DensityHotspots, AddHotspotTicksTheBoxAndAppendsAnEmptyRowInTheNormalLook) {
  page_.Initialize();
  page_.AddHotspot();
  EXPECT_EQ(page_.chkHotspots.Value(), CheckBox::kChecked);
  ASSERT_EQ(page_.flxHotspots.Rows(), 2);
  for (int c = 0; c < 4; ++c) {
    EXPECT_EQ(page_.flxHotspots.TextMatrix(1, c), "");
    EXPECT_EQ(page_.flxHotspots.CellBackColor(1, c), page_.flxHotspots.BackColor());
  }
  EXPECT_TRUE(page_.cmdAddHotspot.Enabled());
  EXPECT_TRUE(page_.cmdSubHotspot.Enabled());
  EXPECT_TRUE(page_.flxHotspots.Editable());
  EXPECT_EQ(page_.NumHotspots(), 1);
}

TEST_F(DensityHotspots, NumHotspotsCountsTheRowsBelowTheHeadings) {
  page_.Initialize();
  EXPECT_EQ(page_.NumHotspots(), 0);
  page_.AddHotspot();
  page_.AddHotspot();
  page_.AddHotspot();
  EXPECT_EQ(page_.NumHotspots(), 3);
}

TEST_F(DensityHotspots, NumHotspotsIsZeroWhenTheBoxIsUntickedEvenWithRows) {
  page_.Initialize();
  page_.AddHotspot();
  page_.AddHotspot();
  page_.chkHotspots.SetValue(CheckBox::kUnchecked);
  EXPECT_EQ(page_.flxHotspots.Rows(), 3);
  EXPECT_EQ(page_.NumHotspots(), 0);
}

TEST_F(DensityHotspots, HotspotValuesRoundTripInParameterOrder) {
  page_.Initialize();
  page_.AddHotspot();
  page_.SetHotspotValues(page_.NumHotspots(), "10,20,5,2");
  EXPECT_EQ(page_.flxHotspots.TextMatrix(1, 0), "10");
  EXPECT_EQ(page_.flxHotspots.TextMatrix(1, 1), "20");
  EXPECT_EQ(page_.flxHotspots.TextMatrix(1, 2), "5");
  EXPECT_EQ(page_.flxHotspots.TextMatrix(1, 3), "2");
  EXPECT_EQ(page_.HotspotValues(1), "10,20,5,2");
}

TEST_F(DensityHotspots, HotspotValuesAsTheDefinitionReaderLoadsThem) {
  page_.Initialize();
  const std::vector<std::string> entries = {"1,2,3,4", "5,6,7,8", "-1.5,0,0.25,100"};
  for (const std::string& entry : entries) {
    page_.AddHotspot();
    page_.SetHotspotValues(page_.NumHotspots(), entry);
  }
  ASSERT_EQ(page_.NumHotspots(), 3);
  for (int16_t k = 1; k <= 3; ++k) EXPECT_EQ(page_.HotspotValues(k), entries[static_cast<size_t>(k - 1)]);
}

TEST_F(DensityHotspots, HotspotValuesLetTicksTheBox) {
  page_.Initialize();
  page_.flxHotspots.AddItem("");
  page_.SetHotspotValues(1, "1,2,3,4");
  EXPECT_EQ(page_.chkHotspots.Value(), CheckBox::kChecked);
  EXPECT_TRUE(page_.cmdAddHotspot.Enabled());
  EXPECT_EQ(page_.NumHotspots(), 1);
}

TEST_F(DensityHotspots, HotspotValuesBeyondFourPartsUseTheFirstFour) {
  page_.Initialize();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,3,4,5");
  EXPECT_EQ(page_.HotspotValues(1), "1,2,3,4");
}

TEST_F(DensityHotspots, HotspotValuesWithFewerThanFourPartsWriteThePartsGivenThenRaise) {
  page_.Initialize();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,3,4");
  try {
    page_.SetHotspotValues(1, "7,8,9");
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 9);
    EXPECT_EQ(error.description, "Subscript out of range");
  }
  // The three parts are written before the missing fourth one is reached.
  EXPECT_EQ(page_.HotspotValues(1), "7,8,9,4");
}

TEST_F(DensityHotspots, HotspotValuesOfEmptyTextRaiseBeforeAnyCellChanges) {
  page_.Initialize();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,3,4");
  EXPECT_EQ(ErrorNumberOf([&] { page_.SetHotspotValues(1, ""); }), 9);
  EXPECT_EQ(page_.HotspotValues(1), "1,2,3,4");
}

TEST_F(DensityHotspots, HotspotValuesOfAMissingRowRaise) {
  page_.Initialize();
  page_.AddHotspot();
  try {
    page_.SetHotspotValues(2, "1,2,3,4");
    FAIL() << "no error raised";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, 381);
  }
  EXPECT_THROW(page_.HotspotValues(5), RuntimeError);
}

TEST_F(DensityHotspots, TickingTheBoxEnablesAddingAndEditing) {
  page_.Initialize();
  ASSERT_TRUE(page_.chkHotspots.UserClick());
  EXPECT_TRUE(page_.cmdAddHotspot.Enabled());
  EXPECT_FALSE(page_.cmdSubHotspot.Enabled());
  EXPECT_TRUE(page_.flxHotspots.Editable());
}

TEST_F(DensityHotspots, UntickingGreysAndLocksTheRowsButKeepsThem) {
  page_.Initialize();
  page_.AddHotspot();
  page_.SetHotspotValues(1, "1,2,3,4");
  page_.AddHotspot();
  ASSERT_TRUE(page_.chkHotspots.UserClick());
  EXPECT_FALSE(page_.cmdAddHotspot.Enabled());
  EXPECT_FALSE(page_.cmdSubHotspot.Enabled());
  EXPECT_FALSE(page_.flxHotspots.Editable());
  for (int r = 1; r <= 2; ++r) {
    for (int c = 0; c < 4; ++c) {
      EXPECT_EQ(page_.flxHotspots.CellBackColor(r, c), page_.flxHotspots.BackColorFixed());
    }
  }
  EXPECT_FALSE(page_.flxHotspots.UserEditCell(1, 0, "9"));
  EXPECT_EQ(page_.flxHotspots.Rows(), 3);
  EXPECT_EQ(page_.HotspotValues(1), "1,2,3,4");
}

TEST_F(DensityHotspots, RetickingRestoresTheNormalLookAndRemoval) {
  page_.Initialize();
  page_.AddHotspot();
  page_.chkHotspots.UserClick();
  page_.chkHotspots.UserClick();
  EXPECT_TRUE(page_.cmdSubHotspot.Enabled());
  EXPECT_TRUE(page_.flxHotspots.Editable());
  EXPECT_EQ(page_.flxHotspots.CellBackColor(1, 3), page_.flxHotspots.BackColor());
  EXPECT_TRUE(page_.flxHotspots.UserEditCell(1, 0, "9"));
}

TEST_F(DensityHotspots, ThePlusButtonAddsARow) {
  page_.Initialize();
  page_.chkHotspots.UserClick();
  ASSERT_TRUE(page_.cmdAddHotspot.UserClick());
  EXPECT_EQ(page_.flxHotspots.Rows(), 2);
  EXPECT_TRUE(page_.cmdSubHotspot.Enabled());
}

TEST_F(DensityHotspots, TheMinusButtonRemovesTheCurrentRow) {
  page_.Initialize();
  for (const char* values : {"1,1,1,1", "2,2,2,2", "3,3,3,3"}) {
    page_.AddHotspot();
    page_.SetHotspotValues(page_.NumHotspots(), values);
  }
  ASSERT_TRUE(page_.flxHotspots.UserSelectCell(2, 1));
  ASSERT_TRUE(page_.cmdSubHotspot.UserClick());
  ASSERT_EQ(page_.NumHotspots(), 2);
  EXPECT_EQ(page_.HotspotValues(1), "1,1,1,1");
  EXPECT_EQ(page_.HotspotValues(2), "3,3,3,3");
  EXPECT_TRUE(page_.cmdSubHotspot.Enabled());
}

TEST_F(DensityHotspots, RemovingTheLastHotspotDisablesTheMinusButton) {
  page_.Initialize();
  page_.AddHotspot();
  page_.flxHotspots.SetRow(1);
  ASSERT_TRUE(page_.cmdSubHotspot.UserClick());
  EXPECT_EQ(page_.flxHotspots.Rows(), 1);
  EXPECT_EQ(page_.flxHotspots.TextMatrix(0, 0), "Centre X");
  EXPECT_FALSE(page_.cmdSubHotspot.Enabled());
  EXPECT_FALSE(page_.cmdSubHotspot.UserClick());
}

TEST_F(DensityHotspots, TheMinusButtonNeverRemovesTheHeadings) {
  page_.Initialize();
  for (const char* values : {"1,1,1,1", "2,2,2,2"}) {
    page_.AddHotspot();
    page_.SetHotspotValues(page_.NumHotspots(), values);
  }
  page_.flxHotspots.SetRow(0);
  ASSERT_TRUE(page_.cmdSubHotspot.UserClick());
  ASSERT_EQ(page_.flxHotspots.Rows(), 2);
  EXPECT_EQ(page_.flxHotspots.TextMatrix(0, 3), "Amplitude");
  EXPECT_EQ(page_.HotspotValues(1), "1,1,1,1");
}

}  // namespace
}  // namespace zrsimprp

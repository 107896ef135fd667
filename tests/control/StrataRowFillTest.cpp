#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ControlTestFixture.h"
#include "zrsimprp/control/StrataRowFill.h"

namespace zrsimprp {
namespace {

class StrataRowFillTest : public ::testing::Test {
 protected:
  StrataRowFillTest() : grid(2, 4, 1, 1) {
    grid.SetEditable(true);
    grid.SetTextMatrix(0, 1, "A");
    grid.SetTextMatrix(0, 2, "B");
    grid.SetTextMatrix(0, 3, "");
    strata = StrataHeadings::Make({"11", "12", "13"}, {"A", "B", ""});
  }
  Grid grid;
  std::vector<StrataHeadings::Heading> strata;
};

TEST_F(StrataRowFillTest, ACsvColumnIsMatchedByIdOrLabelAndTheStrataWithoutAValueAreNamed) {
  const auto outcome = StrataRowFill::FromCsv(
      grid, 1, 1, strata, "stratum;area;density\r\nB;4;0,5\r\n11;3;1\r\n99;1;7\r\n", "Density");
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(grid.TextMatrix(1, 1), "1");
  EXPECT_EQ(grid.TextMatrix(1, 2), "0,5");
  EXPECT_EQ(grid.TextMatrix(1, 3), "");
  EXPECT_EQ(outcome.unmatched, (std::vector<std::string>{"13"}));
  EXPECT_EQ(StrataRowFill::Describe(outcome), "Filled 2 cells; no value for id 13.");
}

TEST_F(StrataRowFillTest, WithoutAColumnNameTheSecondColumnHoldsTheValues) {
  const auto outcome = StrataRowFill::FromCsv(grid, 1, 1, strata, "id,value\n11,5\n12,6\n13,7\n", "");
  EXPECT_EQ(outcome.count.applied, 3);
  EXPECT_EQ(grid.TextMatrix(1, 3), "7");
  EXPECT_EQ(StrataRowFill::Describe(outcome), "Filled 3 cells.");
}

TEST_F(StrataRowFillTest, AMissingColumnOrAnEmptyFileIsSaidAndNothingChanges) {
  auto outcome = StrataRowFill::FromCsv(grid, 1, 1, strata, "id,value\n11,5\n", "N");
  EXPECT_EQ(outcome.error, "The file has no column 'N'.");
  outcome = StrataRowFill::FromCsv(grid, 1, 1, strata, "", "");
  EXPECT_EQ(StrataRowFill::Describe(outcome), "The file holds no heading line followed by values.");
  EXPECT_EQ(grid.TextMatrix(1, 1), "");
}

TEST_F(StrataRowFillTest, ALayerFieldIsMatchedByIdAndMustBeNumeric) {
  auto database = MakeSampleProject();
  database->AddLayerField("Strata", "Area", {Variant(2.5), Variant(int32_t{4}), Variant(int32_t{9})});
  database->AddLayerField("Strata", "Name",
                          {Variant(std::string("x")), Variant(std::string("y")), Variant(std::string("z"))});
  const auto sample = StrataHeadings::ForLayer(database, "Strata");
  auto outcome = StrataRowFill::FromLayerField(grid, 1, 1, sample, database, "Strata", "Area");
  EXPECT_EQ(outcome.error, "");
  EXPECT_EQ(grid.TextMatrix(1, 1), "2.5");
  EXPECT_EQ(grid.TextMatrix(1, 3), "9");
  outcome = StrataRowFill::FromLayerField(grid, 1, 1, sample, database, "Strata", "Name");
  EXPECT_EQ(outcome.error, "The field 'Name' is not numeric ('x').");
  EXPECT_EQ(grid.TextMatrix(1, 1), "2.5");
}

TEST_F(StrataRowFillTest, TheFieldsOfferedAreTheLayersNumericOnes) {
  auto database = MakeSampleProject();
  database->AddLayerField("Strata", "Area", {Variant(2.5), Variant(int32_t{4}), Variant()});
  database->AddLayerField("Strata", "Name",
                          {Variant(std::string("x")), Variant(std::string("y")), Variant(std::string("z"))});
  database->AddLayerField("Strata", "Households",
                          {Variant(int32_t{10}), Variant(int32_t{20}), Variant(int32_t{30})});
  EXPECT_EQ(StrataRowFill::FieldChoices(database, "STRATA"),
            (std::vector<std::string>{"Area", "Households"}));
  EXPECT_TRUE(StrataRowFill::FieldChoices(database, "No such layer").empty());
  EXPECT_TRUE(StrataRowFill::FieldChoices(database, "").empty());
  EXPECT_TRUE(StrataRowFill::FieldChoices(nullptr, "Strata").empty());
}

}  // namespace
}  // namespace zrsimprp

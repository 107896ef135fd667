#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ControlTestFixture.h"
#include "zrsimprp/control/StrataHeadings.h"

namespace zrsimprp {
namespace {

TEST(StrataHeadings, ALabelOfItsOwnIsTheHeadingAndRepeatedOrBlankLabelsAddTheId) {
  const auto headings =
      StrataHeadings::Make({"4", "37", "38", "9"}, {"Vestal", "Binghamton city", "Binghamton city", ""});
  ASSERT_EQ(headings.size(), 4u);
  EXPECT_EQ(headings[0].text, "Vestal");
  EXPECT_EQ(headings[1].text, "Binghamton city (37)");
  EXPECT_EQ(headings[2].text, "Binghamton city (38)");
  EXPECT_EQ(headings[3].text, "id 9");
  EXPECT_EQ(headings[1].Tooltip(), "stratum 2 of 4, id 37, Binghamton city");
  EXPECT_EQ(headings[3].Tooltip(), "stratum 4 of 4, id 9");
}

TEST(StrataHeadings, MissingLabelsAreBlank) {
  const auto headings = StrataHeadings::Make({"1", "2"}, {});
  EXPECT_EQ(headings[1].text, "id 2");
  EXPECT_EQ(headings[1].label, "");
}

TEST(StrataHeadings, ALayerIsReadInRecordOrderAndAMissingLayerGivesNone) {
  auto database = MakeSampleProject();
  const auto headings = StrataHeadings::ForLayer(database, "Strata");
  ASSERT_EQ(headings.size(), 3u);
  EXPECT_EQ(headings[2].Tooltip(), "stratum 3 of 3, id 3, C");
  EXPECT_TRUE(StrataHeadings::ForLayer(database, "No such layer").empty());
  EXPECT_TRUE(StrataHeadings::ForLayer(nullptr, "Strata").empty());
}

}  // namespace
}  // namespace zrsimprp

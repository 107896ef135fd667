#include <gtest/gtest.h>

#include "zrsimprp/lint/ClosestName.h"
#include "zrsimprp/lint/LintCodes.h"
#include "zrsimprp/lint/PageCheckCause.h"

namespace zrsimprp {
namespace {

TEST(ClosestName, DistanceCountsEditsWithCaseIgnored) {
  EXPECT_EQ(ClosestName::Distance("Repss", "Reps"), 1u);
  EXPECT_EQ(ClosestName::Distance("REPS", "reps"), 0u);
  EXPECT_EQ(ClosestName::Distance("", "abc"), 3u);
  EXPECT_EQ(ClosestName::Distance("kitten", "sitting"), 3u);
}

TEST(ClosestName, PicksTheNearestCandidate) {
  EXPECT_EQ(ClosestName::Among("Densty", {"Reps", "Density", "Detectability"}), "Density");
  EXPECT_EQ(ClosestName::Among("x", {}), "");
}

TEST(PageCheckCause, SaysWhichErrorInterruptedThePage) {
  Finding finding = PageCheckCause::Explain("Density", RuntimeError(13, "Conversions", "Type mismatch"));
  EXPECT_EQ(finding.code, lint_code::kPageCheckInterrupted);
  EXPECT_EQ(finding.severity, Severity::kError);
  EXPECT_EQ(
      finding.sentence,
      "The Density page could not finish its checks because it met a value that is empty or not a number "
      "(\"Type mismatch\", error 13 from Conversions).");
}

TEST(PageCheckCause, OverflowInWords) {
  EXPECT_EQ(PageCheckCause::InWords(RuntimeError(6, "Conversions", "Overflow")),
            "a number too large for the page");
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <string>

#include "zrsimprp/lint/FormPlace.h"
#include "zrsimprp/lint/LintCodes.h"

namespace zrsimprp {
namespace {

Finding Located(const char* code, const std::string& entry, const std::string& field) {
  Finding finding;
  finding.code = code;
  finding.entry = entry;
  finding.field = field;
  FormPlace::Locate(finding);
  return finding;
}

TEST(FormPlace, AFindingPointsAtThePageAndControlOfItsEntryAndField) {
  const Finding spacing = Located(lint_code::kNotPositive, "Density", "GridSpace");
  EXPECT_EQ(spacing.page, "Density");
  EXPECT_EQ(spacing.control, "txtGridSpace");
  const Finding cores = Located(lint_code::kNotWhole, "ParallelProcessing", "cores");
  EXPECT_EQ(cores.page, "Misc");
  EXPECT_EQ(cores.control, "txtCores");
  // Keys are compared as the pages compare them, case ignored.
  EXPECT_EQ(Located(lint_code::kNotANumber, "reps", "").control, "txtReps");
}

TEST(FormPlace, AnUnknownDesignPointsAtTheDesignList) {
  EXPECT_EQ(Located(lint_code::kUnknownDesign, "Transects", "ObjectID").control, "cboDesign");
  EXPECT_EQ(Located(lint_code::kUnknownSurvey, "Transects", "ObjectID").control, "cboSurvey");
}

TEST(FormPlace, AnEntryNoPageReadsPointsNowhere) {
  const Finding unknown = Located(lint_code::kUnknownEntry, "Repss", "");
  EXPECT_TRUE(unknown.page.empty());
  EXPECT_TRUE(unknown.control.empty());
}

TEST(FormPlace, APlaceAlreadyGivenIsKept) {
  Finding finding;
  finding.entry = "Density";
  finding.page = "Simulation";
  finding.control = "cboRegionLayer";
  FormPlace::Locate(finding);
  EXPECT_EQ(finding.control, "cboRegionLayer");
}

}  // namespace
}  // namespace zrsimprp

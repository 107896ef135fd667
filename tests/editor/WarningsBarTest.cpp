#include <gtest/gtest.h>

#include <QPushButton>

#include "EditorFixture.h"
#include "projectdb/GeoPackageProject.h"
#include "zrsim-editor/EditorDocument.h"
#include "zrsim-editor/EditorWindow.h"
#include "zrsim-editor/WarningsBar.h"
#include "zrsimprp/lint/LintCodes.h"

namespace {

using zrsim_editor::WarningsBar;

class WarningsBarTest : public EditorFixture {
 protected:
  void SaveDefinition(const std::string& text) {
    zrsimprp::GeoPackageProject::Open(Sample())->SaveSimulationDefinition("Sample simulation", text);
  }
};

TEST_F(WarningsBarTest, CleanSimulationShowsNoBar) {
  OpenWindow();
  EXPECT_TRUE(window_->Warnings().isHidden());
  EXPECT_EQ(window_->Warnings().FindingCount(), 0);
  EXPECT_TRUE(window_->Warnings().Text().isEmpty());
}

TEST_F(WarningsBarTest, ShowsTheSameLinesAsCheckForTheOpenSimulation) {
  SaveDefinition(StoredDefinition() + "Repss=30;\r\n");
  OpenWindow();
  WarningsBar& bar = window_->Warnings();
  EXPECT_FALSE(bar.isHidden());
  EXPECT_EQ(bar.FindingCount(), 1);
  EXPECT_EQ(
      bar.Text().toStdString(),
      "The saved definition: 0 error(s), 1 warning(s). These are advice; the pages decide what is "
      "accepted.\n"
      "ZR101 warning at line 20 (Repss): The entry \"Repss\" is not read by any page, so it is ignored and "
      "dropped on the next save; the closest known entry is \"Reps\".");
}

TEST_F(WarningsBarTest, WarningsNeverBlockOkAndAreRefreshedAfterSaving) {
  SaveDefinition(StoredDefinition() + "Repss=30;\r\n");
  OpenWindow();
  ASSERT_EQ(window_->Warnings().FindingCount(), 1);
  // Only an edit is saved; the warning does not stand in its way.
  TypeReps("31");
  EXPECT_TRUE(window_->Apply());
  EXPECT_TRUE(shown_.empty());
  // The control wrote the definition back without the entry no page reads.
  EXPECT_EQ(StoredDefinition().find("Repss"), std::string::npos);
  EXPECT_EQ(window_->Warnings().FindingCount(), 0);
  EXPECT_TRUE(window_->Warnings().isHidden());
}

TEST_F(WarningsBarTest, LongListsAreCutWithACount) {
  WarningsBar bar;
  std::vector<zrsimprp::Finding> findings(WarningsBar::kShownLines + 2);
  for (zrsimprp::Finding& finding : findings) {
    finding.code = zrsimprp::lint_code::kUnknownEntry;
    finding.severity = zrsimprp::Severity::kWarning;
    finding.sentence = "Something.";
  }
  findings[0].severity = zrsimprp::Severity::kError;
  bar.ShowFindings(findings);
  EXPECT_FALSE(bar.isHidden());
  const QStringList lines = bar.Text().split('\n');
  ASSERT_EQ(lines.size(), WarningsBar::kShownLines + 2);
  EXPECT_EQ(
      lines.front().toStdString(),
      "The saved definition: 1 error(s), 5 warning(s). These are advice; the pages decide what is accepted.");
  EXPECT_EQ(lines.back().toStdString(), "… and 2 more (see the tooltip)");
  EXPECT_EQ(bar.toolTip().split('\n').size(), static_cast<int>(findings.size()));
}

}  // namespace

namespace {

// A page's checks interrupted by an error show only the page's generic message; the line under the
// tabs says which error it was, as `zrsim check` does.
TEST_F(WarningsBarTest, ThePageCheckCauseBehindTheGenericMessageIsShownUnderTheTabs) {
  SaveDefinition("Engine=SIM;");
  OpenWindow();
  window_->Properties().ShowOuterTab(1);
  ASSERT_EQ(window_->Properties().CurrentOuterTab(), 1);
  window_->Properties().ShowOuterTab(2);
  ASSERT_FALSE(shown_.empty());
  EXPECT_EQ(shown_.back().text,
            "An unexpected error occured while checking the options on this page.   Please check they are "
            "valid and change any incorrect values");
  EXPECT_NE(window_->Warnings().Text().toStdString().find(
                "ZR501 error: The Density page could not finish its checks because it met a value that is "
                "empty or not a number (\"Type mismatch\", error 13 from ZrSIMPrp)."),
            std::string::npos)
      << window_->Warnings().Text().toStdString();
}

}  // namespace

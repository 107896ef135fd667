#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "EditorFixture.h"
#include "projectdb/GeoPackageProject.h"
#include "zrsim-editor/EditorWindow.h"
#include "zrsim-editor/LiveLint.h"
#include "zrsim-editor/WarningsBar.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/AccessibleText.h"

namespace {

using zrsim_editor::EditorWindow;
using zrsim_editor::LiveLint;

// The sample's rows of a grid spacing of 1500 are centred at y = 750 and 2250: the northern stratum
// (y 1400 to 2000) and the southern one (y 0 to 600) get no cell centre.
const char* const kCoarseLine =
    "ZR605 warning at line 5 (Density /GridSpace): The grid spacing 1500 leaves 2 strata ('North' and "
    "'South') without a grid cell centre, so the density surface has no cell in them; give a grid spacing "
    "smaller than the smallest stratum.";

class LiveLintTest : public EditorFixture {
 protected:
  void TypeGridSpacing(const QString& text) {
    window_->Properties().ShowOuterTab(1);
    QLineEdit* edit = EditNamed(zrsimprp::AccessibleText::FromCaption(
        window_->Properties().Control().pagDensity.labGridSpace.Caption()));
    ASSERT_NE(edit, nullptr);
    edit->selectAll();
    QTest::keyClicks(edit, text);
    window_->Properties().RefreshNow();
  }
  void WaitForTheCheck() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return !window_->Lint().Pending(); }, 5000));
  }
};

TEST_F(LiveLintTest, WarningsFollowTheEditsOnceTypingPauses) {
  OpenWindow();
  ASSERT_EQ(window_->Warnings().FindingCount(), 0);
  const int checks = window_->Lint().Checks();
  TypeGridSpacing("1500");
  // Nothing is checked while the typing goes on.
  EXPECT_TRUE(window_->Lint().Pending());
  EXPECT_EQ(window_->Lint().Checks(), checks);
  WaitForTheCheck();
  // One check for the four key strokes.
  EXPECT_EQ(window_->Lint().Checks(), checks + 1);
  EXPECT_EQ(window_->Warnings().Text().toStdString(),
            std::string("The definition as it stands: 0 error(s), 1 warning(s). These are advice; the pages "
                        "decide what is accepted.\n") +
                kCoarseLine);
  // Back to the saved value: the line says what it said when the simulation was opened.
  TypeGridSpacing("100");
  WaitForTheCheck();
  EXPECT_EQ(window_->Warnings().FindingCount(), 0);
  EXPECT_TRUE(window_->Warnings().isHidden());
}

TEST_F(LiveLintTest, ClickingAFindingGoesToItsPage) {
  OpenWindow();
  TypeGridSpacing("1500");
  WaitForTheCheck();
  window_->Properties().ShowOuterTab(0);
  ASSERT_EQ(window_->Properties().CurrentOuterTab(), 0);
  window_->Warnings().Activate(0);
  EXPECT_EQ(window_->Properties().CurrentOuterTab(), 1);
}

TEST_F(LiveLintTest, ClickingAFindingPutsTheFocusOnItsControl) {
  OpenWindow();
  window_->resize(window_->DefaultSize());
  window_->show();
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  TypeGridSpacing("1500");
  WaitForTheCheck();
  window_->Properties().ShowOuterTab(0);
  // The line is a link to where the finding points.
  auto* lines = window_->Warnings().findChild<QLabel*>("warningsLines");
  ASSERT_NE(lines, nullptr);
  ASSERT_NE(lines->text().indexOf("href=\"finding:0\""), -1) << lines->text().toStdString();
  emit lines->linkActivated("finding:0");
  EXPECT_EQ(window_->Properties().CurrentOuterTab(), 1);
  QLineEdit* spacing = EditNamed(zrsimprp::AccessibleText::FromCaption(
      window_->Properties().Control().pagDensity.labGridSpace.Caption()));
  ASSERT_TRUE(QTest::qWaitFor([spacing] { return QApplication::focusWidget() == spacing; }, 2000));
}

TEST_F(LiveLintTest, SavingWithANewWarningAsksOnceAndGoBackKeepsTheFileAsItWas) {
  OpenWindow();
  const std::string before = StoredDefinition();
  TypeGridSpacing("1500");
  EXPECT_FALSE(window_->Apply());
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_EQ(asked_[0].text, EditorWindow::kNewWarningsQuestion);
  EXPECT_EQ(asked_[0].choices, (std::vector<EditorWindow::Choice>{EditorWindow::Choice::kSaveAnyway,
                                                                  EditorWindow::Choice::kGoBack}));
  EXPECT_EQ(StoredDefinition(), before);
  // The line lists the new warning while the question is asked.
  EXPECT_NE(window_->Warnings().Text().toStdString().find(kCoarseLine), std::string::npos);

  answers_.push_back(EditorWindow::Choice::kSaveAnyway);
  EXPECT_TRUE(window_->Apply());
  EXPECT_NE(StoredDefinition().find("GridSpace=1500"), std::string::npos);
  ASSERT_EQ(asked_.size(), 2u);
  // A warning saved with once is not asked about again.
  TypeReps("31");
  EXPECT_TRUE(window_->Apply());
  EXPECT_EQ(asked_.size(), 2u);
}

TEST_F(LiveLintTest, WarningsThereWhenTheSimulationWasOpenedDoNotAsk) {
  std::string text = StoredDefinition();
  text.replace(text.find("GridSpace=100"), 13, "GridSpace=1500");
  zrsimprp::GeoPackageProject::Open(Sample())->SaveSimulationDefinition("Sample simulation", text);
  OpenWindow();
  EXPECT_EQ(window_->Warnings().FindingCount(), 1);
  TypeReps("31");
  EXPECT_TRUE(window_->Apply());
  EXPECT_TRUE(asked_.empty());
}

}  // namespace

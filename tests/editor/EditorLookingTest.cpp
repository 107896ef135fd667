#include <gtest/gtest.h>

#include <QPushButton>
#include <QSettings>
#include <QTabBar>
#include <QTest>
#include <filesystem>
#include <map>

#include "EditorFixture.h"
#include "projectdb/GeoPackageProject.h"
#include "support/FileBytes.h"
#include "zrsim-editor/PersonalSettings.h"
#include "zrsim-editor/ScreenshotWriter.h"
#include "zrsim-editor/SettingsRouter.h"
#include "zrsimprp/control/SIMProperties.h"

namespace {

using zrsim_editor::EditorDocument;
using zrsim_editor::EditorWindow;
using zrsim_editor::PersonalSettings;
using zrsim_editor::SettingsRouter;
using zrsimprp::testing::FileBytes;

// Settings kept in memory that remember who wrote what.
class RecordingSettings : public zrsimprp::ProjectSettings {
 public:
  zrsimprp::Variant ReadSetting(int32_t, int32_t, const std::string& section, const std::string& key,
                                const zrsimprp::Variant& default_value) override {
    const auto found = values.find(section + "/" + key);
    return found == values.end() ? default_value : found->second;
  }
  void WriteSetting(int32_t, int32_t, const std::string& section, const std::string& key,
                    const zrsimprp::Variant& value) override {
    values[section + "/" + key] = value;
  }
  std::map<std::string, zrsimprp::Variant> values;
};

class EditorLookingTest : public EditorFixture {
 protected:
  // Every tab and both inner tabs, as a person clicking through would.
  void VisitEveryTab() {
    zrsimprp::SIMPropertiesWidget& properties = window_->Properties();
    for (int tab = 0; tab < 6; ++tab) {
      QTest::mouseClick(properties.OuterTabBar(), Qt::LeftButton, Qt::NoModifier,
                        properties.OuterTabBar()->tabRect(tab).center());
      EXPECT_EQ(properties.CurrentOuterTab(), tab);
      if (tab == 2) {
        properties.ShowInnerTab(2);
        properties.ShowInnerTab(1);
      }
    }
  }
};

TEST_F(EditorLookingTest, RouterSendsWhereAPersonWasToThePersonAndTheRestToTheProject) {
  auto personal = std::make_shared<RecordingSettings>();
  auto project = std::make_shared<RecordingSettings>();
  SettingsRouter router(personal, project);
  router.WriteSetting(0, 2, "SIMProperties", "CurrentTab", zrsimprp::Variant(int16_t{3}));
  router.WriteSetting(1, 3, "Properties", "InsertCrLf", zrsimprp::Variant(true));
  EXPECT_EQ(personal->values.count("SIMProperties/CurrentTab"), 1u);
  EXPECT_EQ(personal->values.count("Properties/InsertCrLf"), 0u);
  EXPECT_EQ(project->values.count("Properties/InsertCrLf"), 1u);
  EXPECT_EQ(project->values.count("SIMProperties/CurrentTab"), 0u);
  EXPECT_EQ(router.ReadSetting(0, 0, "SIMProperties", "CurrentTab", zrsimprp::Variant()),
            zrsimprp::Variant(int16_t{3}));
}

TEST_F(EditorLookingTest, PersonalSettingsKeepTheirTypeAcrossRuns) {
  {
    PersonalSettings settings(Sample(), "Sample simulation");
    settings.WriteSetting(0, 2, "SIMProperties", "CurrentTab", zrsimprp::Variant(int16_t{4}));
    settings.WriteSetting(0, 0, "SIMProperties", "CurrentAOTab",
                          zrsimprp::Variant(std::string("Covariates")));
  }
  PersonalSettings again(Folder() + "/./sample.gpkg", "Sample simulation");  // another spelling of the file
  EXPECT_EQ(again.ReadSetting(0, 2, "SIMProperties", "CurrentTab", zrsimprp::Variant()),
            zrsimprp::Variant(int16_t{4}));
  EXPECT_EQ(again.ReadSetting(0, 0, "SIMProperties", "CurrentAOTab", zrsimprp::Variant()),
            zrsimprp::Variant(std::string("Covariates")));
  PersonalSettings other(Sample(), "Another simulation");
  EXPECT_EQ(other.ReadSetting(0, 2, "SIMProperties", "CurrentTab", zrsimprp::Variant(int16_t{0})),
            zrsimprp::Variant(int16_t{0}));
}

TEST_F(EditorLookingTest, OpeningSwitchingTabsScreenshotsAndClosingLeaveTheFileByteForByte) {
  const std::string before = FileBytes(Sample());
  OpenWindow();
  window_->show();
  VisitEveryTab();
  std::vector<std::string> problems;
  zrsim_editor::ScreenshotWriter::WriteAll(*window_, Folder() + "/shots", problems);
  EXPECT_TRUE(problems.empty());
  QTest::mouseClick(window_->CancelButton(), Qt::LeftButton);
  EXPECT_TRUE(asked_.empty());
  EXPECT_TRUE(shown_.empty());
  CloseWindow();
  EXPECT_TRUE(FileBytes(Sample()) == before) << "the project file changed by being looked at";
}

TEST_F(EditorLookingTest, OkWithoutChangesSavesNothing) {
  const std::string before = FileBytes(Sample());
  OpenWindow();
  window_->Properties().ShowOuterTab(3);
  QTest::mouseClick(window_->OkButton(), Qt::LeftButton);
  EXPECT_EQ(window_->result(), QDialog::Accepted);
  CloseWindow();
  EXPECT_TRUE(FileBytes(Sample()) == before);
}

TEST_F(EditorLookingTest, TheShownTabIsRememberedForThePersonAcrossRuns) {
  OpenWindow();
  window_->Properties().ShowOuterTab(3);
  CloseWindow();
  const QString group = PersonalSettings::GroupFor(Sample(), "Sample simulation");
  EXPECT_TRUE(QSettings().contains(group + "/SIMProperties/CurrentTab"));
  OpenWindow();
  EXPECT_EQ(window_->Properties().CurrentOuterTab(), 3);
  EXPECT_EQ(window_->Properties().OuterTabBar()->currentIndex(), 3);
}

TEST_F(EditorLookingTest, KeysThatBelongToTheProjectAreStillReadFromIt) {
  zrsimprp::GeoPackageProject::Open(Sample())->Settings()->WriteSetting(1, 3, "Properties", "InsertCrLf",
                                                                        zrsimprp::Variant(false));
  OpenWindow();
  const std::string text = window_->Properties().Definition();
  EXPECT_FALSE(text.empty());
  EXPECT_EQ(text.find('\n'), std::string::npos) << text;
}

TEST_F(EditorLookingTest, WindowSizeAndPlaceAreRememberedForThePerson) {
  OpenWindow();
  window_->RestoreGeometry();
  window_->show();
  window_->setGeometry(40, 50, 900, 700);
  const QRect placed = window_->geometry();
  QTest::mouseClick(window_->CancelButton(), Qt::LeftButton);
  CloseWindow();
  OpenWindow();
  window_->RestoreGeometry();
  EXPECT_EQ(window_->geometry().size(), placed.size());
  EXPECT_EQ(window_->geometry().topLeft(), placed.topLeft());
}

// A project the person may not write: run as root the file modes are ignored, so the project is
// opened read-only as it would be for anyone else.
class EditorReadOnlyTest : public EditorLookingTest {};

TEST_F(EditorReadOnlyTest, OpensWithReadOnlyTitleAndCloseAndSaveAsInsteadOfOkAndApply) {
  OpenWindow(/*read_only=*/true);
  window_->show();
  EXPECT_TRUE(document_->IsReadOnly());
  EXPECT_TRUE(window_->windowTitle().contains(QStringLiteral("(read-only)")))
      << window_->windowTitle().toStdString();
  EXPECT_FALSE(window_->OkButton()->isVisible());
  EXPECT_FALSE(window_->ApplyButton()->isVisible());
  EXPECT_TRUE(window_->SaveAsButton()->isVisible());
  EXPECT_EQ(window_->CancelButton()->text(), QStringLiteral("&Close"));
}

TEST_F(EditorReadOnlyTest, EveryTabCanBeEnteredWithNoMessageAndTheFileStaysAsItWas) {
  const std::string before = FileBytes(Sample());
  OpenWindow(true);
  window_->show();
  VisitEveryTab();
  QTest::mouseClick(window_->CancelButton(), Qt::LeftButton);
  EXPECT_TRUE(shown_.empty()) << shown_.front().title << ": " << shown_.front().text;
  CloseWindow();
  EXPECT_TRUE(FileBytes(Sample()) == before);
}

TEST_F(EditorReadOnlyTest, SavingIntoTheReadOnlyProjectIsRefusedInPlainWords) {
  document_ = EditorDocument::Open(Sample(), "", true);
  const EditorDocument::SaveOutcome outcome = document_->Save("Engine=SIM;\r\nReps=3;\r\n");
  EXPECT_FALSE(outcome.saved);
  EXPECT_EQ(outcome.message, EditorDocument::kReadOnlyMessage);
}

TEST_F(EditorReadOnlyTest, StorageRefusesWritesWithAMessageNotACrash) {
  zrsimprp::GeoPackageProject::OpenOptions options;
  options.read_only = true;
  auto project = zrsimprp::GeoPackageProject::Open(Sample(), options);
  EXPECT_TRUE(project->IsReadOnly());
  try {
    project->SaveSimulationDefinition("Sample simulation", "Engine=SIM;");
    FAIL() << "a read-only project took a write";
  } catch (const zrsimprp::RuntimeError& error) {
    EXPECT_NE(error.description.find("is open read-only, so it cannot be changed"), std::string::npos)
        << error.description;
  }
  EXPECT_FALSE(zrsimprp::GeoPackageProject::Open(Sample())->IsReadOnly());
}

TEST_F(EditorReadOnlyTest, SaveAsCopiesTheProjectAndSavesTheEditsIntoTheCopy) {
  const std::string before = FileBytes(Sample());
  const std::string copy = Folder() + "/copy.gpkg";
  OpenWindow(true);
  window_->show();
  TypeReps("77");
  window_->SetPathSink([copy] { return copy; });
  QTest::mouseClick(window_->SaveAsButton(), Qt::LeftButton);
  EXPECT_TRUE(shown_.empty());
  EXPECT_NE(
      zrsimprp::GeoPackageProject::Open(copy)->SimulationDefinition("Sample simulation").find("Reps=77;"),
      std::string::npos);
  EXPECT_FALSE(window_->IsModified());
  EXPECT_TRUE(window_->windowTitle().contains(QString::fromStdString(copy)));
  EXPECT_FALSE(window_->windowTitle().contains(QStringLiteral("read-only")));
  EXPECT_TRUE(window_->OkButton()->isVisible());
  CloseWindow();
  EXPECT_TRUE(FileBytes(Sample()) == before);
}

TEST_F(EditorReadOnlyTest, TypingAValueMarksTheReadOnlyWindowModified) {
  OpenWindow(true);
  const QString title = window_->windowTitle();
  EXPECT_TRUE(title.contains(QStringLiteral(" (read-only)[*]"))) << title.toStdString();
  EXPECT_FALSE(window_->isWindowModified());
  TypeReps("80");
  EXPECT_TRUE(window_->IsModified());  // runs the check the typing scheduled
  EXPECT_TRUE(window_->isWindowModified());
}

TEST_F(EditorReadOnlyTest, ClosingWithEditsOffersSaveAs) {
  OpenWindow(true);
  window_->show();
  TypeReps("78");
  QTest::mouseClick(window_->CancelButton(), Qt::LeftButton);
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_EQ(asked_[0].choices.front(), EditorWindow::Choice::kSaveAs);
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(EditorReadOnlyTest, SaveAsOverTheOpenProjectIsRefused) {
  OpenWindow(true);
  TypeReps("79");
  window_->SetPathSink([this] { return Sample(); });
  QTest::mouseClick(window_->SaveAsButton(), Qt::LeftButton);
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].text,
            "Save As needs a new file name, not the project file that is open. Nothing was saved.");
}

}  // namespace

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <map>

#include "EditorFixture.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/GeoPackageValidator.h"
#include "zrsim-editor/EditMenu.h"
#include "zrsim-editor/EditorSession.h"
#include "zrsim-editor/ImportLayerDialog.h"
#include "zrsim-editor/NewDesignDialog.h"
#include "zrsim-editor/NewSurveyDialog.h"
#include "zrsim-editor/PersonalSettings.h"
#include "zrsim-editor/RecentProjects.h"
#include "zrsim-editor/SimulationsPanel.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/qt/AccessibleText.h"

namespace {

using zrsim_editor::EditorSession;
using zrsim_editor::RecentProjects;
using Choice = zrsim_editor::EditorWindow::Choice;

class EditorSessionTest : public EditorFixture {
 protected:
  void SetUp() override {
    EditorFixture::SetUp();
    session_ = std::make_unique<EditorSession>();
    session_->SetMessageSink([this](const std::string& text, const std::string&) { told_.push_back(text); });
    session_->SetQuestionSink([this](const std::string& text, const std::vector<Choice>&) {
      questions_.push_back(text);
      if (answers_.empty()) return Choice::kGoBack;
      const Choice answer = answers_.front();
      answers_.pop_front();
      return answer;
    });
    session_->SetNameSink([this](const std::string&, const std::string& suggestion) {
      return names_.empty() ? suggestion : names_.front();
    });
  }
  void TearDown() override {
    session_.reset();
    EditorFixture::TearDown();
  }

  // The form takes the session's sinks when it is made: open the same simulation again after setting one.
  void ShowAgainWithSinks() {
    session_->ShowDocument(zrsim_editor::EditorDocument::Open(session_->Document()->Project()->Path(),
                                                              session_->Document()->SimulationName()));
  }

  zrsimprp::GeoPackageProject& Project() { return *session_->Document()->Project(); }

  void TypeRepsInSession(const QString& text) {
    auto& properties = session_->Window()->Properties();
    properties.ShowOuterTab(0);
    const QString name =
        zrsimprp::AccessibleText::FromCaption(properties.Control().pagSimulation.labReps.Caption());
    for (QLineEdit* edit : session_->Window()->findChildren<QLineEdit*>()) {
      if (edit->accessibleName() != name) continue;
      edit->selectAll();
      QTest::keyClicks(edit, text);
    }
    properties.RefreshNow();
  }

  void ClickSimulation(const QString& name) {
    QListWidget* list = session_->Simulations().List();
    const auto items = list->findItems(name, Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(items[0]).center());
  }

  std::unique_ptr<EditorSession> session_;
  std::vector<std::string> told_;
  std::vector<std::string> questions_;
  std::deque<Choice> answers_;
  std::vector<std::string> names_;
};

TEST_F(EditorSessionTest, OpensAProjectListsItsSimulationsAndRemembersIt) {
  ASSERT_TRUE(session_->OpenProject(Sample()));
  EXPECT_EQ(session_->Simulations().Names(), std::vector<std::string>{"Sample simulation"});
  EXPECT_EQ(session_->Simulations().List()->currentItem()->text(), QStringLiteral("Sample simulation"));
  EXPECT_EQ(RecentProjects::List().front(), std::filesystem::absolute(Sample()).string());
  EXPECT_EQ(session_->RecentMenu()->actions().size(), 1);
  EXPECT_EQ(session_->OpenAction()->shortcut(), QKeySequence(QKeySequence::Open));
}

TEST_F(EditorSessionTest, ClickingAnotherSimulationAsksAboutUnsavedChangesFirst) {
  zrsimprp::GeoPackageProject::Open(Sample())->CopySimulation("Sample simulation", "Second");
  ASSERT_TRUE(session_->OpenProject(Sample()));
  session_->show();
  TypeRepsInSession("77");
  ClickSimulation("Second");
  ASSERT_EQ(questions_.size(), 1u);
  EXPECT_EQ(questions_[0], EditorSession::kSwitchQuestion);
  EXPECT_EQ(session_->Document()->SimulationName(), "Sample simulation");  // went back
  EXPECT_EQ(session_->Simulations().List()->currentItem()->text(), QStringLiteral("Sample simulation"));
  answers_ = {Choice::kSave};
  ClickSimulation("Second");
  EXPECT_EQ(session_->Document()->SimulationName(), "Second");
  EXPECT_NE(StoredDefinition().find("Reps=77;"), std::string::npos);
  // Without edits, no question.
  ClickSimulation("Sample simulation");
  EXPECT_EQ(questions_.size(), 2u);
  EXPECT_EQ(session_->Document()->SimulationName(), "Sample simulation");
}

TEST_F(EditorSessionTest, EscapeInTheSimulationsListCancelsAsInTheForm) {
  ASSERT_TRUE(session_->OpenProject(Sample()));
  session_->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(session_.get()));
  TypeRepsInSession("77");
  QListWidget* list = session_->Simulations().List();
  list->setFocus();
  QTest::keyClick(list, Qt::Key_Escape);
  ASSERT_EQ(questions_.size(), 1u);  // and the answer was to go back
  EXPECT_TRUE(session_->isVisible());
  answers_ = {Choice::kDiscard};
  QTest::keyClick(list, Qt::Key_Escape);
  EXPECT_EQ(questions_.size(), 2u);
  EXPECT_FALSE(session_->isVisible());
  EXPECT_EQ(StoredDefinition().find("Reps=77;"), std::string::npos);
}

TEST_F(EditorSessionTest, CtrlSValidatesAndSavesAsApplyDoes) {
  ASSERT_TRUE(session_->OpenProject(Sample()));
  session_->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(session_.get()));
  EXPECT_EQ(session_->SaveAction()->shortcut(), QKeySequence(QKeySequence::Save));
  TypeRepsInSession("61");
  QTest::qWait(300);  // the form compares the definition once typing settles
  EXPECT_TRUE(session_->isWindowModified());
  QTest::keyClick(session_.get(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_NE(StoredDefinition().find("Reps=61;"), std::string::npos);
  EXPECT_FALSE(session_->Window()->IsModified());
  EXPECT_FALSE(session_->isWindowModified());
  // A value the page refuses is not saved.
  TypeRepsInSession("0");
  const std::string before = StoredDefinition();
  session_->SaveAction()->trigger();
  EXPECT_EQ(StoredDefinition(), before);
  EXPECT_FALSE(told_.empty());
}

TEST_F(EditorSessionTest, OpenAndOpenRecentOpenAnotherProjectAndSaveAsOpensTheCopy) {
  const std::string other = Folder() + "/other.gpkg";
  ASSERT_TRUE(session_->NewProject(other, false));
  session_->SetOpenPathSink([this] { return Sample(); });
  session_->OpenWithDialog();
  EXPECT_EQ(session_->Document()->Project()->Path(), Sample());
  ASSERT_EQ(session_->RecentMenu()->actions().size(), 2);
  EXPECT_EQ(session_->RecentMenu()->actions()[1]->text(),
            QString::fromStdString(std::filesystem::absolute(other).string()));
  session_->RecentMenu()->actions()[1]->trigger();
  EXPECT_EQ(session_->Document()->SimulationName(), EditorSession::kFirstSimulation);
  const std::string copy = Folder() + "/copy.gpkg";
  session_->SetSavePathSink([&] { return copy; });
  ShowAgainWithSinks();
  TypeRepsInSession("12");
  ASSERT_TRUE(session_->SaveAs());
  EXPECT_EQ(session_->Document()->Project()->Path(), copy);
  EXPECT_EQ(RecentProjects::List().front(), std::filesystem::absolute(copy).string());
  EXPECT_NE(zrsimprp::GeoPackageProject::Open(copy)
                ->SimulationDefinition(EditorSession::kFirstSimulation)
                .find("Reps=12;"),
            std::string::npos);
}

TEST_F(EditorSessionTest, NewDuplicateRenameAndDeleteSimulations) {
  ASSERT_TRUE(session_->OpenProject(Sample()));
  names_ = {"Fresh"};
  ASSERT_TRUE(session_->NewSimulation());
  EXPECT_EQ(session_->Document()->SimulationName(), "Fresh");
  EXPECT_EQ(StoredDefinition("Fresh"),
            zrsimprp::VariantToText(Project().EngineDefaults()->DefaultDefinition("SIM")));
  names_ = {"Fresh copy"};
  ASSERT_TRUE(session_->DuplicateSimulation());
  EXPECT_EQ(StoredDefinition("Fresh copy"), StoredDefinition("Fresh"));
  names_ = {"Renamed"};
  ASSERT_TRUE(session_->RenameSimulation());
  EXPECT_EQ(session_->Document()->SimulationName(), "Renamed");
  EXPECT_EQ(session_->Simulations().Names(),
            (std::vector<std::string>{"Sample simulation", "Renamed", "Fresh copy"}));
  // A name in use is refused with the library's sentence.
  names_ = {"SAMPLE simulation"};
  EXPECT_FALSE(session_->DuplicateSimulation());
  EXPECT_EQ(told_.back(), "The project already has a simulation named 'Sample simulation'.");
  // Delete asks; going back keeps it.
  EXPECT_FALSE(session_->DeleteSimulation());
  EXPECT_EQ(session_->Simulations().Names().size(), 3u);
  answers_ = {Choice::kDelete};
  ASSERT_TRUE(session_->DeleteSimulation());
  EXPECT_EQ(session_->Simulations().Names(), (std::vector<std::string>{"Sample simulation", "Fresh copy"}));
  EXPECT_EQ(session_->Document()->SimulationName(), "Sample simulation");
}

TEST_F(EditorSessionTest, ANewEmptyProjectOpensWithOneDefaultSimulationAndNeverReplacesAFile) {
  const std::string path = Folder() + "/mine.gpkg";
  ASSERT_TRUE(session_->NewProject(path, false));
  EXPECT_EQ(session_->Simulations().Names(), std::vector<std::string>{EditorSession::kFirstSimulation});
  EXPECT_TRUE(Project().Layers().empty());
  EXPECT_TRUE(Project().Designs().empty());
  EXPECT_FALSE(session_->NewProject(path, true));
  EXPECT_EQ(told_.back(), "'" + path + "' already exists; a new project is never written over a file.");
  const std::string copy = Folder() + "/copy.gpkg";
  ASSERT_TRUE(session_->NewProject(copy, true));
  EXPECT_EQ(session_->Document()->SimulationName(), "Sample simulation");
}

TEST_F(EditorSessionTest, StartingWithoutAProjectOpensTheLastOneOrAsks) {
  int asked = 0;
  session_->SetStartSink([&] {
    ++asked;
    return EditorSession::Start::kSample;
  });
  ASSERT_TRUE(session_->StartWithoutProject(Sample()));
  EXPECT_EQ(asked, 1);
  const std::string other = Folder() + "/other.gpkg";
  ASSERT_TRUE(session_->NewProject(other, false));
  auto next = std::make_unique<EditorSession>();
  next->SetStartSink([&] {
    ++asked;
    return EditorSession::Start::kQuit;
  });
  ASSERT_TRUE(next->StartWithoutProject(Sample()));
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(next->Document()->Project()->Path(), std::filesystem::absolute(other).string());
  next.reset();
  std::filesystem::remove(other);
  QSettings().remove("recentProjects");
  auto last = std::make_unique<EditorSession>();
  last->SetStartSink([&] {
    ++asked;
    return EditorSession::Start::kQuit;
  });
  EXPECT_FALSE(last->StartWithoutProject(Sample()));
  EXPECT_EQ(asked, 2);
}

TEST_F(EditorSessionTest, NewDesignAndSurveyUseTheCommandLinesChecks) {
  ASSERT_TRUE(session_->OpenProject(Sample()));
  int surveys = 0;
  session_->SetDialogSink([&](QDialog& dialog) {
    if (auto* design = qobject_cast<zrsim_editor::NewDesignDialog*>(&dialog)) {
      EXPECT_EQ(design->IdBox()->value(), 3);
      design->NameEdit()->setText(QStringLiteral("Wide"));
      design->LayerBox()->setCurrentIndex(design->LayerBox()->findText(QStringLiteral("Strata")));
      design->TypeBox()->setCurrentIndex(1);
      design->SpacingEdit()->setText(QStringLiteral("800"));
      design->TruncationEdit()->setText(QStringLiteral("150"));
    }
    if (auto* survey = qobject_cast<zrsim_editor::NewSurveyDialog*>(&dialog)) {
      EXPECT_EQ(survey->IdBox()->value(), 5 + surveys);
      survey->IdBox()->setValue(5);
      ++surveys;
      survey->NameEdit()->setText(QStringLiteral("Wide survey"));
      survey->DesignBox()->setCurrentIndex(survey->DesignBox()->findData(3));
    }
    return true;
  });
  ASSERT_TRUE(session_->NewDesign());
  ASSERT_TRUE(session_->NewSurvey());
  const auto designs = Project().Designs();
  ASSERT_EQ(designs.size(), 3u);
  EXPECT_EQ(designs[2].definition_text,
            "Engine=DES;\r\nType=Zigzag /Spacing=800;\r\n\"STRATUM LAYER\"=Strata;\r\nTruncation=150;\r\n");
  EXPECT_EQ(Project().Surveys().back().design_id, 3);
  EXPECT_EQ(told_.back(), "Added the survey 5 Wide survey.");
  // The same identifier again is refused with the library's sentence.
  EXPECT_FALSE(session_->NewSurvey());
  EXPECT_EQ(told_.back(), "The project already has a survey with the identifier 5.");
}

TEST_F(EditorSessionTest, ImportLayerMakesStrataAndTheirRegionOrTellsTheRefusal) {
  if (!geopackage_validator::HasOgr2ogr()) GTEST_SKIP() << "ogr2ogr (gdal-bin) is not installed";
  const std::string json = Folder() + "/plots.geojson";
  {
    std::ofstream file(json);
    file
        << "{\"type\":\"FeatureCollection\",\"features\":["
           "{\"type\":\"Feature\",\"properties\":{\"PLOT\":1,\"NAME\":\"A\"},\"geometry\":{\"type\":\"Polygon\","
           "\"coordinates\":[[[10.0,50.0],[10.01,50.0],[10.01,50.01],[10.0,50.01],[10.0,50.0]]]}},"
           "{\"type\":\"Feature\",\"properties\":{\"PLOT\":2,\"NAME\":\"B\"},\"geometry\":{\"type\":\"Polygon\","
           "\"coordinates\":[[[10.01,50.0],[10.02,50.0],[10.02,50.01],[10.01,50.01],[10.01,50.0]]]}}]}";
  }
  const std::string shapefile = Folder() + "/plots.shp";
  ASSERT_EQ(geopackage_validator::RunShell("ogr2ogr -f 'ESRI Shapefile' " + shapefile + " " + json).status,
            0);
  const std::string path = Folder() + "/mine.gpkg";
  ASSERT_TRUE(session_->NewProject(path, false));

  session_->SetDialogSink([&](QDialog& dialog) {
    auto* import = qobject_cast<zrsim_editor::ImportLayerDialog*>(&dialog);
    EXPECT_NE(import, nullptr);
    import->SetSource(QString::fromStdString(shapefile));
    EXPECT_EQ(import->LayerBox()->currentText(), QStringLiteral("plots"));
    import->IdFieldBox()->setCurrentIndex(import->IdFieldBox()->findText(QStringLiteral("PLOT")));
    import->LabelFieldBox()->setCurrentIndex(import->LabelFieldBox()->findText(QStringLiteral("NAME")));
    import->NameEdit()->setText(QStringLiteral("Plots"));
    import->KindBox()->setCurrentIndex(1);
    {
      import->MakeRegionButton()->setChecked(true);
      import->RegionEdit()->setText(QStringLiteral("Area"));
    }
    import->ReprojectBox()->setCurrentIndex(1);
    return true;
  });
  ASSERT_TRUE(session_->ImportLayer());
  EXPECT_EQ(told_.back(), "Imported 2 features as the layer 'Plots' in EPSG:32632.");
  const auto layers = Project().Layers();
  ASSERT_EQ(layers.size(), 2u);
  EXPECT_EQ(layers[1].parent, "Area");
  // Again: the name is taken, and the refusal is the library's sentence.
  EXPECT_FALSE(session_->ImportLayer());
  EXPECT_EQ(told_.back(), "The project already has a layer named 'Area'.");
  EXPECT_EQ(Project().Layers().size(), 2u);
}

QStringList MenuTitles(const QMenuBar& bar) {
  QStringList titles;
  for (QAction* action : bar.actions()) titles << action->text();
  return titles;
}

TEST_F(EditorSessionTest, TheFormsEditMenuSitsInTheSessionsMenuBarBetweenFileAndProject) {
  ASSERT_TRUE(session_->OpenProject(Sample()));
  EXPECT_EQ(MenuTitles(*session_->menuBar()),
            (QStringList{QStringLiteral("&File"), QStringLiteral("&Edit"), QStringLiteral("&Project")}));
  auto* own_bar = qobject_cast<QMenuBar*>(session_->Window()->layout()->menuBar());
  ASSERT_NE(own_bar, nullptr);
  EXPECT_TRUE(own_bar->isHidden());
  // Another simulation's form brings its own Edit menu; the one of the form it replaces goes with it.
  ShowAgainWithSinks();
  EXPECT_EQ(MenuTitles(*session_->menuBar()),
            (QStringList{QStringLiteral("&File"), QStringLiteral("&Edit"), QStringLiteral("&Project")}));
  EXPECT_EQ(session_->menuBar()->actions()[1]->menu(), session_->Window()->Edit()->Menu());
}

}  // namespace

namespace {

TEST_F(EditorSessionTest, ARenamedSimulationKeepsItsRememberedTab) {
  ASSERT_TRUE(session_->OpenProject(Sample()));
  const std::string path = Project().Path();
  zrsim_editor::PersonalSettings(path, "Sample simulation")
      .WriteSetting(0, 2, "SIMProperties", "CurrentTab", zrsimprp::Variant(int16_t{3}));
  names_ = {"Renamed"};
  ASSERT_TRUE(session_->RenameSimulation());
  const zrsimprp::Variant missing(int16_t{-1});
  EXPECT_EQ(zrsim_editor::PersonalSettings(path, "Renamed")
                .ReadSetting(0, 2, "SIMProperties", "CurrentTab", missing),
            zrsimprp::Variant(int16_t{3}));
  EXPECT_EQ(zrsim_editor::PersonalSettings(path, "Sample simulation")
                .ReadSetting(0, 2, "SIMProperties", "CurrentTab", missing),
            missing);
}

// The letters a dialog's captions underline, with the captions that use each more than once.
std::vector<std::string> RepeatedMnemonics(const QWidget& dialog) {
  std::map<QChar, QStringList> users;
  QStringList captions;
  for (const QLabel* label : dialog.findChildren<QLabel*>()) captions << label->text();
  for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) captions << button->text();
  for (const QString& caption : captions) {
    const qsizetype at = caption.indexOf(QLatin1Char('&'));
    if (at >= 0 && at + 1 < caption.size() && caption[at + 1] != QLatin1Char('&')) {
      users[caption[at + 1].toLower()] << caption;
    }
  }
  std::vector<std::string> repeated;
  for (const auto& [letter, with] : users) {
    if (with.size() > 1) repeated.push_back(with.join(QStringLiteral(" / ")).toStdString());
  }
  return repeated;
}

TEST_F(EditorSessionTest, EachDialogUnderlinesALetterOnlyOnce) {
  const zrsim_editor::ImportLayerDialog import({"Study region", "Strata"});
  EXPECT_EQ(RepeatedMnemonics(import), std::vector<std::string>());
  const zrsim_editor::NewDesignDialog design({"Strata"}, 3);
  EXPECT_EQ(RepeatedMnemonics(design), std::vector<std::string>());
  const zrsim_editor::NewSurveyDialog survey({{1, "Lines"}}, 5);
  EXPECT_EQ(RepeatedMnemonics(survey), std::vector<std::string>());
}

}  // namespace

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "AnalysesTestProject.h"
#include "zrsimprp/host/ForwardingProjectDatabase.h"

namespace zrsimprp {
namespace {

using Strings = std::vector<std::string>;

Color Window() { return Color::System(SystemColorRole::kWindowBackground); }
Color ButtonFace() { return Color::System(SystemColorRole::kButtonFace); }

TEST_F(AnalysesPageTest, ControlsCarryTheirCaptions) {
  EXPECT_EQ(page_.lalAnalyses.Caption(), "Analyses");
  EXPECT_EQ(page_.chkAnalyse.Caption(), "Analyse simulated data");
  EXPECT_EQ(page_.labDataFilter.Caption(), "Data Filter:");
  EXPECT_EQ(page_.cboDataFilter.ListStyle(), ComboBox::Style::kListOnly);
  EXPECT_EQ(page_.labModelDEf.Caption(), "Model Definition:");
  EXPECT_EQ(page_.cboModelDef.ListStyle(), ComboBox::Style::kListOnly);
  EXPECT_EQ(page_.frmModel.Caption(), "Model definition");
  EXPECT_EQ(page_.labAnalysisType.Caption(), "Type of model: ");
  EXPECT_EQ(page_.cboAnalysisType.Text(), "Model Type");
  EXPECT_EQ(page_.cmdAddModel.Caption(), "+");
  EXPECT_EQ(page_.cmdSubModel.Caption(), "-");
  EXPECT_EQ(page_.labCriteria.Caption(), "Select among multiple model using:");
  EXPECT_EQ(page_.cboCriteria.ListStyle(), ComboBox::Style::kListOnly);
}

TEST_F(AnalysesPageTest, CreationChecksAnalyseAndHidesTheCriteria) {
  EXPECT_EQ(page_.chkAnalyse.Value(), CheckBox::kChecked);
  EXPECT_EQ(page_.Analyse(), "True");
  EXPECT_TRUE(page_.cboModelDef.Items().empty());
  EXPECT_EQ(page_.cboCriteria.Items(), (Strings{"AIC", "AICc", "BIC"}));
  EXPECT_EQ(page_.cboCriteria.ListIndex(), 0);
  EXPECT_EQ(page_.Criteria(), "AIC");
  EXPECT_FALSE(page_.cboCriteria.Enabled());
  EXPECT_FALSE(page_.cboCriteria.Visible());
  EXPECT_TRUE(page_.cboDataFilter.Enabled());
  EXPECT_TRUE(page_.cmdAddModel.Enabled());
}

TEST_F(AnalysesPageTest, CreationGivesTheModelGridOneLabelledRow) {
  EXPECT_TRUE(page_.flxModels.Enabled());
  EXPECT_EQ(page_.flxModels.Rows(), 1);
  EXPECT_EQ(page_.flxModels.Cols(), 2);
  EXPECT_EQ(page_.flxModels.FixedRows(), 0);
  EXPECT_EQ(page_.flxModels.FixedCols(), 1);
  EXPECT_EQ(page_.flxModels.TextMatrix(0, 0), "Analysis 1");
}

TEST_F(AnalysesPageTest, InitializeListsDataFiltersAsIdentifierBlankName) {
  InitializeStandard();
  EXPECT_EQ(page_.cboDataFilter.Items(), (Strings{"3 All data", "4 Truncated"}));
  EXPECT_EQ(page_.cboDataFilter.ListIndex(), 0);
  EXPECT_EQ(page_.DataFilter(), "3");
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(AnalysesPageTest, NoDataFiltersGiveZero) {
  db_->AddModelDefinition(24, "Averaged", "MA", "");
  UseProject();
  page_.Initialize();
  EXPECT_TRUE(page_.cboDataFilter.Items().empty());
  EXPECT_EQ(page_.cboDataFilter.Text(), "");
  EXPECT_EQ(page_.DataFilter(), "0");
}

TEST_F(AnalysesPageTest, NoModelDefinitionsGiveZero) {
  UseProject();
  page_.Initialize();
  EXPECT_TRUE(page_.cboModelDef.Items().empty());
  EXPECT_EQ(page_.ModelDef(), "0");
}

TEST_F(AnalysesPageTest, MrdsDistanceSamplingAndModelAveragingAreOffered) {
  InitializeStandard();
  EXPECT_EQ(page_.cboModelDef.Items(), (Strings{"21 Half-normal", "24 Averaged"}));
  EXPECT_EQ(page_.ModelDef(), "21");
}

TEST_F(AnalysesPageTest, MrdsMethodsOtherThanDsAreLeftOut) {
  db_->AddModelDefinition(1, "io", "MRDS", "Method=io;");
  db_->AddModelDefinition(2, "trial", "MRDS", "Method=trial;");
  db_->AddModelDefinition(3, "no method", "MRDS", "Engine=MRDS;");
  db_->AddModelDefinition(4, "empty", "MRDS", "");
  db_->AddModelDefinition(5, "ds later", "MRDS", "Key=hn; Method=DS /Adjust=cos;");
  db_->AddModelDefinition(6, "lower engine", "mrds", "method=Ds;");
  UseProject();
  page_.Initialize();
  EXPECT_EQ(page_.cboModelDef.Items(), (Strings{"5 ds later", "6 lower engine"}));
}

TEST_F(AnalysesPageTest, DsmAndOtherEnginesAreNeverOffered) {
  db_->AddModelDefinition(1, "dsm", "DSM", "Method=ds;");
  db_->AddModelDefinition(2, "cds", "CDS", "Method=ds;");
  db_->AddModelDefinition(3, "blank", "", "Method=ds;");
  db_->AddModelDefinition(4, "averaged", "ma", "Method=io;");
  UseProject();
  page_.Initialize();
  EXPECT_EQ(page_.cboModelDef.Items(), (Strings{"4 averaged"}));
}

TEST_F(AnalysesPageTest, InitializeChecksAndLocksAnalyse) {
  AddStandardProject();
  UseProject();
  page_.SetAnalyse("False");
  page_.Initialize();
  EXPECT_EQ(page_.Analyse(), "True");
  EXPECT_FALSE(page_.chkAnalyse.Enabled());
  EXPECT_FALSE(page_.chkAnalyse.UserClick());
  EXPECT_TRUE(page_.cboDataFilter.Enabled());
  EXPECT_EQ(page_.cboDataFilter.BackColor(), Window());
}

TEST_F(AnalysesPageTest, InitializeHidesTheSeveralModelsControls) {
  InitializeStandard();
  EXPECT_FALSE(page_.cboCriteria.Enabled());
  EXPECT_FALSE(page_.cboCriteria.Visible());
  EXPECT_FALSE(page_.labCriteria.Visible());
  EXPECT_FALSE(page_.cmdAddModel.Enabled());
  EXPECT_FALSE(page_.cmdAddModel.Visible());
  EXPECT_FALSE(page_.cmdSubModel.Visible());
  EXPECT_EQ(page_.flxModels.Rows(), 1);
  EXPECT_EQ(page_.flxModels.Cols(), 2);
}

TEST_F(AnalysesPageTest, InitializeRebuildsTheLists) {
  InitializeStandard();
  db_->AddDataFilter(9, "Late filter");
  page_.Initialize();
  EXPECT_EQ(page_.cboDataFilter.Items(), (Strings{"3 All data", "4 Truncated", "9 Late filter"}));
  EXPECT_EQ(page_.cboModelDef.Items(), (Strings{"21 Half-normal", "24 Averaged"}));
}

TEST_F(AnalysesPageTest, InitializeWithoutAProjectReportsInititalize) {
  page_.Initialize();
  const std::string report = OnlyReport();
  EXPECT_NE(report.find("(Error raised from: ZrSIMPrp.PagAnalyses.Inititalize)"), std::string::npos)
      << report;
}

TEST_F(AnalysesPageTest, FailingModelListIsReportedAndKeepsTheDataFilters) {
  AddStandardProject();
  db_->FailOn("ModelDefinitions");
  UseProject();
  page_.Initialize();
  const std::string report = OnlyReport();
  EXPECT_NE(report.find("(Error raised from: ZrSIMPrp.PagAnalyses.Inititalize)"), std::string::npos)
      << report;
  EXPECT_NE(report.find("(Error source: ProjectDatabase)"), std::string::npos) << report;
  EXPECT_EQ(page_.cboDataFilter.Items(), (Strings{"3 All data", "4 Truncated"}));
  EXPECT_TRUE(page_.cboModelDef.Items().empty());
  // The routine stopped before it locked the check box.
  EXPECT_TRUE(page_.chkAnalyse.Enabled());
}

// A project whose data-filter or model-definition collection ends in a record object that is not there.
class ProjectWithMissingRecord : public ForwardingProjectDatabase {
 public:
  enum class Missing { kDataFilter, kModelDefinition };
  ProjectWithMissingRecord(std::shared_ptr<ProjectDatabase> project, Missing missing)
      : ForwardingProjectDatabase(std::move(project)), missing_(missing) {}
  std::shared_ptr<ProjectSettings> Settings() override { return Wrapped().Settings(); }
  std::vector<std::shared_ptr<DataFilter>> DataFilters() override {
    auto filters = ForwardingProjectDatabase::DataFilters();
    if (missing_ == Missing::kDataFilter) filters.push_back(nullptr);
    return filters;
  }
  std::vector<std::shared_ptr<ModelDefinition>> ModelDefinitions() override {
    auto models = ForwardingProjectDatabase::ModelDefinitions();
    if (missing_ == Missing::kModelDefinition) models.push_back(nullptr);
    return models;
  }

 private:
  Missing missing_;
};

TEST_F(AnalysesPageTest, MissingDataFilterObjectIsReportedAsObjectNotSet) {
  const std::string report = ReportOfInitializeOn(
      std::make_shared<ProjectWithMissingRecord>(db_, ProjectWithMissingRecord::Missing::kDataFilter));
  EXPECT_NE(report.find("\r\n\r\nObject variable or With block variable not set (no data filter)\r\n"),
            std::string::npos)
      << report;
  EXPECT_NE(report.find("(Error source: ZrSIMPrp)\r\n(Error number: 91)"), std::string::npos) << report;
  // The walk stopped at the missing filter, before the list was shown.
  EXPECT_TRUE(page_.cboDataFilter.Items().empty());
  EXPECT_TRUE(page_.chkAnalyse.Enabled());
}

TEST_F(AnalysesPageTest, MissingModelDefinitionObjectIsReportedAfterTheDataFilters) {
  const std::string report = ReportOfInitializeOn(
      std::make_shared<ProjectWithMissingRecord>(db_, ProjectWithMissingRecord::Missing::kModelDefinition));
  EXPECT_NE(report.find("\r\n\r\nObject variable or With block variable not set (no model definition)\r\n"),
            std::string::npos)
      << report;
  EXPECT_NE(report.find("(Error number: 91)"), std::string::npos) << report;
  EXPECT_EQ(page_.cboDataFilter.Items(), (Strings{"3 All data", "4 Truncated"}));
  EXPECT_TRUE(page_.cboModelDef.Items().empty());
}

TEST_F(AnalysesPageTest, AnalyseFalseUnchecksTheBoxAndDisablesTheLists) {
  InitializeStandard();
  page_.SetAnalyse("False");
  EXPECT_EQ(page_.Analyse(), "False");
  EXPECT_EQ(page_.chkAnalyse.Value(), CheckBox::kUnchecked);
  EXPECT_FALSE(page_.cboDataFilter.Enabled());
  EXPECT_EQ(page_.cboDataFilter.BackColor(), ButtonFace());
  EXPECT_FALSE(page_.cboAnalysisType.Enabled());
  EXPECT_EQ(page_.cboAnalysisType.BackColor(), ButtonFace());
  EXPECT_EQ(page_.cboCriteria.BackColor(), ButtonFace());
  EXPECT_FALSE(page_.flxModels.Enabled());
  EXPECT_FALSE(page_.cmdAddModel.Enabled());
}

TEST_F(AnalysesPageTest, AnalyseTrueInAnyCaseChecksTheBoxAndEnablesTheLists) {
  InitializeStandard();
  page_.SetAnalyse("false");
  page_.SetAnalyse("TRUE");
  EXPECT_EQ(page_.Analyse(), "True");
  EXPECT_TRUE(page_.cboDataFilter.Enabled());
  EXPECT_EQ(page_.cboDataFilter.BackColor(), Window());
  EXPECT_TRUE(page_.cboAnalysisType.Enabled());
  EXPECT_TRUE(page_.cboCriteria.Enabled());
  EXPECT_EQ(page_.cboCriteria.BackColor(), Window());
  EXPECT_TRUE(page_.flxModels.Enabled());
  EXPECT_TRUE(page_.cmdAddModel.Enabled());
}

TEST_F(AnalysesPageTest, AnalyseOtherWordsChangeNothing) {
  page_.SetAnalyse("False");
  for (const char* word : {"Yes", "1", "", "Truely"}) {
    page_.SetAnalyse(word);
    EXPECT_EQ(page_.Analyse(), "False") << word;
  }
}

TEST_F(AnalysesPageTest, GrayedAnalyseReadsTrue) {
  page_.chkAnalyse.SetValue(CheckBox::kGrayed);
  EXPECT_EQ(page_.Analyse(), "True");
  EXPECT_FALSE(page_.cboDataFilter.Enabled());
}

TEST_F(AnalysesPageTest, DataFilterSelectsTheFilterWithThatIdentifier) {
  InitializeStandard();
  page_.SetDataFilter("4");
  EXPECT_EQ(page_.cboDataFilter.Text(), "4 Truncated");
  EXPECT_EQ(page_.DataFilter(), "4");
}

TEST_F(AnalysesPageTest, DataFilterZeroChangesNothing) {
  InitializeStandard();
  page_.SetDataFilter("4");
  page_.SetDataFilter("0");
  EXPECT_EQ(page_.DataFilter(), "4");
}

TEST_F(AnalysesPageTest, UnknownDataFilterSelectsTheFirstEntry) {
  InitializeStandard();
  page_.SetDataFilter("4");
  page_.SetDataFilter("99");
  EXPECT_EQ(page_.cboDataFilter.Text(), "3 All data");
  EXPECT_EQ(page_.DataFilter(), "3");
}

TEST_F(AnalysesPageTest, DataFilterOnAnEmptyListSelectsNothing) {
  UseProject();
  page_.Initialize();
  page_.SetDataFilter("3");
  EXPECT_EQ(page_.DataFilter(), "0");
}

TEST_F(AnalysesPageTest, DataFilterTakesTheLastEntryWithTheSameName) {
  db_->AddDataFilter(3, "Same");
  db_->AddDataFilter(3, "Same");
  UseProject();
  page_.Initialize();
  EXPECT_EQ(page_.DataFilter(), "3");
}

TEST_F(AnalysesPageTest, ModelDefSelectsTheDefinitionWithThatIdentifier) {
  InitializeStandard();
  page_.SetModelDef("24");
  EXPECT_EQ(page_.cboModelDef.Text(), "24 Averaged");
  EXPECT_EQ(page_.ModelDef(), "24");
  page_.SetModelDef("0");
  EXPECT_EQ(page_.ModelDef(), "24");
}

TEST_F(AnalysesPageTest, ModelDefThatWasLeftOutSelectsTheFirstEntry) {
  InitializeStandard();
  page_.SetModelDef("24");
  page_.SetModelDef("22");
  EXPECT_EQ(page_.cboModelDef.Text(), "21 Half-normal");
  EXPECT_EQ(page_.ModelDef(), "21");
}

TEST_F(AnalysesPageTest, CriteriaSelectsTheNamedItemWhateverItsCase) {
  page_.SetCriteria("BIC");
  EXPECT_EQ(page_.Criteria(), "BIC");
  page_.SetCriteria("aicc");
  EXPECT_EQ(page_.Criteria(), "AICc");
}

TEST_F(AnalysesPageTest, UnknownCriteriaWordSelectsAIC) {
  page_.SetCriteria("BIC");
  page_.SetCriteria("Likelihood");
  EXPECT_EQ(page_.Criteria(), "AIC");
  page_.SetCriteria("BIC");
  page_.SetCriteria("");
  EXPECT_EQ(page_.Criteria(), "AIC");
}

TEST_F(AnalysesPageTest, IsValidIsAlwaysTrueWithAnEmptyMessage) {
  InitializeStandard();
  page_.SetAnalyse("False");
  std::string message = "left over";
  EXPECT_TRUE(page_.IsValid(message));
  EXPECT_EQ(message, "");
  CModGlobal::Clear();
  page_.cboDataFilter.Clear();
  message = "again";
  EXPECT_TRUE(page_.IsValid(message));
  EXPECT_EQ(message, "");
  EXPECT_TRUE(platform_.Messages().empty());
}

TEST_F(AnalysesPageTest, IdentifierPropertiesAndCriteriaLetRaise382InDesignMode) {
  InitializeStandard();
  platform_.SetUserMode(false);
  EXPECT_EQ(ErrorNumberOf([&] { page_.DataFilter(); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { page_.SetDataFilter("4"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { page_.ModelDef(); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { page_.SetModelDef("24"); }), 382);
  EXPECT_EQ(ErrorNumberOf([&] { page_.SetCriteria("BIC"); }), 382);
  EXPECT_EQ(page_.cboDataFilter.Text(), "3 All data");
  EXPECT_EQ(page_.cboModelDef.Text(), "21 Half-normal");
  EXPECT_EQ(page_.Criteria(), "AIC");
}

TEST_F(AnalysesPageTest, AnalyseAndCriteriaGetWorkInDesignMode) {
  platform_.SetUserMode(false);
  EXPECT_EQ(ErrorNumberOf([&] { page_.Analyse(); }), 0);
  EXPECT_EQ(ErrorNumberOf([&] { page_.SetAnalyse("False"); }), 0);
  EXPECT_EQ(page_.Analyse(), "False");
  EXPECT_EQ(page_.Criteria(), "AIC");
}

TEST_F(AnalysesPageTest, AddModelAppendsALabelledRowAndEnablesTheChoice) {
  page_.cmdSubModel.SetEnabled(false);
  ASSERT_TRUE(page_.cmdAddModel.UserClick());
  ASSERT_EQ(page_.flxModels.Rows(), 2);
  EXPECT_EQ(page_.flxModels.TextMatrix(1, 0), "Analysis 2");
  EXPECT_EQ(page_.flxModels.CellAlignmentAt(1, 0), CellAlignment::kCenterCenter);
  EXPECT_EQ(page_.flxModels.CellAlignmentAt(1, 1), CellAlignment::kCenterCenter);
  EXPECT_EQ(page_.flxModels.CellBackColor(1, 0), page_.flxModels.BackColorFixed());
  EXPECT_EQ(page_.flxModels.CellBackColor(1, 1), page_.flxModels.BackColor());
  EXPECT_TRUE(page_.cmdSubModel.Enabled());
  EXPECT_TRUE(page_.cboCriteria.Enabled());
}

TEST_F(AnalysesPageTest, SubModelRemovesTheCursorRowWithoutRenumbering) {
  page_.cmdAddModel.UserClick();
  page_.cmdAddModel.UserClick();
  ASSERT_TRUE(page_.flxModels.UserSelectCell(1, 1));
  ASSERT_TRUE(page_.cmdSubModel.UserClick());
  ASSERT_EQ(page_.flxModels.Rows(), 2);
  EXPECT_EQ(page_.flxModels.TextMatrix(0, 0), "Analysis 1");
  EXPECT_EQ(page_.flxModels.TextMatrix(1, 0), "Analysis 3");
  EXPECT_TRUE(page_.cmdSubModel.Enabled());
  EXPECT_TRUE(page_.cboCriteria.Enabled());
}

TEST_F(AnalysesPageTest, SubModelDownToOneRowDisablesTheChoice) {
  page_.cmdAddModel.UserClick();
  ASSERT_TRUE(page_.flxModels.UserSelectCell(1, 1));
  ASSERT_TRUE(page_.cmdSubModel.UserClick());
  EXPECT_EQ(page_.flxModels.Rows(), 1);
  EXPECT_EQ(page_.flxModels.TextMatrix(0, 0), "Analysis 1");
  EXPECT_FALSE(page_.cmdSubModel.Enabled());
  EXPECT_FALSE(page_.cboCriteria.Enabled());
  EXPECT_FALSE(page_.cmdSubModel.UserClick());
  EXPECT_EQ(page_.flxModels.Rows(), 1);
}

TEST_F(AnalysesPageTest, SubModelOnOneRowRemovesNothing) {
  ASSERT_TRUE(page_.cmdSubModel.UserClick());
  EXPECT_EQ(page_.flxModels.Rows(), 1);
  EXPECT_FALSE(page_.cmdSubModel.Enabled());
}

}  // namespace
}  // namespace zrsimprp

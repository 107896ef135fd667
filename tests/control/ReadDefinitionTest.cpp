#include <string>

#include "ControlTestFixture.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsimprp {
namespace {

using ReadDefinition = ControlTest;

const std::string kRaisedFromRead = "(Error raised from: ZrSIMPrp.SIM.ReadDefinition)";

TEST_F(ReadDefinition, EmptyTextSetsNothing) {
  auto control = Open("");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagSimulation.Reps(), "1");
  EXPECT_EQ(control->pagDensity.Description(), "Uniform");
  EXPECT_EQ(control->pagDensity.NumHotspots(), 0);
  EXPECT_EQ(control->pagPopulation.ClusteredPop(), "False");
  EXPECT_FALSE(control->pagCovariates.CategoricalCov());
  EXPECT_FALSE(control->pagCovariates.ContinuousCovariate());
  EXPECT_EQ(control->pagDetectability.DetFunction(), "Half-Normal");
  EXPECT_EQ(control->pagMisc.Parallel(), "False");
}

TEST_F(ReadDefinition, UnknownKeysAndEngineArePassedOver) {
  auto control = Open("Engine=Other;\r\nNoSuchKey=1 /a=b;\r\nReps=42;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagSimulation.Reps(), "42");
}

TEST_F(ReadDefinition, KeysAndWordsMatchInAnyCase) {
  auto control = Open(
      "TRANSECTS=survey /objectid=1;\r\nstratalayer=Strata;\r\ndensity=uniform /densities=4,5,6 "
      "/gridspace=12;\r\nCLUSTERS=true /distribution=POISSON /param=3;\r\nparallelprocessing=TRUE /cores=2;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagSimulation.TransectObjectType(), "Survey");
  EXPECT_EQ(control->pagDensity.Description(), "Uniform");
  EXPECT_EQ(control->pagDensity.Densities(), "4,5,6");
  EXPECT_EQ(control->pagDensity.GridSpacing(), "12");
  EXPECT_EQ(control->pagPopulation.ClusteredPop(), "True");
  EXPECT_EQ(control->pagPopulation.ClusterDistribution(), "Poisson");
  EXPECT_EQ(control->pagPopulation.ClusterParams(), "3");
  EXPECT_EQ(control->pagMisc.Cores(), "2");
}

TEST_F(ReadDefinition, TransectsDesignSelectsTheDesign) {
  auto control = Open("Transects=Design /ObjectID=10;");
  EXPECT_EQ(control->pagSimulation.TransectObjectType(), "Design");
  EXPECT_EQ(control->pagSimulation.TransectObjectID(), "10");
}

TEST_F(ReadDefinition, TransectsOfAnotherTypeReadsNoField) {
  // The field slot is not looked at, so an entry without fields is read without error.
  auto control = Open("Transects=Other;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagSimulation.TransectObjectType(), "Survey");
}

TEST_F(ReadDefinition, StrataAreHandedOverRightAfterStrataLayer) {
  // Three densities fit only once the strata grid has been given the three strata.
  auto control = Open("StrataLayer=Strata;\r\nDensity=Uniform /Densities=1,2,3 /GridSpace=10;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagDensity.Densities(), "1,2,3");
}

TEST_F(ReadDefinition, SeveralHotspotsAddAsManyRows) {
  auto control = Open(
      "Hotspot=\"\" /X,Y,Sig,Amp=10,20,5,2;\r\nHotspot=\"\" /X,Y,Sig,Amp=30,40,6,3;\r\n"
      "Hotspot=\"\" /X,Y,Sig,Amp=1,2,3,4;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  ASSERT_EQ(control->pagDensity.NumHotspots(), 3);
  EXPECT_EQ(control->pagDensity.HotspotValues(1), "10,20,5,2");
  EXPECT_EQ(control->pagDensity.HotspotValues(2), "30,40,6,3");
  EXPECT_EQ(control->pagDensity.HotspotValues(3), "1,2,3,4");
}

TEST_F(ReadDefinition, LastCategoricalCovWins) {
  auto control = Open(
      "CategoricalCov=sex /categories=m,f /prob=0.5,0.5;\r\nCategoricalCov=age /categories=young "
      "/prob=1;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_TRUE(control->pagCovariates.CategoricalCov());
  EXPECT_EQ(control->pagCovariates.CategoricalName(), "age");
}

TEST_F(ReadDefinition, LastContinuousCovWins) {
  auto control = Open(
      "ContinuousCov=size /distribution=Normal /param=3,1;\r\nContinuousCov=height "
      "/distribution=Log-Normal /param=0,2;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_TRUE(control->pagCovariates.ContinuousCovariate());
  EXPECT_EQ(control->pagCovariates.ContinuousName(), "height");
  EXPECT_EQ(control->pagCovariates.ContinuousDist(), "Log-Normal");
  EXPECT_EQ(control->pagCovariates.ContinuousParams(), "0,2");
}

TEST_F(ReadDefinition, PoissonPopSizeWithoutFieldsReadsTheEmptySlot) {
  auto control = Open("PopSize=\"Poisson N\";\r\nReps=3;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagPopulation.PopulationSize(), "Poisson N");
  EXPECT_EQ(control->pagSimulation.Reps(), "3");
}

TEST_F(ReadDefinition, ClustersWithPmfReadSizesAndProbabilities) {
  auto control = Open("Clusters=True /Distribution=pmf /size=1,2,3 /prob=0.5,0.3,0.2;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagPopulation.ClusterDistribution(), "pmf");
  EXPECT_EQ(control->pagPopulation.ClusterPMF(0), "1,2,3");
  EXPECT_EQ(control->pagPopulation.ClusterPMF(1), "0.5,0.3,0.2");
}

TEST_F(ReadDefinition, ClustersOtherThanTrueReadNoFields) {
  auto control = Open("Clusters=False;\r\nReps=4;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagPopulation.ClusteredPop(), "False");
  EXPECT_EQ(control->pagSimulation.Reps(), "4");
}

TEST_F(ReadDefinition, DetFuncParamFindsItsRowByFieldName) {
  auto control = Open(
      "Detectability=\"Hazard Rate\" /ParamByStratum=False;\r\nDetFuncParam=\"\" /shape=4;\r\n"
      "DetFuncParam=\"\" /Scale=20;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagDetectability.DetFunction(), "Hazard Rate");
  EXPECT_EQ(control->pagDetectability.Param(1), "20");
  EXPECT_EQ(control->pagDetectability.Param(2), "4");
}

TEST_F(ReadDefinition, DsmLayerAndFieldAreNotReadBack) {
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  control.pagDensity.cboLayer.AddItem("Other");
  control.pagDensity.cboLayer.AddItem("L");
  control.pagDensity.cboField.AddItem("G");
  control.pagDensity.cboField.AddItem("F");
  control.SetDefinition("Density=DSM /Layer=L /Field=F;");
  control.Initialize();
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control.pagDensity.Description(), "DSM");
  EXPECT_NE(control.pagDensity.DSMLayer(), "L");
  EXPECT_NE(control.pagDensity.DSMField(), "F");
}

TEST_F(ReadDefinition, ParallelProcessingFalseDoesNotReadCores) {
  auto control = Open("ParallelProcessing=False /cores=7;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagMisc.Parallel(), "False");
  EXPECT_EQ(control->pagMisc.txtCores.Text(), "");
}

TEST_F(ReadDefinition, ParallelProcessingThatIsNotBooleanEndsReadingWithTheReport) {
  auto control = Open("ParallelProcessing=True /cores=2;\r\nParallelProcessing=perhaps /cores=3;\r\nReps=9;");
  // Parallel was set from the value before the conversion failed; the rest was not read.
  EXPECT_EQ(control->pagMisc.Parallel(), "False");
  EXPECT_EQ(control->pagMisc.txtCores.Text(), "2");
  EXPECT_EQ(control->pagSimulation.Reps(), "1");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  const auto& message = platform_.Messages()[0];
  EXPECT_EQ(message.title, "Pellunar Internal Error");
  EXPECT_EQ(message.icon, MessageIcon::Critical);
  EXPECT_EQ(message.text.rfind("The following internal error has occured in Pellunar:\r\n\r\n", 0), 0u);
  EXPECT_NE(message.text.find("\r\n" + kRaisedFromRead + "\r\n"), std::string::npos);
  EXPECT_NE(message.text.find("(Error number: 13)\r\n"), std::string::npos);
  EXPECT_EQ(platform_.Beeps(), 1);
}

TEST_F(ReadDefinition, AMissingFieldSlotEndsReadingAfterTheEarlierValues) {
  auto control = Open("Reps=5;\r\nDensity=Uniform /Densities=7;\r\nReps=6;");
  EXPECT_EQ(control->pagSimulation.Reps(), "5");
  EXPECT_EQ(control->pagDensity.Densities().substr(0, 1), "7");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_NE(platform_.Messages()[0].text.find(kRaisedFromRead), std::string::npos);
  EXPECT_NE(platform_.Messages()[0].text.find("(Error number: 9)"), std::string::npos);
}

TEST_F(ReadDefinition, MalformedTextIsReportedWithTheCodecAsSource) {
  auto control = Open("Reps=5;\r\nBroken;\r\nReps=6;");
  EXPECT_EQ(control->pagSimulation.Reps(), "5");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_NE(platform_.Messages()[0].text.find(kRaisedFromRead), std::string::npos);
  EXPECT_NE(platform_.Messages()[0].text.find("(Error source: DefinitionEntryCodec)"), std::string::npos);
}

TEST_F(ReadDefinition, AFailingPagePropertyEndsReading) {
  // Four population sizes do not fit the three strata columns.
  auto control = Open("StrataLayer=Strata;\r\nPopSize=\"Fixed N\" /Values=1,2,3,4;\r\nReps=8;");
  // The three values that fit are written before the fourth finds no column.
  EXPECT_EQ(control->pagPopulation.PopSizeValues(), "1,2,3");
  EXPECT_EQ(control->pagSimulation.Reps(), "1");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_NE(platform_.Messages()[0].text.find(kRaisedFromRead), std::string::npos);
}

TEST_F(ReadDefinition, AHotspotWithTwoValuesKeepsThemAndEndsReadingWithOneReport) {
  auto control = Open("Hotspot=\"\" /X,Y,Sig,Amp=1,2;\r\nReps=8;");
  ASSERT_EQ(control->pagDensity.NumHotspots(), 1);
  const Grid& hotspots = control->pagDensity.flxHotspots;
  EXPECT_EQ(hotspots.TextMatrix(1, 0), "1");
  EXPECT_EQ(hotspots.TextMatrix(1, 1), "2");
  EXPECT_EQ(hotspots.TextMatrix(1, 2), "");
  EXPECT_EQ(hotspots.TextMatrix(1, 3), "");
  EXPECT_EQ(control->pagSimulation.Reps(), "1");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(platform_.Messages()[0].title, "Pellunar Internal Error");
  EXPECT_EQ(platform_.Messages()[0].text,
            CModErrorHandling::InternalErrorText("ZrSIMPrp", "SIM", "ReadDefinition",
                                                 RuntimeError(9, "PagDensity", "Subscript out of range")));
}

TEST_F(ReadDefinition, ADetFuncParamShortOfStrataKeepsTheValuesGivenAndEndsReadingWithOneReport) {
  auto control = Open(
      "StrataLayer=Strata;\r\nDetectability=Half-Normal /ParamByStratum=True;\r\n"
      "DetFuncParam=\"\" /Scale=5,6;\r\nReps=8;");
  EXPECT_EQ(control->pagDetectability.Param(1), "5,6,0");
  EXPECT_EQ(control->pagSimulation.Reps(), "1");
  ASSERT_EQ(platform_.Messages().size(), 1u) << AllMessages();
  EXPECT_EQ(
      platform_.Messages()[0].text,
      CModErrorHandling::InternalErrorText("ZrSIMPrp", "SIM", "ReadDefinition",
                                           RuntimeError(9, "CPagDetectability", "Subscript out of range")));
}

TEST_F(ReadDefinition, AnalysisEntriesReachTheAnalysesPage) {
  auto control = Open("Analyse=True;\r\nDataFilter=5;\r\nModelDef=7;\r\nModelSelection=AIC;");
  EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
  EXPECT_EQ(control->pagAnalyses.Analyse(), "True");
  EXPECT_EQ(control->pagAnalyses.DataFilter(), "5");
  EXPECT_EQ(control->pagAnalyses.ModelDef(), "7");
  EXPECT_EQ(control->pagAnalyses.Criteria(), "AIC");
}

}  // namespace
}  // namespace zrsimprp

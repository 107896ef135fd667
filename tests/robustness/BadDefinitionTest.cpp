// Definition texts that no host should write, each loaded through the whole control: every one must
// end in either a normal result or an internal-error report, and the text must rebuild afterwards.
#include <cstdint>
#include <random>
#include <string>

#include "RobustnessFixture.h"

namespace zrsimprp {
namespace {

constexpr const char* kValidBase =
    "Engine=SIM;Transects=Survey /ObjectID=1;StrataLayer=Strata;Reps=10;"
    "Density=Uniform /Densities=1,2,3 /GridSpace=10;PopSize=\"Fixed N\" /Values=10,20,30;"
    "Clusters=False;Detectability=Half-Normal /ParamByStratum=False;DetFuncParam=\"\" /Scale=20;"
    "Analyse=False;ParallelProcessing=False /cores=1;";

std::string Hotspots(int count, const std::string& values) {
  std::string text;
  text.reserve(static_cast<size_t>(count) * (values.size() + 24));
  for (int i = 0; i < count; ++i) text += "Hotspot=\"\" /X,Y,Sig,Amp=" + values + ";";
  return text;
}

using BadDefinitionTest = RobustnessTest;

TEST_F(BadDefinitionTest, RandomBytesEndInANormalResultOrAnInternalErrorReport) {
  std::mt19937 random(20240611u);
  std::uniform_int_distribution<int> byte(0, 255);
  std::uniform_int_distribution<int> length(0, 600);
  int reports = 0;
  for (int round = 0; round < 150; ++round) {
    std::string text(static_cast<size_t>(length(random)), '\0');
    for (char& c : text) c = static_cast<char>(byte(random));
    const LoadOutcome outcome = Load(text);
    EXPECT_FALSE(outcome.raised) << outcome.raised_description;
    for (const HeadlessPlatform::Message& message : outcome.messages) {
      EXPECT_EQ(message.title, kReportTitle);
      EXPECT_EQ(FirstLine(message.text), kReportFirstLine);
      ++reports;
    }
    // Whatever was read, the rest of the pages still write a whole text.
    EXPECT_EQ(Entries(outcome.definition).front().key, "Engine");
  }
  EXPECT_GT(reports, 0);
}

TEST_F(BadDefinitionTest, RandomMixesOfKnownEntriesNeverRaise) {
  const std::vector<std::string> pieces = {"Reps=",
                                           "Hotspot=\"\" /a=",
                                           "Density=Uniform /d=",
                                           "PopSize=\"Fixed N\" /v=",
                                           "DetFuncParam=\"\" /Scale=",
                                           "Clusters=True /d=pmf /s=",
                                           "StrataLayer=",
                                           "Transects=Survey /o=",
                                           "1,2,3,4",
                                           "\"",
                                           ";",
                                           "/",
                                           "=",
                                           "Detectability=\"Hazard Rate\" /ParamByStratum=True;",
                                           "CategoricalCov=sex /c=",
                                           "ParallelProcessing=",
                                           "-1",
                                           "1e400",
                                           "Strata",
                                           "True",
                                           ",",
                                           " ",
                                           "\r\n"};
  std::mt19937 random(7u);
  std::uniform_int_distribution<size_t> pick(0, pieces.size() - 1);
  for (int round = 0; round < 150; ++round) {
    std::string text;
    for (int i = 0; i < 40; ++i) text += pieces[pick(random)];
    const LoadOutcome outcome = Load(text);
    EXPECT_FALSE(outcome.raised) << text << "\n" << outcome.raised_description;
    for (const HeadlessPlatform::Message& message : outcome.messages) {
      if (message.icon == MessageIcon::Exclamation) continue;  // a page check on restoring the tabs
      EXPECT_EQ(FirstLine(message.text), kReportFirstLine) << text;
    }
    // Walking every tab of whatever was loaded (changes refused or not) leaves a control that writes.
    for (int tab : {1, 2, 3, 4, 5, 0})
      EXPECT_NO_THROW(control_->tapSimulationDefinition.SetCurrentTab(tab)) << text;
    EXPECT_NO_THROW(control_->tabsPopulationDescription.UserClickTab(2)) << text;
    EXPECT_NO_THROW(control_->Definition()) << text;
  }
}

TEST_F(BadDefinitionTest, UnterminatedQuoteEndsReadingWithTheCodecsReportAndKeepsEarlierEntries) {
  const LoadOutcome outcome = Load("Reps=25;Density=\"Uniform /Densities=1,2,3;Reps=30;");
  const std::string report = SingleReport(outcome, "ReadDefinition");
  EXPECT_NE(report.find("(Error source: DefinitionEntryCodec)"), std::string::npos) << report;
  EXPECT_EQ(EntryOf(outcome.definition, "Reps").value, "25");
}

TEST_F(BadDefinitionTest, UnterminatedQuoteInAFieldNameEndsReadingWithTheCodecsReport) {
  const LoadOutcome outcome = Load("Reps=7;Hotspot=\"\" /\"X,Y=1,2,3,4;");
  const std::string report = SingleReport(outcome, "ReadDefinition");
  EXPECT_NE(report.find("(Error source: DefinitionEntryCodec)"), std::string::npos) << report;
  EXPECT_EQ(EntryOf(outcome.definition, "Reps").value, "7");
}

TEST_F(BadDefinitionTest, HugeRepetitionsLoadAndFailTheSimulationCheckWithTheUnexpectedErrorText) {
  // Restoring the inner tab checks the remembered inner page with the outer tab as it stands, which
  // is the Simulation tab: the load itself shows the check's message.
  const LoadOutcome outcome = Load("Reps=1e400;");
  EXPECT_FALSE(outcome.raised) << outcome.raised_description;
  ASSERT_EQ(outcome.messages.size(), 1u);
  EXPECT_EQ(outcome.messages[0].title, "Error in options on Simulation Page");
  EXPECT_EQ(outcome.messages[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(outcome.messages[0].text, CModErrorHandling::kUnexpectedCheckMessage);
  EXPECT_EQ(EntryOf(outcome.definition, "Reps").value, "1e400");
  EXPECT_FALSE(control_->IsValid());
  ASSERT_EQ(platform_.Messages().size(), 1u);
  EXPECT_EQ(platform_.Messages()[0].text, CModErrorHandling::kUnexpectedCheckMessage);
}

TEST_F(BadDefinitionTest, HugeNumbersInEveryNumericEntryNeverRaise) {
  const LoadOutcome outcome = Load(
      "StrataLayer=Strata;Reps=10;Density=Uniform /Densities=1e400,-1e400,1e-400 /GridSpace=1e400;"
      "PopSize=\"Fixed N\" /Values=1e400,1e400,1e400;Clusters=True /Distribution=Poisson /param=1e400;"
      "ContinuousCov=size /distribution=Normal /param=1e400,1e400;"
      "DetFuncParam=\"\" /Scale=1e400;ParallelProcessing=True /cores=1e400;");
  ExpectNormal(outcome);
  EXPECT_EQ(EntryOf(outcome.definition, "PopSize").field_values[0], "1e400,1e400,1e400");
  EXPECT_EQ(EntryOf(outcome.definition, "ParallelProcessing").field_values[0], "1e400");
  for (int tab = 1; tab <= 5; ++tab) {
    EXPECT_NO_THROW(control_->tapSimulationDefinition.SetCurrentTab(tab));
  }
  EXPECT_NO_THROW(control_->Definition());
}

TEST_F(BadDefinitionTest, NegativeHotspotValuesAreKeptAndSigmaFailsTheDensityCheck) {
  const LoadOutcome outcome = Load(Hotspots(2, "-1,-2,-3,-4"));
  ExpectNormal(outcome);
  EXPECT_EQ(control_->pagDensity.NumHotspots(), 2);
  EXPECT_EQ(CountKey(outcome.definition, "Hotspot"), 2);
  EXPECT_EQ(EntryOf(outcome.definition, "Hotspot").field_values[0], "-1,-2,-3,-4");
  control_->pagDensity.SetGridSpacing("10");
  std::string message;
  EXPECT_FALSE(control_->pagDensity.IsValid(message));
  EXPECT_EQ(
      message,
      "The value of sigma in row 1 of the hotspots table must be greater than zero. Please correct this "
      "information.");
}

TEST_F(BadDefinitionTest, TheLargestSixteenBitHotspotCountLoadsAndRebuilds) {
  // The largest count a 16-bit NumHotspots can hold must still be written out in full: a 16-bit
  // loop counter would wrap past it and lose the whole definition on saving.
  const LoadOutcome outcome = Load(Hotspots(32767, "1,2,3,4"));
  ExpectNormal(outcome);
  EXPECT_EQ(control_->pagDensity.NumHotspots(), 32767);
  EXPECT_EQ(CountKey(outcome.definition, "Hotspot"), 32767);
}

TEST_F(BadDefinitionTest, OneHotspotBeyondSixteenBitsEndsReadingAndWritingWithOverflowReports) {
  const LoadOutcome outcome = Load(Hotspots(32768, "1,2,3,4"));
  EXPECT_FALSE(outcome.raised) << outcome.raised_description;
  // The 32768th row is added, then counting the hotspots overflows 16 bits: reading stops there,
  // and every rebuild stops at the same count.
  ASSERT_EQ(outcome.messages.size(), 2u);
  EXPECT_EQ(FirstLine(outcome.messages[0].text), kReportFirstLine);
  EXPECT_EQ(RaisedFrom(outcome.messages[0].text), "(Error raised from: ZrSIMPrp.SIM.ReadDefinition)");
  EXPECT_EQ(Description(outcome.messages[0].text), "Overflow");
  EXPECT_EQ(RaisedFrom(outcome.messages[1].text), "(Error raised from: ZrSIMPrp.SIM.WriteDefinition)");
  EXPECT_EQ(outcome.definition, "");
}

TEST_F(BadDefinitionTest, HotspotWithFewerThanFourValuesEndsReadingWithASubscriptReport) {
  const LoadOutcome outcome = Load(std::string("Reps=3;") + Hotspots(1, "1,2") + "Reps=4;");
  const std::string report = SingleReport(outcome, "ReadDefinition");
  EXPECT_EQ(Description(report), "Subscript out of range");
  // The row was added and the two values written before the third was found missing; the rest of the
  // text was not read.
  EXPECT_EQ(control_->pagDensity.NumHotspots(), 1);
  EXPECT_EQ(EntryOf(outcome.definition, "Hotspot").field_values[0], "1,2,,");
  EXPECT_EQ(EntryOf(outcome.definition, "Reps").value, "3");
}

TEST_F(BadDefinitionTest, HotspotWithoutAnyFieldEndsReadingWithASubscriptReport) {
  const LoadOutcome outcome = Load("Hotspot=;");
  const std::string report = SingleReport(outcome, "ReadDefinition");
  EXPECT_EQ(Description(report), "Subscript out of range");
}

TEST_F(BadDefinitionTest, HotspotWithMoreThanFourValuesKeepsTheFirstFour) {
  const LoadOutcome outcome = Load(Hotspots(1, "1,2,3,4,5,6"));
  ExpectNormal(outcome);
  EXPECT_EQ(EntryOf(outcome.definition, "Hotspot").field_values[0], "1,2,3,4");
}

TEST_F(BadDefinitionTest, FiveThousandHotspotsLoadAndRebuildInOrder) {
  std::string text;
  for (int i = 1; i <= 5000; ++i) text += "Hotspot=\"\" /X,Y,Sig,Amp=" + std::to_string(i) + ",2,3,4;";
  const LoadOutcome outcome = Load(text);
  ExpectNormal(outcome);
  EXPECT_EQ(control_->pagDensity.NumHotspots(), 5000);
  int expected = 1;
  for (const DefinitionEntry& entry : Entries(outcome.definition)) {
    if (entry.key != "Hotspot") continue;
    EXPECT_EQ(entry.field_values[0], std::to_string(expected) + ",2,3,4");
    ++expected;
  }
  EXPECT_EQ(expected, 5001);
}

TEST_F(BadDefinitionTest, DetFuncParamWithAnUnknownNameWritesTheHeadingRow) {
  // An unknown name finds row 0, so the value lands in the heading row and no parameter changes.
  const LoadOutcome outcome = Load("DetFuncParam=\"\" /Scale=25;DetFuncParam=\"\" /Bogus=5;");
  ExpectNormal(outcome);
  EXPECT_EQ(control_->pagDetectability.flxDetect.TextMatrix(0, 1), "5");
  EXPECT_EQ(control_->pagDetectability.Param(1), "25");
  EXPECT_EQ(EntryOf(outcome.definition, "DetFuncParam").field_values[0], "25");
}

TEST_F(BadDefinitionTest, DetFuncParamWithoutAFieldEndsReadingWithASubscriptReport) {
  const LoadOutcome outcome = Load("Reps=5;DetFuncParam=;Reps=6;");
  const std::string report = SingleReport(outcome, "ReadDefinition");
  EXPECT_EQ(Description(report), "Subscript out of range");
  EXPECT_EQ(EntryOf(outcome.definition, "Reps").value, "5");
}

TEST_F(BadDefinitionTest, DetFuncParamWithTooFewStratumValuesEndsReadingWithASubscriptReport) {
  const LoadOutcome outcome =
      Load("StrataLayer=Strata;Detectability=Half-Normal /ParamByStratum=True;DetFuncParam=\"\" /Scale=1,2;");
  const std::string report = SingleReport(outcome, "ReadDefinition");
  EXPECT_EQ(Description(report), "Subscript out of range");
  EXPECT_EQ(control_->pagDetectability.Param(1), "1,2,0");
}

TEST_F(BadDefinitionTest, ManyRepeatedStrataLayerEntriesHandTheStrataOverEachTime) {
  std::string text = kValidBase;
  for (int i = 0; i < 3000; ++i) text += i % 2 == 0 ? "StrataLayer=Strata;" : "StrataLayer=Region;";
  const LoadOutcome outcome = Load(text);
  ExpectNormal(outcome);
  EXPECT_EQ(EntryOf(outcome.definition, "StrataLayer").value, "Region");
  EXPECT_EQ(control_->pagDensity.flxConstantDensity.Cols(), 2);
}

TEST_F(BadDefinitionTest, StrataLayerNamingNoLayerSelectsTheFirstEntry) {
  const LoadOutcome outcome = Load("StrataLayer=Nowhere;StrataLayer=\"\";StrataLayer=NONE;");
  ExpectNormal(outcome);
  EXPECT_EQ(EntryOf(outcome.definition, "StrataLayer").value, "Strata");
}

TEST_F(BadDefinitionTest, QuotedEmptyKeysArePassedOver) {
  const LoadOutcome outcome = Load("\"\"=5;\"\"=;\"\"=x /\"\"=1;Reps=9;");
  ExpectNormal(outcome);
  EXPECT_EQ(EntryOf(outcome.definition, "Reps").value, "9");
}

TEST_F(BadDefinitionTest, AnEntryWithNoKeyAtAllEndsReadingWithTheCodecsReport) {
  const LoadOutcome outcome = Load("Reps=2;=5;Reps=3;");
  const std::string report = SingleReport(outcome, "ReadDefinition");
  EXPECT_NE(report.find("(Error source: DefinitionEntryCodec)"), std::string::npos) << report;
  EXPECT_EQ(EntryOf(outcome.definition, "Reps").value, "2");
}

TEST_F(BadDefinitionTest, SeparatorsAloneEndReadingWithTheCodecsReport) {
  for (const char* text : {";", ";;;;", "/", "=", "\"", "//==;;\"\""}) {
    const LoadOutcome outcome = Load(text);
    EXPECT_FALSE(outcome.raised) << text;
    ASSERT_FALSE(outcome.messages.empty()) << text;
    EXPECT_EQ(FirstLine(outcome.messages[0].text), kReportFirstLine) << text;
    EXPECT_FALSE(outcome.definition.empty()) << text;
  }
}

TEST_F(BadDefinitionTest, WhiteSpaceOnlyIsAnEmptyDefinition) { ExpectNormal(Load(" \t\r\n  \r\n")); }

TEST_F(BadDefinitionTest, ParallelProcessingWithAWordThatIsNoBooleanEndsReadingWithATypeMismatchReport) {
  const LoadOutcome outcome = Load("ParallelProcessing=maybe /cores=2;");
  const std::string report = SingleReport(outcome, "ReadDefinition");
  EXPECT_EQ(Description(report), "Type mismatch");
  EXPECT_EQ(EntryOf(outcome.definition, "ParallelProcessing").value, "False");
}

TEST_F(BadDefinitionTest, PopSizeWithMoreValuesThanStrataEndsReadingWithAReport) {
  const LoadOutcome outcome = Load("StrataLayer=Strata;PopSize=\"Fixed N\" /Values=1,2,3,4,5;");
  SingleReport(outcome, "ReadDefinition");
}

TEST_F(BadDefinitionTest, ClustersPmfWithAnEmptySizeListEndsReadingWithAReport) {
  const LoadOutcome outcome = Load("Clusters=True /Distribution=pmf /size= /prob=;");
  SingleReport(outcome, "ReadDefinition");
}

TEST_F(BadDefinitionTest, TransectsNamingUnknownRecordsFallBackToTheFirst) {
  const LoadOutcome outcome = Load("Transects=Design /ObjectID=99999999999999999999;");
  ExpectNormal(outcome);
  EXPECT_EQ(EntryOf(outcome.definition, "Transects").field_values[0], "10");
}

TEST_F(BadDefinitionTest, NulBytesAndHighBytesInValuesSurviveARebuild) {
  const std::string formula = std::string("= x\0\xff\x80", 6);
  const LoadOutcome outcome = Load("Density=Simple /Formula=\"" + formula + "\" /GridSpace=\"\x01\";");
  ExpectNormal(outcome);
  EXPECT_EQ(EntryOf(outcome.definition, "Density").field_values[0], formula);
  EXPECT_EQ(EntryOf(outcome.definition, "Density").field_values[1], "\x01");
}

TEST_F(BadDefinitionTest, DesignTextWithAnUnquotedBlankInItsKeyIsReportedAndLeavesNoStrata) {
  // A bare token holds no blank, so the key STRATUM LAYER must be quoted in a design's text.
  project_ = std::make_shared<MemoryProjectDatabase>();
  project_->AddDesign(10, "Lines", "STRATUM LAYER=Strata;");
  project_->AddSurvey(1, "Line survey", 1, 10);
  const LoadOutcome outcome = Load("Reps=4;");
  EXPECT_FALSE(outcome.raised) << outcome.raised_description;
  ASSERT_EQ(outcome.messages.size(), 1u);
  const std::string& report = outcome.messages[0].text;
  EXPECT_EQ(FirstLine(report), kReportFirstLine);
  EXPECT_EQ(RaisedFrom(report), "(Error raised from: ZrSIMPrp.PagSimulation.Inititalize)");
  EXPECT_NE(report.find("(Error source: DefinitionEntryCodec)"), std::string::npos) << report;
  EXPECT_EQ(control_->pagSimulation.StrataNum(), 0);
  EXPECT_EQ(EntryOf(outcome.definition, "StrataLayer").value, "None");
  EXPECT_EQ(EntryOf(outcome.definition, "Reps").value, "4");
}

}  // namespace
}  // namespace zrsimprp

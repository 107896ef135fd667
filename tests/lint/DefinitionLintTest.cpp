#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LintTestProject.h"
#include "zrsimprp/lint/LintCodes.h"

namespace zrsimprp {
namespace {

class DefinitionLintTest : public ::testing::Test {
 protected:
  DefinitionLint::Report Lint(const std::string& text) {
    ProjectFacts facts(project_);
    return DefinitionLint(&facts).Check(text);
  }

  std::shared_ptr<MemoryProjectDatabase> project_ = LintTestProject();
};

std::string Describe(const std::vector<Finding>& findings) {
  std::string text;
  for (const Finding& finding : findings) text += finding.code + " " + finding.sentence + "\n";
  return text;
}

TEST_F(DefinitionLintTest, CleanDefinitionHasNoFindings) {
  DefinitionLint::Report report = Lint(DefinitionWith("Reps", "Reps=10;"));
  EXPECT_TRUE(report.is_definition);
  EXPECT_TRUE(report.findings.empty()) << Describe(report.findings);
}

TEST_F(DefinitionLintTest, WithoutAProjectOnlyTheTextIsChecked) {
  DefinitionLint::Report report =
      DefinitionLint(nullptr).Check(DefinitionWith("DataFilter", "DataFilter=99;"));
  EXPECT_TRUE(report.findings.empty()) << Describe(report.findings);
}

TEST_F(DefinitionLintTest, EmptyAndBlankTextsAreDefinitionsWithoutFindings) {
  EXPECT_TRUE(DefinitionLint(nullptr).Check("").findings.empty());
  DefinitionLint::Report report = DefinitionLint(nullptr).Check(" \r\n\t");
  EXPECT_TRUE(report.is_definition);
  EXPECT_TRUE(report.findings.empty()) << Describe(report.findings);
}

// One case per code: the definition, the code and the exact sentence of the finding it must give.
struct Case {
  Case(std::string name_in, std::string definition_in, std::string code_in, std::string sentence_in,
       std::string entry_in = "", std::string field_in = "", std::string place_kind_in = "",
       std::string place_in = "")
      : name(std::move(name_in)),
        definition(std::move(definition_in)),
        code(std::move(code_in)),
        sentence(std::move(sentence_in)),
        entry(std::move(entry_in)),
        field(std::move(field_in)),
        place_kind(std::move(place_kind_in)),
        place(std::move(place_in)) {}

  std::string name;
  std::string definition;
  std::string code;
  std::string sentence;
  std::string entry;
  std::string field;
  std::string place_kind;
  std::string place;
};

void PrintTo(const Case& one, std::ostream* out) { *out << one.name; }

class LintFinding : public DefinitionLintTest, public ::testing::WithParamInterface<Case> {};

TEST_P(LintFinding, GivesTheCodeWithItsExactSentence) {
  const Case& expected = GetParam();
  DefinitionLint::Report report = Lint(expected.definition);
  const Finding* found = nullptr;
  for (const Finding& finding : report.findings) {
    if (finding.code == expected.code && finding.sentence == expected.sentence) found = &finding;
  }
  ASSERT_NE(found, nullptr) << "got:\n" << Describe(report.findings);
  EXPECT_EQ(found->entry, expected.entry);
  EXPECT_EQ(found->field, expected.field);
  EXPECT_EQ(found->place_kind, expected.place_kind);
  EXPECT_EQ(found->place, expected.place);
}

const std::string kStop = ", so reading the definition stops here with an internal error.";

INSTANTIATE_TEST_SUITE_P(
    EveryCode, LintFinding,
    ::testing::Values(
        Case("NotADefinition", "garbage", lint_code::kNotADefinition,
             "The text is not a definition from line 1, column 8: \"=\" is missing after the key "
             "\"garbage\"."),
        Case(
            "UnknownEntry", DefinitionWith("Repss", "Repss=30;"), lint_code::kUnknownEntry,
            "The entry \"Repss\" is not read by any page, so it is ignored and dropped on the next save; the "
            "closest known entry is \"Reps\".",
            "Repss"),
        Case("UnreadFieldOfAnEntryWithoutFields", DefinitionWith("Reps", "Reps=10 /extra=1;"),
             lint_code::kUnreadField,
             "The field \"extra\" of the entry \"Reps\" is not part of that entry, so it is dropped on the "
             "next "
             "save; \"Reps\" takes no fields here.",
             "Reps", "extra"),
        Case("UnreadFieldWithClosestName",
             DefinitionWith("Density", "Density=Uniform /Densities=1,2,3 /GridSpace=100 /GridSpacing=5;"),
             lint_code::kUnreadField,
             "The field \"GridSpacing\" of the entry \"Density\" is not part of that entry, so it is dropped "
             "on "
             "the next save; the closest known field is \"GridSpace\".",
             "Density", "GridSpacing"),
        Case("FieldReadByPosition",
             DefinitionWith("Clusters", "Clusters=True /Distribution=Poisson /Params=3;"),
             lint_code::kFieldReadByPosition,
             "The field \"Params\" of the entry \"Clusters\" is read by its position as \"param\" and is "
             "saved "
             "under that name.",
             "Clusters", "Params"),
        Case("MissingField", DefinitionWith("Density", "Density=Uniform /Densities=1,2,3;"),
             lint_code::kMissingField, "The entry \"Density\" has no second field \"GridSpace\"" + kStop,
             "Density", "GridSpace"),
        Case(
            "DuplicateEntry", DefinitionWith("Reps", "Reps=10;\r\nReps=20;"), lint_code::kDuplicateEntry,
            "The entry \"Reps\" appears 2 times; only the last one is used and the others are dropped on the "
            "next save.",
            "Reps"),
        Case("DuplicateParameter",
             DefinitionWith("DetFuncParam", "DetFuncParam=\"\" /Scale=60;\r\nDetFuncParam=\"\" /scale=70;"),
             lint_code::kDuplicateEntry,
             "The entry \"DetFuncParam\" for \"scale\" appears 2 times; only the last one is used and the "
             "others "
             "are dropped on the next save.",
             "DetFuncParam", "scale"),
        Case("DensitiesBeforeAnyStrata", DefinitionWith("StrataLayer", ""), lint_code::kMoreValuesThanColumns,
             "The entry \"Density\" gives 3 densities but the table has 1 column when it is read (no "
             "\"StrataLayer\" entry comes before it)" +
                 kStop,
             "Density", "Densities"),
        Case(
            "MorePopulationSizesThanStrata",
            DefinitionWith("PopSize", "PopSize=\"Fixed N\" /Values=10,20,30,40;"),
            lint_code::kMoreValuesThanColumns,
            "The entry \"PopSize\" gives 4 population sizes but the table has 3 columns when it is read (the "
            "strata of \"Strata\")" +
                kStop,
            "PopSize", "Values"),
        Case("StratumWithoutDensity",
             DefinitionWith("Density", "Density=Uniform /Densities=1,2 /GridSpace=100;"),
             lint_code::kStratumWithoutValue,
             "The entry \"Density\" gives no density for stratum 'C', which keeps 0; give one value for "
             "each stratum.",
             "Density", "Densities", "stratum", "C"),
        Case("HotspotWithThreeValues", DefinitionWith("Hotspot", "Hotspot=\"\" /X,Y,Sig,Amp=1,2,3;"),
             lint_code::kListLengthsDiffer,
             "The entry \"Hotspot\" gives 3 values for hotspot 1 but needs four (X, Y, Sig, Amp)" + kStop,
             "Hotspot", "X,Y,Sig,Amp", "hotspot", "1"),
        Case("PmfSizesAndProbabilities",
             DefinitionWith("Clusters", "Clusters=True /Distribution=pmf /size=1,2,3 /prob=0.5,0.5;"),
             lint_code::kListLengthsDiffer,
             "The entry \"Clusters\" gives 3 cluster sizes but 2 probabilities; each size needs one "
             "probability.",
             "Clusters", "prob"),
        Case("DensityNotANumber",
             DefinitionWith("Density", "Density=Uniform /Densities=abc,2,3 /GridSpace=100;"),
             lint_code::kNotANumber, "The density for stratum 'A' is \"abc\", which is not a number.",
             "Density", "Densities", "stratum", "A"),
        Case("NegativeDensity",
             DefinitionWith("Density", "Density=Uniform /Densities=1,-1,3 /GridSpace=100;"),
             lint_code::kNegative, "The density for stratum 'B' is -1; it cannot be negative.", "Density",
             "Densities", "stratum", "B"),
        Case("NegativeAmplitude", DefinitionWith("Hotspot", "Hotspot=\"\" /X,Y,Sig,Amp=1,2,3,-4;"),
             lint_code::kNegative, "The amplitude of hotspot 1 is -4; it cannot be negative.", "Hotspot",
             "X,Y,Sig,Amp", "hotspot", "1"),
        Case("ZeroGridSpacing", DefinitionWith("Density", "Density=Uniform /Densities=1,2,3 /GridSpace=0;"),
             lint_code::kNotPositive, "The grid spacing is 0; it must be greater than 0.", "Density",
             "GridSpace"),
        Case("ZeroHotspotSigma", DefinitionWith("Hotspot", "Hotspot=\"\" /X,Y,Sig,Amp=1,2,0,4;"),
             lint_code::kNotPositive, "The sigma of hotspot 1 is 0; it must be greater than 0.", "Hotspot",
             "X,Y,Sig,Amp", "hotspot", "1"),
        Case("NegativeRepetitions", DefinitionWith("Reps", "Reps=-3;"), lint_code::kNotPositive,
             "The number of repetitions is -3; it must be greater than 0.", "Reps"),
        Case("ZeroCores", DefinitionWith("ParallelProcessing", "ParallelProcessing=True /cores=0;"),
             lint_code::kNotPositive, "The number of cores is 0; it must be greater than 0.",
             "ParallelProcessing", "cores"),
        Case("FractionalFixedN", DefinitionWith("PopSize", "PopSize=\"Fixed N\" /Values=10.5,20,30;"),
             lint_code::kNotWhole,
             "The population size N for stratum 'A' is 10.5; it must be a whole number.", "PopSize", "Values",
             "stratum", "A"),
        Case("ProbabilityAboveOne",
             DefinitionWith("CategoricalCov", "CategoricalCov=sex /categories=m,f /prob=1.5,-0.5;"),
             lint_code::kProbabilityOutOfRange,
             "The probability of level 'm' is 1.5; a probability must be between 0 and 1.", "CategoricalCov",
             "prob", "level", "m"),
        Case("ProbabilitiesSumBelowOne",
             DefinitionWith("CategoricalCov", "CategoricalCov=sex /categories=m,f /prob=0.5,0.4;"),
             lint_code::kProbabilitiesDoNotSumToOne,
             "The probabilities of the entry \"CategoricalCov\" add up to 0.9, not 1.", "CategoricalCov",
             "prob"),
        Case("AnalyseNotABoolean", DefinitionWith("Analyse", "Analyse=Yes;"), lint_code::kNotABooleanIgnored,
             "The value \"Yes\" of the entry \"Analyse\" is not True or False, so it changes nothing.",
             "Analyse"),
        Case("ParallelNotABoolean", DefinitionWith("ParallelProcessing", "ParallelProcessing=maybe;"),
             lint_code::kNotABooleanStopsReading,
             "The value \"maybe\" of the entry \"ParallelProcessing\" is not True, False or a number" + kStop,
             "ParallelProcessing"),
        Case("UnknownDensityWord", DefinitionWith("Density", "Density=Unifrom;"), lint_code::kUnknownWord,
             "The value \"Unifrom\" of the entry \"Density\" is not one of Uniform, Simple, DSM, so it "
             "changes "
             "nothing; the closest is \"Uniform\".",
             "Density"),
        Case("UnknownSurvey", DefinitionWith("Transects", "Transects=Survey /ObjectID=9;"),
             lint_code::kUnknownSurvey,
             "The project has no survey \"9\" that can be chosen (a survey with status 1), so the page "
             "selects its "
             "first survey instead.",
             "Transects", "ObjectID"),
        Case("SurveyThatCannotBeChosen", DefinitionWith("Transects", "Transects=Survey /ObjectID=4;"),
             lint_code::kUnknownSurvey,
             "The project has no survey \"4\" that can be chosen (a survey with status 1), so the page "
             "selects its "
             "first survey instead.",
             "Transects", "ObjectID"),
        Case("UnknownDesign", DefinitionWith("Transects", "Transects=Design /ObjectID=9;"),
             lint_code::kUnknownDesign,
             "The project has no design \"9\", so the page selects its first design instead.", "Transects",
             "ObjectID"),
        Case("LayerNotOffered", DefinitionWith("StrataLayer", "StrataLayer=Blocks;"),
             lint_code::kLayerNotOffered,
             "The strata layer \"Blocks\" is not offered for the chosen survey, so the page selects "
             "\"Strata\" "
             "instead.",
             "StrataLayer"),
        Case("UnknownDataFilter", DefinitionWith("DataFilter", "DataFilter=9;"),
             lint_code::kUnknownDataFilter,
             "The project has no data filter \"9\", so the page selects its first data filter instead.",
             "DataFilter"),
        Case("ModelDefinitionNotOffered", DefinitionWith("ModelDef", "ModelDef=2;"),
             lint_code::kUnknownModelDefinition,
             "The project has no model definition \"2\" that can be chosen (MRDS with method ds, or MA), so "
             "the "
             "page selects its first model definition instead.",
             "ModelDef"),
        Case("CovariateParameterReadTooEarly", DefinitionWith("Hotspot", "DetFuncParam=\"\" /sex.m=0.5;"),
             lint_code::kParameterRowMissing,
             "The entry \"DetFuncParam\" for \"sex.m\" is read before the cluster size and covariate rows "
             "exist, so its value "
             "\"0.5\" "
             "is lost on the next save.",
             "DetFuncParam", "sex.m", "parameter", "sex.m"),
        Case("ShapeWithHalfNormal", DefinitionWith("Hotspot", "DetFuncParam=\"\" /Shape=3;"),
             lint_code::kShapeUnused,
             "The entry \"DetFuncParam\" for \"Shape\" is not used by the Half-Normal detection function, so "
             "it is "
             "dropped on the next save.",
             "DetFuncParam", "Shape", "parameter", "Shape"),
        Case("DsmFieldsAreNotReadBack",
             DefinitionWith("Density", "Density=DSM /Layer=Surface /Field=Fitted;"),
             lint_code::kDsmFieldsNotRead,
             "The fields of a DSM density are not read back, so its layer and field are lost on the next "
             "save.",
             "Density", "Layer")),
    [](const ::testing::TestParamInfo<Case>& param_info) { return param_info.param.name; });

TEST_F(DefinitionLintTest, FindingsCarryTheLineOfTheirEntry) {
  DefinitionLint::Report report = Lint(DefinitionWith("Reps", "Reps=-3;"));
  ASSERT_EQ(report.findings.size(), 1u) << Describe(report.findings);
  EXPECT_EQ(report.findings[0].line, 4);
  EXPECT_EQ(report.findings[0].severity, Severity::kError);
}

TEST_F(DefinitionLintTest, WarningsAreWarnings) {
  DefinitionLint::Report report = Lint(DefinitionWith("Repss", "Repss=30;"));
  ASSERT_EQ(report.findings.size(), 1u) << Describe(report.findings);
  EXPECT_EQ(report.findings[0].severity, Severity::kWarning);
  EXPECT_EQ(report.findings[0].suggestion, "Reps");
}

TEST_F(DefinitionLintTest, IssueExampleGivesTheNotANumberAndNegativeDensities) {
  DefinitionLint::Report report = Lint("Density=Uniform /Densities=abc,-1,3 /GridSpace=100;");
  std::vector<std::string> codes;
  for (const Finding& finding : report.findings) codes.push_back(finding.code);
  EXPECT_EQ(codes, (std::vector<std::string>{"ZR106", "ZR201", "ZR202"})) << Describe(report.findings);
}

TEST_F(DefinitionLintTest, EachHotspotValueIsJudgedByItsOwnRule) {
  std::string text = DefinitionWith("Hotspot", "Hotspot=\"\" /X,Y,Sig,Amp=1,2,3,4;");
  text += "Hotspot=\"\" /X,Y,Sig,Amp=\"a, ,0,-4,extra\";\r\n";
  DefinitionLint::Report report = Lint(text);
  ASSERT_EQ(report.findings.size(), 4u) << Describe(report.findings);
  EXPECT_EQ(report.findings[0].code, lint_code::kNotANumber);
  EXPECT_EQ(report.findings[0].sentence, "The centre X of hotspot 2 is \"a\", which is not a number.");
  EXPECT_EQ(report.findings[1].code, lint_code::kNotANumber);
  EXPECT_EQ(report.findings[1].sentence, "The centre Y of hotspot 2 is \" \", which is not a number.");
  EXPECT_EQ(report.findings[2].code, lint_code::kNotPositive);
  EXPECT_EQ(report.findings[2].sentence, "The sigma of hotspot 2 is 0; it must be greater than 0.");
  EXPECT_EQ(report.findings[3].code, lint_code::kNegative);
  EXPECT_EQ(report.findings[3].sentence, "The amplitude of hotspot 2 is -4; it cannot be negative.");
  for (const Finding& finding : report.findings) {
    EXPECT_EQ(finding.place_kind, "hotspot");
    EXPECT_EQ(finding.place, "2");
  }
}

TEST_F(DefinitionLintTest, HotspotWithoutValuesNeedsFour) {
  DefinitionLint::Report report = Lint(DefinitionWith("Hotspot", "Hotspot=\"\";"));
  ASSERT_FALSE(report.findings.empty());
  EXPECT_EQ(report.findings.back().code, lint_code::kListLengthsDiffer) << Describe(report.findings);
  EXPECT_EQ(report.findings.back().sentence,
            "The entry \"Hotspot\" gives 0 values for hotspot 1 but needs four (X, Y, Sig, Amp)" + kStop);
}

TEST_F(DefinitionLintTest, NumberBeyondADoubleIsNotANumber) {
  DefinitionLint::Report report =
      Lint(DefinitionWith("Density", "Density=Uniform /Densities=1,1e999,3 /GridSpace=-1e999;"));
  ASSERT_EQ(report.findings.size(), 2u) << Describe(report.findings);
  EXPECT_EQ(report.findings[0].sentence, "The density for stratum 'B' is \"1e999\", which is not a number.");
  EXPECT_EQ(report.findings[1].sentence, "The grid spacing is \"-1e999\", which is not a number.");
}

TEST_F(DefinitionLintTest, SumOfTypedDecimalsCountsAsOne) {
  DefinitionLint::Report report =
      Lint(DefinitionWith("CategoricalCov", "CategoricalCov=sex /categories=a,b,c /prob=0.7,0.2,0.1;"));
  EXPECT_TRUE(report.findings.empty()) << Describe(report.findings);
}

TEST_F(DefinitionLintTest, MaxCoresAndBlankCoresAreFine) {
  EXPECT_TRUE(Lint(DefinitionWith("ParallelProcessing", "ParallelProcessing=True /cores=\"max cores\";"))
                  .findings.empty());
  EXPECT_TRUE(
      Lint(DefinitionWith("ParallelProcessing", "ParallelProcessing=True /cores=\"\";")).findings.empty());
}

TEST_F(DefinitionLintTest, HazardRateKeepsItsShape) {
  std::string text = DefinitionWith("Detectability", "Detectability=\"Hazard Rate\" /ParamByStratum=False;");
  text += "DetFuncParam=\"\" /Shape=3;\r\n";
  DefinitionLint::Report report = Lint(text);
  EXPECT_TRUE(report.findings.empty()) << Describe(report.findings);
}

TEST_F(DefinitionLintTest, BreakInALaterLineGivesItsLineAndColumn) {
  DefinitionLint::Report report = Lint("Reps=1;\r\nDensity=Uniform /Densities=\"1,2");
  EXPECT_FALSE(report.is_definition);
  ASSERT_EQ(report.findings.size(), 1u);
  EXPECT_EQ(report.findings[0].sentence,
            "The text is not a definition from line 2, column 32: a quoted text is not closed.");
}

TEST_F(DefinitionLintTest, AFailingProjectIsNotACrash) {
  project_->FailOn("SurveyGroups");
  project_->FailOn("DataFilters");
  ProjectFacts facts(project_);
  EXPECT_FALSE(facts.Problems().empty());
  DefinitionLint::Report report = DefinitionLint(&facts).Check(DefinitionWith("Reps", "Reps=10;"));
  EXPECT_TRUE(report.is_definition);
}

}  // namespace
}  // namespace zrsimprp

namespace zrsimprp {
namespace {

TEST(DefinitionLintReuse, OneLintGivesEachTextItsOwnFindings) {
  auto project = LintTestProject();
  ProjectFacts facts(project);
  DefinitionLint lint(&facts);
  const std::string with_hotspot = DefinitionWith("Hotspot", "Hotspot=\"\" /X,Y,Sig,Amp=1,2,0,4;");
  const std::vector<Finding> first = lint.Check(with_hotspot).findings;
  EXPECT_TRUE(lint.Check(DefinitionWith("Reps", "Reps=10;")).findings.empty());
  const std::vector<Finding> again = lint.Check(with_hotspot).findings;
  ASSERT_EQ(again.size(), first.size());
  for (std::size_t i = 0; i < first.size(); ++i) EXPECT_EQ(again[i].sentence, first[i].sentence);
  EXPECT_EQ(again[0].place, "1");
}

}  // namespace
}  // namespace zrsimprp

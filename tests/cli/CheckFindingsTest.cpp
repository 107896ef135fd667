#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CliFixture.h"
#include "JsonReader.h"

namespace {

class CheckFindings : public CliFixture {
 protected:
  Result Check(const std::string& definition, std::vector<std::string> extra = {}) {
    std::vector<std::string> words = {"check", "--project", SampleProject(), "--definition", "-"};
    words.insert(words.end(), extra.begin(), extra.end());
    return Run(words, definition);
  }
  // Adds a simulation to the sample project through the command line.
  void AddSimulation(const std::string& name, const std::string& definition) {
    const std::string file = PathIn("add.txt");
    WriteFile(file, definition);
    Result added = Run({"project", "add-simulation", SampleProject(), "--name", name, "--definition", file});
    ASSERT_EQ(added.status, 0) << added.err;
  }
};

const char* const kAllPagesOk =
    "Simulation: OK\nDensity: OK\nGeneral: OK\nCovariates: OK\nDetectability: OK\nAnalysis: OK\nMisc: OK\n";

TEST_F(CheckFindings, CleanSimulationIsStatusZeroEvenWhenStrict) {
  Result result =
      Run({"check", "--project", SampleProject(), "--simulation", "Sample simulation", "--strict"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, kAllPagesOk);
}

TEST_F(CheckFindings, MisspeltEntryIsAWarningThatOnlyStrictTurnsIntoStatusThree) {
  const std::string definition = SampleDefinition() + "Repss=30;";
  const std::string line =
      "ZR101 warning at line 20 (Repss): The entry \"Repss\" is not read by any page, so it is ignored and "
      "dropped on the next save; the closest known entry is \"Reps\".\n";
  Result plain = Check(definition);
  EXPECT_EQ(plain.status, 0) << plain.err;
  EXPECT_EQ(plain.out, std::string(kAllPagesOk) + line);
  Result strict = Check(definition, {"--strict"});
  EXPECT_EQ(strict.status, 3) << strict.err;
  EXPECT_EQ(strict.out, plain.out);
}

TEST_F(CheckFindings, DensitiesThePagesAcceptButMeanNothingAreStatusOne) {
  std::string definition = SampleDefinition();
  definition.replace(definition.find("Densities=2.5,1.5,3"), 19, "Densities=abc,-1,3");
  Result result = Check(definition);
  EXPECT_EQ(result.status, 1) << result.err;
  EXPECT_EQ(result.out,
            std::string(kAllPagesOk) +
                "ZR201 error at line 5 (Density /Densities): The density for stratum 'North' is "
                "\"abc\", which is not a number.\n"
                "ZR202 error at line 5 (Density /Densities): The density for stratum 'Central' is -1; "
                "it cannot be negative.\n");
}

TEST_F(CheckFindings, GenericPageMessageIsExplained) {
  Result result = Check("Engine=SIM;");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.out.find("Density: An unexpected error occured while checking the options on this page."),
            std::string::npos);
  EXPECT_NE(
      result.out.find("ZR501 error: The Density page could not finish its checks because it met a value "
                      "that is empty or not a number (\"Type mismatch\", error 13 from ZrSIMPrp).\n"),
      std::string::npos)
      << result.out;
}

TEST_F(CheckFindings, TextThatIsNotADefinitionIsStatusTwoWithLineAndColumn) {
  Result result = Check("garbage");
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err,
            "zrsim check: The text is not a definition from line 1, column 8: \"=\" is missing after the key "
            "\"garbage\".\n");
  EXPECT_EQ(result.out.find("Pellunar"), std::string::npos);
  EXPECT_EQ(result.out.find("Simulation:"), std::string::npos);
}

TEST_F(CheckFindings, UnknownFormatIsStatusTwo) {
  Result result = Check("Engine=SIM;", {"--format", "xml"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err, "zrsim check: --format must be text or json, not 'xml'\n");
}

TEST_F(CheckFindings, TextOutputNeverHoldsACarriageReturn) {
  Result result = Check(SampleDefinition() + "\"Re\r\nps\"=1;");
  EXPECT_EQ(result.out.find('\r'), std::string::npos);
  EXPECT_NE(result.out.find("The entry \"Re\\r\\nps\" is not read by any page"), std::string::npos)
      << result.out;
}

TEST_F(CheckFindings, JsonOutputParsesBackWithPagesAndFindings) {
  std::string definition = SampleDefinition() + "Repss=30;\r\nDataFilter=99;";
  Result result = Check(definition, {"--format", "json"});
  EXPECT_EQ(result.status, 1) << result.err;
  JsonValue json = JsonValue::Parse(result.out);
  EXPECT_EQ(json["format"].text, "zrsim-check");
  EXPECT_EQ(json["version"].number, 1);
  EXPECT_EQ(json["exit_status"].number, 1);
  EXPECT_FALSE(json["strict"].boolean);
  ASSERT_EQ(json["simulations"].items.size(), 1u);
  const JsonValue& simulation = json["simulations"][0];
  EXPECT_EQ(simulation["source"].text, "standard input");
  EXPECT_EQ(simulation["name"].text, "-");
  EXPECT_TRUE(simulation["is_definition"].boolean);
  EXPECT_EQ(simulation["outcome"].text, "failed");
  ASSERT_EQ(simulation["pages"].items.size(), 7u);
  EXPECT_EQ(simulation["pages"][0]["page"].text, "Simulation");
  EXPECT_TRUE(simulation["pages"][0]["valid"].boolean);
  EXPECT_EQ(simulation["pages"][0]["message"].text, "");
  const JsonValue& findings = simulation["findings"];
  std::vector<std::string> codes;
  for (const JsonValue& finding : findings.items) codes.push_back(finding["code"].text);
  EXPECT_EQ(codes, (std::vector<std::string>{"ZR101", "ZR304", "ZR105"}));
  const JsonValue& unknown = findings[0];
  EXPECT_EQ(unknown["severity"].text, "warning");
  EXPECT_EQ(unknown["entry"].text, "Repss");
  EXPECT_TRUE(unknown["field"].IsNull());
  EXPECT_TRUE(unknown["place"].IsNull());
  EXPECT_EQ(unknown["suggestion"].text, "Reps");
  EXPECT_EQ(unknown["line"].number, 20);
  EXPECT_EQ(unknown["sentence"].text,
            "The entry \"Repss\" is not read by any page, so it is ignored and dropped on the next save; the "
            "closest known entry is \"Reps\".");
  EXPECT_EQ(findings[1]["severity"].text, "error");
  EXPECT_EQ(json["summary"]["failed"].number, 1);
  EXPECT_TRUE(simulation["internal_errors"].items.empty());
}

TEST_F(CheckFindings, JsonKeepsPlacesAndEscapesControlCharacters) {
  std::string definition = SampleDefinition();
  definition.replace(definition.find("Densities=2.5,1.5,3"), 19, "Densities=\"a\tb,1,2\"");
  Result result = Check(definition, {"--format", "json"});
  JsonValue json = JsonValue::Parse(result.out);
  const JsonValue& finding = json["simulations"][0]["findings"][0];
  EXPECT_EQ(finding["code"].text, "ZR201");
  EXPECT_EQ(finding["field"].text, "Densities");
  EXPECT_EQ(finding["place"]["kind"].text, "stratum");
  EXPECT_EQ(finding["place"]["name"].text, "North");
  EXPECT_EQ(finding["sentence"].text, "The density for stratum 'North' is \"a\tb\", which is not a number.");
}

TEST_F(CheckFindings, JsonForATextThatIsNotADefinition) {
  Result result = Check("a=\"b", {"--format", "json"});
  EXPECT_EQ(result.status, 2);
  JsonValue json = JsonValue::Parse(result.out);
  const JsonValue& simulation = json["simulations"][0];
  EXPECT_FALSE(simulation["is_definition"].boolean);
  EXPECT_TRUE(simulation["pages"].items.empty());
  EXPECT_EQ(simulation["findings"][0]["code"].text, "ZR001");
  EXPECT_EQ(simulation["findings"][0]["sentence"].text,
            "The text is not a definition from line 1, column 5: a quoted text is not closed.");
  EXPECT_EQ(json["exit_status"].number, 2);
}

TEST_F(CheckFindings, AllChecksEverySimulationAndNamesTheBadOne) {
  const std::string good = SampleDefinition();
  for (int i = 1; i <= 12; ++i) AddSimulation("Copy " + std::to_string(i), good);
  std::string bad = good;
  bad.replace(bad.find("Reps=25;"), 8, "Reps=0;");
  AddSimulation("Bad one", bad);

  Result text = Run({"check", "--project", SampleProject(), "--all"});
  EXPECT_EQ(text.status, 1) << text.err;
  EXPECT_NE(text.out.find("== Bad one\nSimulation: The number of repetitions must be greater than 0.\n"),
            std::string::npos)
      << text.out;
  EXPECT_NE(text.out.find("== Copy 7\n" + std::string(kAllPagesOk)), std::string::npos);
  EXPECT_NE(text.out.find("Checked 14 simulations: 1 failed, 0 with warnings only, 13 clean.\n"),
            std::string::npos)
      << text.out;

  Result json_result = Run({"check", "--project", SampleProject(), "--all", "--format", "json"});
  EXPECT_EQ(json_result.status, 1);
  JsonValue json = JsonValue::Parse(json_result.out);
  ASSERT_EQ(json["simulations"].items.size(), 14u);
  int failed = 0;
  for (const JsonValue& simulation : json["simulations"].items) {
    if (simulation["outcome"].text == "failed") {
      ++failed;
      EXPECT_EQ(simulation["name"].text, "Bad one");
      EXPECT_EQ(simulation["findings"][0]["code"].text, "ZR203");
    } else {
      EXPECT_EQ(simulation["outcome"].text, "clean") << simulation["name"].text;
    }
  }
  EXPECT_EQ(failed, 1);
  EXPECT_EQ(json["summary"]["clean"].number, 13);
}

TEST_F(CheckFindings, AllWithABrokenTextIsStatusTwoAndStillChecksTheOthers) {
  AddSimulation("Broken", "Reps=1; Density");
  Result result = Run({"check", "--project", SampleProject(), "--all"});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.out.find("== Sample simulation\n" + std::string(kAllPagesOk)), std::string::npos)
      << result.out;
  EXPECT_EQ(
      result.err,
      "zrsim check: Broken: The text is not a definition from line 1, column 16: \"=\" is missing after the "
      "key \"Density\".\n");
}

TEST_F(CheckFindings, CheckHelpDocumentsFormatsAndEveryExitStatus) {
  Result result = Run({"check", "--help"});
  EXPECT_EQ(result.status, 0);
  for (const char* text :
       {"--format text|json", "--all", "--strict", "  0  every page valid", "  1  a page refused",
        "  2  a mistake in the arguments", "  3  only warnings, with --strict"}) {
    EXPECT_NE(result.out.find(text), std::string::npos) << text;
  }
}

TEST_F(CheckFindings, EveryCommandHasHelp) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"--help"},
                                             {"check", "--help"},
                                             {"normalize", "--help"},
                                             {"show", "--help"},
                                             {"project", "--help"},
                                             {"project", "list", "--help"},
                                             {"project", "add-simulation", "--help"}}) {
    Result result = Run(words);
    EXPECT_EQ(result.status, 0) << words.front();
    EXPECT_EQ(result.out.rfind("Usage: zrsim", 0), 0u) << result.out;
  }
}

TEST_F(CheckFindings, ProjectListShowsDefinitionsAsWordsWithoutLineBreaks) {
  Result result = Run({"project", "list", SampleProject()});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out.find('\r'), std::string::npos);
  EXPECT_EQ(result.out.find("\\r\\n"), std::string::npos) << result.out;
  EXPECT_NE(
      result.out.find("  1 Systematic parallel lines: type Parallel, spacing 500, stratum layer Strata, "
                      "truncation 200\n"),
      std::string::npos)
      << result.out;
}

TEST_F(CheckFindings, NormalizeKeepsTheControlsLineBreaksExactly) {
  Result result = Run({"normalize", "--project", SampleProject(), "--simulation", "Sample simulation"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.out.rfind("Engine=SIM;\r\nTransects=Survey /ObjectID=3;\r\n", 0), 0u);
  EXPECT_EQ(result.out.substr(result.out.size() - 2), "\r\n");
  EXPECT_EQ(result.out.find("\r\n\n"), std::string::npos);
}

}  // namespace

namespace {

using CheckMessages = CliFixture;

TEST_F(CheckMessages, UnknownSimulationNameIsQuotedWithoutRawControlCharacters) {
  Result result = Run({"check", "--project", SampleProject(), "--simulation", "Odd\rname"});
  EXPECT_EQ(result.status, 2);
  EXPECT_EQ(result.err.find('\r'), std::string::npos);
  EXPECT_NE(result.err.find("no simulation named 'Odd\\rname'"), std::string::npos) << result.err;
}

}  // namespace

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "zrsimprp/lint/DefinitionLint.h"
#include "zrsimprp/lint/LintCodes.h"

namespace zrsimprp {
namespace {

// The findings of the words and Booleans the entry table gives values and fields, with their texts
// and order, on a text without a project.
std::vector<std::string> Findings(const std::string& text) {
  std::vector<std::string> found;
  for (const Finding& finding : DefinitionLint(nullptr).Check(text).findings) {
    found.push_back(std::string(finding.code) + " [" + finding.entry + "/" + finding.field + "] " +
                    finding.sentence);
  }
  return found;
}

std::string Code(const char* code) { return code; }

TEST(EntryRuleFindings, ValueWordsNameTheEntryAndTheClosestWord) {
  EXPECT_EQ(
      Findings("Transects=Surway /ObjectID=1;"),
      std::vector<std::string>{Code(lint_code::kUnknownWord) +
                               " [Transects/] The value \"Surway\" of the entry \"Transects\" is not one of "
                               "Design, Survey, so a single survey is chosen and its identifier is not read; "
                               "the closest is \"Survey\"."});
  EXPECT_EQ(
      Findings("PopSize=\"Fixed M\" /Values=1;"),
      std::vector<std::string>{Code(lint_code::kUnknownWord) +
                               " [PopSize/] The value \"Fixed M\" of the entry \"PopSize\" is not one of "
                               "Fixed N, Poisson N, Fixed D, so it changes nothing; the closest is "
                               "\"Fixed N\"."});
  EXPECT_EQ(
      Findings("Detectability=Hazard /ParamByStratum=False;"),
      std::vector<std::string>{Code(lint_code::kUnknownWord) +
                               " [Detectability/] The value \"Hazard\" of the entry \"Detectability\" is not "
                               "one of Half-Normal, Hazard Rate, so \"Half-Normal\" is selected; the closest "
                               "is \"Hazard Rate\"."});
}

TEST(EntryRuleFindings, FieldWordsNameTheirField) {
  EXPECT_EQ(
      Findings("Clusters=True /Distribution=Poison /param=3;"),
      std::vector<std::string>{Code(lint_code::kUnknownWord) +
                               " [Clusters/Distribution] The value \"Poison\" of the field \"Distribution\" "
                               "of the entry \"Clusters\" is not one of pmf, Poisson, Negative-Binomial, so "
                               "no cluster size distribution is chosen; the closest is \"Poisson\"."});
  EXPECT_EQ(Findings("ContinuousCov=size /distribution=Normel /param=3,1;"),
            std::vector<std::string>{Code(lint_code::kUnknownWord) +
                                     " [ContinuousCov/distribution] The value \"Normel\" of the field "
                                     "\"distribution\" of the entry \"ContinuousCov\" is not one of Normal, "
                                     "Log-Normal, so no distribution is chosen; the closest is \"Normal\"."});
}

TEST(EntryRuleFindings, BooleansOfValuesAndFields) {
  EXPECT_EQ(
      Findings("Clusters=Maybe;"),
      std::vector<std::string>{Code(lint_code::kNotABooleanIgnored) +
                               " [Clusters/] The value \"Maybe\" of the entry \"Clusters\" is not True or "
                               "False, so clusters are switched off."});
  EXPECT_EQ(Findings("Detectability=Half-Normal /ParamByStratum=yes;"),
            std::vector<std::string>{Code(lint_code::kNotABooleanIgnored) +
                                     " [Detectability/ParamByStratum] The value \"yes\" of the field "
                                     "\"ParamByStratum\" is not True or False, so it is read as False."});
  // A field that is not given is not checked (the one empty slot it leaves reads as False).
  EXPECT_TRUE(Findings("Detectability=Half-Normal;").empty());
}

TEST(EntryRuleFindings, AWordAndABooleanOfOneEntryComeInFieldOrder) {
  const std::vector<std::string> found = Findings("Detectability=Hazard /ParamByStratum=yes;");
  ASSERT_EQ(found.size(), 2u);
  EXPECT_EQ(found[0].rfind(Code(lint_code::kUnknownWord) + " [Detectability/]", 0), 0u) << found[0];
  EXPECT_EQ(found[1].rfind(Code(lint_code::kNotABooleanIgnored) + " [Detectability/ParamByStratum]", 0), 0u)
      << found[1];
}

}  // namespace
}  // namespace zrsimprp

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {
namespace {

const std::string kPlease = "  Please change the values you have provided.";

class CModGlobalTest : public ::testing::Test {
 protected:
  void SetUp() override { CModGlobal::Clear(); }
  void TearDown() override { CModGlobal::Clear(); }
};

// Records the order in which the globals are fetched from the database.
class OrderRecordingDatabase : public MemoryProjectDatabase {
 public:
  std::shared_ptr<ProjectSettings> Settings() override {
    order.push_back("Settings");
    return MemoryProjectDatabase::Settings();
  }
  std::shared_ptr<LayerCatalogue> Companion() override {
    order.push_back("Companion");
    return MemoryProjectDatabase::Companion();
  }
  std::vector<std::string> order;
};

TEST_F(CModGlobalTest, GlobalsAreEmptyUntilADatabaseIsSet) {
  EXPECT_EQ(CModGlobal::ProjectDatabase(), nullptr);
  EXPECT_EQ(CModGlobal::ProjectSettings(), nullptr);
  EXPECT_EQ(CModGlobal::ProjectCompanion(), nullptr);
}

TEST_F(CModGlobalTest, SettingTheDatabaseFetchesSettingsThenCompanion) {
  auto database = std::make_shared<OrderRecordingDatabase>();
  CModGlobal::SetProjectDatabase(database);
  EXPECT_EQ(CModGlobal::ProjectDatabase(), database);
  EXPECT_NE(CModGlobal::ProjectSettings(), nullptr);
  EXPECT_NE(CModGlobal::ProjectCompanion(), nullptr);
  EXPECT_EQ(database->order, (std::vector<std::string>{"Settings", "Companion"}));
}

TEST_F(CModGlobalTest, SecondAssignmentReplacesAllThree) {
  auto first = std::make_shared<MemoryProjectDatabase>();
  auto second = std::make_shared<MemoryProjectDatabase>();
  first->SetSetting("S", "K", Variant(std::string("first")));
  second->SetSetting("S", "K", Variant(std::string("second")));
  CModGlobal::SetProjectDatabase(first);
  const auto first_settings = CModGlobal::ProjectSettings();
  const auto first_companion = CModGlobal::ProjectCompanion();
  CModGlobal::SetProjectDatabase(second);
  EXPECT_EQ(CModGlobal::ProjectDatabase(), second);
  EXPECT_NE(CModGlobal::ProjectSettings(), first_settings);
  EXPECT_NE(CModGlobal::ProjectCompanion(), first_companion);
  EXPECT_EQ(VariantToText(CModGlobal::ProjectSettings()->ReadSetting(0, 0, "S", "K", Variant())), "second");
  EXPECT_EQ(second->Calls("Settings"), 1);
  EXPECT_EQ(second->Calls("Companion"), 1);
}

TEST_F(CModGlobalTest, FailingCompanionLeavesTheGlobalsAsTheyWere) {
  auto good = std::make_shared<MemoryProjectDatabase>();
  CModGlobal::SetProjectDatabase(good);
  auto bad = std::make_shared<MemoryProjectDatabase>();
  bad->FailOn("Companion");
  EXPECT_THROW(CModGlobal::SetProjectDatabase(bad), RuntimeError);
  EXPECT_EQ(CModGlobal::ProjectDatabase(), good);
}

TEST_F(CModGlobalTest, ClearDropsAllThree) {
  CModGlobal::SetProjectDatabase(std::make_shared<MemoryProjectDatabase>());
  CModGlobal::Clear();
  EXPECT_EQ(CModGlobal::ProjectDatabase(), nullptr);
  EXPECT_EQ(CModGlobal::ProjectSettings(), nullptr);
  EXPECT_EQ(CModGlobal::ProjectCompanion(), nullptr);
}

std::string CheckMessage(const std::string& name, bool* accepted = nullptr) {
  std::string message = "untouched";
  const bool ok = CModGlobal::CheckCovariateName(name, message);
  if (accepted != nullptr) *accepted = ok;
  return message;
}

TEST(CovariateNameCheck, EmptyNamePassesAndLeavesMessageUntouched) {
  bool accepted = false;
  EXPECT_EQ(CheckMessage("", &accepted), "untouched");
  EXPECT_TRUE(accepted);
}

TEST(CovariateNameCheck, SpaceAndSemicolonGiveTheSpaceMessage) {
  bool accepted = true;
  EXPECT_EQ(CheckMessage("a;b c", &accepted),
            "Spaces are not allowed in covariate or covariate value names." + kPlease);
  EXPECT_FALSE(accepted);
}

TEST(CovariateNameCheck, SemicolonMessage) {
  EXPECT_EQ(CheckMessage("a;b"),
            "Semicolons are not allowed in covariate or covariate value names." + kPlease);
}

TEST(CovariateNameCheck, ColonMessage) {
  EXPECT_EQ(CheckMessage("a:b"), "Colons are not allowed in covariate or covariate value names." + kPlease);
}

TEST(CovariateNameCheck, MinusGivesTheMathematicalSymbolsMessage) {
  bool accepted = true;
  EXPECT_EQ(CheckMessage("body-size", &accepted),
            "Mathematical symbols are not allowed in covariate or covariate factor names." + kPlease);
  EXPECT_FALSE(accepted);
}

TEST(CovariateNameCheck, EveryMathematicalSymbolIsRefused) {
  for (const char* name : {"a/b", "a*b", "a+b", "a-b", "a=b", "a<b", "a>b", "a^b"}) {
    EXPECT_EQ(CheckMessage(name),
              "Mathematical symbols are not allowed in covariate or covariate factor names." + kPlease)
        << name;
  }
}

TEST(CovariateNameCheck, EveryOtherListedSymbolIsRefused) {
  for (const char* name : {"a@b", "a,b", "a'b", "a?b", "a!b", "a&b", "a~b", "a|b"}) {
    EXPECT_EQ(
        CheckMessage(name),
        "Symbols other than '.' or '_' are not allowed in covariate or covariate factor names." + kPlease)
        << name;
  }
}

TEST(CovariateNameCheck, ColonBeatsMathematicalSymbols) {
  EXPECT_EQ(CheckMessage("a+b:c"), "Colons are not allowed in covariate or covariate value names." + kPlease);
}

TEST(CovariateNameCheck, BracketsAndOtherCharactersPass) {
  for (const char* name : {"size(m)", "a[1]", "x{y}", "a.b_c", "#$%\"", "ABC123"}) {
    bool accepted = false;
    EXPECT_EQ(CheckMessage(name, &accepted), "untouched") << name;
    EXPECT_TRUE(accepted) << name;
  }
}

}  // namespace
}  // namespace zrsimprp

#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {

// A small project: one survey (1) laid out by design 10, whose stratum layer "Strata" holds the
// strata A, B and C; one data filter (5) and one model definition (7) that the Analyses page offers.
inline std::shared_ptr<MemoryProjectDatabase> MakeSampleProject() {
  auto database = std::make_shared<MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.id_field = "ID";
  layer.label_field = "Label";
  layer.ids = {Variant(int32_t{1}), Variant(int32_t{2}), Variant(int32_t{3})};
  layer.labels = {Variant(std::string("A")), Variant(std::string("B")), Variant(std::string("C"))};
  database->AddLayer(layer);
  database->AddDataFilter(5, "All data");
  database->AddModelDefinition(7, "HN model", "MA", "");
  return database;
}

// Every test starts from empty process-wide globals, since they are shared by every control.
class ControlTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CModGlobal::Clear();
    database_ = MakeSampleProject();
  }
  void TearDown() override { CModGlobal::Clear(); }

  // A control on the sample project, given `definition` and initialised.
  std::unique_ptr<SIMProperties> Open(const std::string& definition) {
    auto control = std::make_unique<SIMProperties>(platform_);
    control->SetProjectDatabase(database_);
    control->SetDefinition(definition);
    control->Initialize();
    return control;
  }

  // The entries of a written text, in order.
  static std::vector<DefinitionEntry> Entries(const std::string& text) {
    std::vector<DefinitionEntry> entries;
    std::string_view rest(text);
    while (!rest.empty()) {
      DefinitionEntry entry;
      DefinitionEntryCodec::Instance().ReadNextEntry(rest, entry);
      if (!entry.key.empty()) entries.push_back(entry);
    }
    return entries;
  }
  static std::vector<std::string> Keys(const std::string& text) {
    std::vector<std::string> keys;
    for (const DefinitionEntry& entry : Entries(text)) keys.push_back(entry.key);
    return keys;
  }
  // The first entry with that key; a test failure when there is none.
  static DefinitionEntry EntryOf(const std::string& text, const std::string& key) {
    for (const DefinitionEntry& entry : Entries(text)) {
      if (entry.key == key) return entry;
    }
    ADD_FAILURE() << "no entry " << key << " in " << text;
    return DefinitionEntry();
  }

  // Every message shown so far, for failure output.
  std::string AllMessages() const {
    std::string all;
    for (const auto& message : platform_.Messages()) all += "[" + message.title + "] " + message.text + "\n";
    return all;
  }

  void NoLineBreaks() { database_->SetSetting("Properties", "InsertCrLf", Variant(int32_t{0})); }

  HeadlessPlatform platform_;
  std::shared_ptr<MemoryProjectDatabase> database_;
};

}  // namespace zrsimprp

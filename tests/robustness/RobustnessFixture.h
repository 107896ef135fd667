#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {

// A small project: surveys 1 and 2 laid out by design 10, whose stratum layer "Strata" (kind 3,
// child of the region "Region", kind 1) holds the strata North, Middle and South; two data filters
// and two model definitions for the Analyses page.
inline std::shared_ptr<MemoryProjectDatabase> MakeRobustnessProject() {
  auto project = std::make_shared<MemoryProjectDatabase>();
  project->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  project->AddSurvey(1, "Line survey", 1, 10);
  project->AddSurvey(2, "Second survey", 1, 10);

  MemoryProjectDatabase::LayerData region;
  region.name = "Region";
  region.kind = 1;
  region.ids = {Variant(int32_t{1})};
  project->AddLayer(region);

  MemoryProjectDatabase::LayerData strata;
  strata.name = "Strata";
  strata.kind = 3;
  strata.parent = "Region";
  strata.label_field = "Label";
  strata.ids = {Variant(int32_t{1}), Variant(int32_t{2}), Variant(int32_t{3})};
  strata.labels = {Variant(std::string("North")), Variant(std::string("Middle")),
                   Variant(std::string("South"))};
  project->AddLayer(strata);

  project->AddDataFilter(5, "All data");
  project->AddModelDefinition(7, "HN model", "MRDS", "");
  project->SetDefaultDefinition("SIM", Variant(std::string("Engine=SIM;Reps=1;")));
  return project;
}

// What became of one definition text: whether Initialize raised, every message box shown, and the
// text rebuilt afterwards.
struct LoadOutcome {
  bool raised = false;
  std::string raised_description;
  std::vector<HeadlessPlatform::Message> messages;
  std::string definition;
};

class RobustnessTest : public ::testing::Test {
 protected:
  static constexpr const char* kReportFirstLine = "The following internal error has occured in Pellunar:";
  static constexpr const char* kReportTitle = "Pellunar Internal Error";

  void SetUp() override {
    CModGlobal::Clear();
    project_ = MakeRobustnessProject();
  }
  void TearDown() override { CModGlobal::Clear(); }

  // Sets the text on a fresh control of the project, initialises it, then rebuilds the text; the
  // rebuild must never throw.
  LoadOutcome Load(const std::string& text) {
    control_ = std::make_unique<SIMProperties>(platform_);
    control_->SetProjectDatabase(project_);
    control_->SetDefinition(text);
    LoadOutcome outcome;
    try {
      control_->Initialize();
    } catch (const RuntimeError& error) {
      outcome.raised = true;
      outcome.raised_description = error.description;
    }
    EXPECT_NO_THROW(outcome.definition = control_->Definition());
    outcome.messages = platform_.Messages();
    platform_.ClearMessages();
    return outcome;
  }

  // The lines of a report or message text (CR LF separated).
  static std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (true) {
      const size_t end = text.find("\r\n", start);
      lines.push_back(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
      if (end == std::string::npos) break;
      start = end + 2;
    }
    return lines;
  }
  static std::string FirstLine(const std::string& text) { return Lines(text).front(); }

  // The "(Error raised from: ...)" line of an internal-error report, or "".
  static std::string RaisedFrom(const std::string& report) {
    for (const std::string& line : Lines(report)) {
      if (line.rfind("(Error raised from: ", 0) == 0) return line;
    }
    return std::string();
  }
  // The error's description: the third line of an internal-error report.
  static std::string Description(const std::string& report) {
    const std::vector<std::string> lines = Lines(report);
    return lines.size() > 2 ? lines[2] : std::string();
  }

  // Asserts that the load ended in exactly one internal-error report, raised from `routine` of the
  // control, and returns its text.
  static std::string SingleReport(const LoadOutcome& outcome, const std::string& routine) {
    EXPECT_FALSE(outcome.raised) << outcome.raised_description;
    EXPECT_EQ(outcome.messages.size(), 1u);
    if (outcome.messages.empty()) return std::string();
    const HeadlessPlatform::Message& message = outcome.messages.front();
    EXPECT_EQ(message.title, kReportTitle);
    EXPECT_EQ(message.icon, MessageIcon::Critical);
    EXPECT_EQ(FirstLine(message.text), kReportFirstLine);
    EXPECT_EQ(RaisedFrom(message.text), "(Error raised from: ZrSIMPrp.SIM." + routine + ")");
    return message.text;
  }

  // Asserts a normal result: nothing raised, no message box, a rebuilt text.
  static void ExpectNormal(const LoadOutcome& outcome) {
    EXPECT_FALSE(outcome.raised) << outcome.raised_description;
    for (const HeadlessPlatform::Message& message : outcome.messages) ADD_FAILURE() << message.text;
    EXPECT_FALSE(outcome.definition.empty());
  }

  // The entries of a text, in order (entries with an empty key left out).
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
  static int CountKey(const std::string& text, const std::string& key) {
    int count = 0;
    for (const DefinitionEntry& entry : Entries(text)) count += entry.key == key ? 1 : 0;
    return count;
  }
  static DefinitionEntry EntryOf(const std::string& text, const std::string& key) {
    for (const DefinitionEntry& entry : Entries(text)) {
      if (entry.key == key) return entry;
    }
    ADD_FAILURE() << "no entry " << key << " in " << text;
    return DefinitionEntry();
  }

  HeadlessPlatform platform_;
  std::shared_ptr<MemoryProjectDatabase> project_;
  std::unique_ptr<SIMProperties> control_;
};

}  // namespace zrsimprp

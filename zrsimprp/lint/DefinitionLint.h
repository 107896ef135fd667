#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zrsimprp/entries/EntryRow.h"
#include "zrsimprp/lint/DefinitionEntries.h"
#include "zrsimprp/lint/Finding.h"
#include "zrsimprp/lint/ProjectFacts.h"
#include "zrsimprp/lint/StrataLint.h"

namespace zrsimprp {

// What a definition text holds beyond what the pages refuse: names no page reads, values the pages
// take but that mean nothing (not numbers, out of range), references the project cannot resolve and
// entries that the next save drops. It follows ReadDefinition's order over the text, tracking the
// strata the pages would have at each entry, and never touches the control or the project globals.
class DefinitionLint {
 public:
  struct Report {
    bool is_definition = true;  // false: the text breaks (one ZR001 finding says where)
    std::vector<Finding> findings;
  };

  // Without facts (no project) the references and the strata are not checked.
  explicit DefinitionLint(ProjectFacts* facts) : facts_(facts) {}

  Report Check(std::string_view text);

 private:
  // What a number must be, beyond being one (the entry table's rules, by their short names here).
  using Rule = NumberRule;
  static constexpr Rule kAnyNumber = NumberRule::kAnyNumber;
  static constexpr Rule kNotNegative = NumberRule::kNotNegative;
  static constexpr Rule kPositive = NumberRule::kPositive;
  static constexpr Rule kWholePositive = NumberRule::kWholePositive;
  static constexpr Rule kWholeNotNegative = NumberRule::kWholeNotNegative;
  static constexpr Rule kProbability = NumberRule::kProbability;
  // The lint's own check of an entry whose table row says it has one.
  using OwnCheck = void (DefinitionLint::*)(const DefinitionEntry& entry);

  void CheckEntry(const DefinitionEntries::Located& located);
  // The rules the entry table gives the value and the fields, then the entry's own check.
  void CheckRules(const DefinitionEntry& entry, const EntryRow& row);
  void CheckRule(const DefinitionEntry& entry, const std::string& field, const std::string& value,
                 const ValueRule& rule);
  static OwnCheck OwnCheckOf(const std::string& key);
  void CheckFields(const DefinitionEntry& entry);
  void CheckTransects(const DefinitionEntry& entry);
  void CheckStrataLayer(const DefinitionEntry& entry);
  void CheckDensity(const DefinitionEntry& entry);
  void CheckHotspot(const DefinitionEntry& entry);
  void CheckPopSize(const DefinitionEntry& entry);
  void CheckClusters(const DefinitionEntry& entry);
  void CheckPmf(const DefinitionEntry& entry);
  void CheckCategorical(const DefinitionEntry& entry);
  void CheckContinuous(const DefinitionEntry& entry);
  void CheckDetectability(const DefinitionEntry& entry);
  void CheckDetFuncParam(const DefinitionEntry& entry);
  void CheckParallel(const DefinitionEntry& entry);
  void CheckReference(const DefinitionEntry& entry);
  void CheckDuplicates(const std::vector<DefinitionEntries::Located>& entries);
  void CheckAfterReading();
  // Makes the value findings of several strata with one cause (the same code, entry and field) one
  // finding that names at most five strata and keeps them all in its list.
  void MergeStrataFindings();

  // Checks one number; false when it is not a number or breaks the rule.
  bool CheckNumber(const std::string& field, const std::string& subject, const std::string& text, Rule rule,
                   const std::string& place_kind = "", const std::string& place = "");
  void CheckWord(const DefinitionEntry& entry, const std::string& field, const std::string& word,
                 const std::vector<std::string>& words, const std::string& consequence);
  void CheckSum(const DefinitionEntry& entry, const std::string& field,
                const std::vector<std::string>& probabilities);
  // Values given for the strata: more than the table has columns when they are read stops the reading.
  void CheckColumnCount(const DefinitionEntry& entry, const std::string& field, const std::string& what,
                        std::size_t count);
  // The stratum label for value column `index` (from 0) as the pages would show it.
  std::string StratumName(std::size_t index) const;
  // The stratum of value column `index` as a finding lists it.
  FindingStratum StratumAt(std::size_t index) const;
  void SelectSurvey(const std::string& survey_id);
  std::optional<std::size_t> StrataCount() const;

  Finding& Add(const char* code, Severity severity, const std::string& entry, const std::string& field,
               const std::string& sentence);

  ProjectFacts* facts_;
  Report report_;
  int line_ = 0;
  std::string current_key_;  // the entry being checked, as the text spells its key
  // What the pages hold while the text is read; fresh for every Check.
  struct ReadState {
    std::string survey;
    std::string layer;
    bool strata_handed_over = false;
    std::string density_description;
    std::string population_size;
    std::string detection_function = "Half-Normal";
    std::size_t hotspot_count = 0;
    std::vector<int> shape_lines;
    // What the checks against the strata layer and the design need, gathered on the way.
    StrataLint::Values values;
  };
  ReadState read_;
};

}  // namespace zrsimprp

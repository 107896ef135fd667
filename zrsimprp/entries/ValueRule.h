#pragma once

#include <string>
#include <vector>

namespace zrsimprp {

// What a number must be, beyond being one.
enum class NumberRule {
  kAnyNumber,
  kNotNegative,
  kPositive,
  kWholePositive,
  kWholeNotNegative,
  kProbability
};

// What `zrsim check` expects of an entry's main value or of one of its fields. What depends on other
// entries or on the project (values per stratum, lists that must match, parameters) is left to the
// lint's own check of the entry (EntryRow::own_check).
struct ValueRule {
  enum class Kind {
    kFree,      // anything goes (a name, a layer the project is asked about elsewhere)
    kNumber,    // a number following `number`, named `subject` in findings
    kWord,      // one of `words`; `consequence` says what the page does with another
    kBoolean,   // True or False; `consequence` says what the page does with another
    kReference  // the identifier of a project object ("0" for none)
  };

  static ValueRule Free() { return ValueRule(); }
  static ValueRule Number(NumberRule number, const std::string& subject);
  static ValueRule Word(const std::vector<std::string>& words, const std::string& consequence);
  static ValueRule Boolean(const std::string& consequence);
  static ValueRule Reference();
  // The same rule, checked only when the entry gives the field.
  ValueRule WhenGiven() const;

  Kind kind = Kind::kFree;
  NumberRule number = NumberRule::kAnyNumber;
  std::string subject;
  std::vector<std::string> words;
  std::string consequence;
  bool when_given = false;
};

}  // namespace zrsimprp

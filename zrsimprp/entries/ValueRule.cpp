#include "zrsimprp/entries/ValueRule.h"

namespace zrsimprp {

ValueRule ValueRule::Number(NumberRule number, const std::string& subject) {
  ValueRule rule;
  rule.kind = Kind::kNumber;
  rule.number = number;
  rule.subject = subject;
  return rule;
}

ValueRule ValueRule::Word(const std::vector<std::string>& words, const std::string& consequence) {
  ValueRule rule;
  rule.kind = Kind::kWord;
  rule.words = words;
  rule.consequence = consequence;
  return rule;
}

ValueRule ValueRule::Boolean(const std::string& consequence) {
  ValueRule rule;
  rule.kind = Kind::kBoolean;
  rule.consequence = consequence;
  return rule;
}

ValueRule ValueRule::Reference() {
  ValueRule rule;
  rule.kind = Kind::kReference;
  return rule;
}

ValueRule ValueRule::WhenGiven() const {
  ValueRule rule = *this;
  rule.when_given = true;
  return rule;
}

}  // namespace zrsimprp

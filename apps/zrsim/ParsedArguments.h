#pragma once

#include <map>
#include <string>
#include <vector>

namespace zrsim {

// The options and positional words of one command, as ArgumentParser found them.
class ParsedArguments {
 public:
  bool Has(const std::string& option) const { return values_.count(option) > 0; }
  // The option's value, or `fallback` when the option was not given.
  std::string Value(const std::string& option, const std::string& fallback = "") const;
  const std::vector<std::string>& Positionals() const { return positionals_; }

  void SetValue(const std::string& option, const std::string& value) { values_[option] = value; }
  void AddPositional(const std::string& word) { positionals_.push_back(word); }

 private:
  std::map<std::string, std::string> values_;
  std::vector<std::string> positionals_;
};

}  // namespace zrsim

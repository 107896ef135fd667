#include "zrsim/ArgumentParser.h"

#include "zrsim/UsageError.h"

namespace zrsim {

ArgumentParser& ArgumentParser::Option(const std::string& name) {
  takes_value_[name] = true;
  return *this;
}

ArgumentParser& ArgumentParser::Flag(const std::string& name) {
  takes_value_[name] = false;
  return *this;
}

ArgumentParser& ArgumentParser::Positionals(std::size_t minimum, std::size_t maximum,
                                            const std::string& description) {
  minimum_positionals_ = minimum;
  maximum_positionals_ = maximum;
  positional_description_ = description;
  return *this;
}

bool ArgumentParser::AsksForHelp(const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    if (word == "--help" || word == "-h") return true;
  }
  return false;
}

ParsedArguments ArgumentParser::Parse(const std::vector<std::string>& words) const {
  ParsedArguments parsed;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word.size() < 2 || word.compare(0, 2, "--") != 0) {
      if (parsed.Positionals().size() == maximum_positionals_) {
        Fail("unexpected argument '" + word + "'");
      }
      parsed.AddPositional(word);
      continue;
    }
    std::string name = word.substr(2);
    std::string value;
    bool inline_value = false;
    std::size_t equals = name.find('=');
    if (equals != std::string::npos) {
      value = name.substr(equals + 1);
      name.erase(equals);
      inline_value = true;
    }
    auto option = takes_value_.find(name);
    if (option == takes_value_.end()) Fail("unknown option '--" + name + "'");
    if (!option->second) {
      if (inline_value) Fail("option '--" + name + "' takes no value");
    } else if (!inline_value) {
      // A following option word is never taken as a value: "--project --simulation x" is a mistake.
      if (i + 1 >= words.size() || words[i + 1].compare(0, 2, "--") == 0) {
        Fail("option '--" + name + "' needs a value");
      }
      value = words[++i];
    }
    if (parsed.Has(name)) Fail("option '--" + name + "' is given more than once");
    Store(parsed, name, value);
  }
  if (parsed.Positionals().size() < minimum_positionals_) {
    Fail("missing " + positional_description_);
  }
  return parsed;
}

void ArgumentParser::Store(ParsedArguments& parsed, const std::string& name, const std::string& value) const {
  parsed.SetValue(name, value);
}

void ArgumentParser::Fail(const std::string& message) const { throw UsageError(command_ + ": " + message); }

}  // namespace zrsim

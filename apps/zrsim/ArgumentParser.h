#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "zrsim/ParsedArguments.h"

namespace zrsim {

// Parses "--name value", "--name=value" and "--flag" options and positional words for one command.
// Every mistake (unknown option, missing or repeated value, surplus word) raises UsageError with a
// message that names the command.
class ArgumentParser {
 public:
  explicit ArgumentParser(std::string command) : command_(std::move(command)) {}

  ArgumentParser& Option(const std::string& name);  // takes a value
  ArgumentParser& Flag(const std::string& name);    // takes none
  ArgumentParser& Positionals(std::size_t minimum, std::size_t maximum, const std::string& description);

  ParsedArguments Parse(const std::vector<std::string>& words) const;

  // True when the words ask for help ("--help" or "-h" anywhere).
  static bool AsksForHelp(const std::vector<std::string>& words);

 private:
  void Store(ParsedArguments& parsed, const std::string& name, const std::string& value) const;
  [[noreturn]] void Fail(const std::string& message) const;

  std::string command_;
  std::map<std::string, bool> takes_value_;
  std::size_t minimum_positionals_ = 0;
  std::size_t maximum_positionals_ = 0;
  std::string positional_description_;
};

}  // namespace zrsim

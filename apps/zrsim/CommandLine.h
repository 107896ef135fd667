#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zrsim {

// The zrsim program without its main(): takes the arguments after the program name and the three
// standard streams, runs one command and returns the exit status (see ExitStatus.h). Never throws.
class CommandLine {
 public:
  CommandLine(std::istream& in, std::ostream& out, std::ostream& err) : in_(in), out_(out), err_(err) {}

  int Run(const std::vector<std::string>& words);

  static std::string Usage();

 private:
  int Dispatch(const std::vector<std::string>& words);

  std::istream& in_;
  std::ostream& out_;
  std::ostream& err_;
};

}  // namespace zrsim

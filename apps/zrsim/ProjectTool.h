#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "zrsim/InputFiles.h"
#include "zrsim/ParsedArguments.h"

namespace zrsim {

// "zrsim project ...": creates the sample project, lists a project, and adds layers, designs,
// surveys, data filters, model definitions and simulations to it. Each change is one transaction
// of the project file.
class ProjectTool {
 public:
  ProjectTool(std::ostream& out, InputFiles& files) : out_(out), files_(files) {}

  // `words` starts after "project".
  int Run(const std::vector<std::string>& words);

  static std::string Usage();

 private:
  int Sample(const std::vector<std::string>& words);
  int List(const std::vector<std::string>& words);
  int ImportLayer(const std::vector<std::string>& words);
  int AddDesign(const std::vector<std::string>& words);
  int AddSurvey(const std::vector<std::string>& words);
  int AddFilter(const std::vector<std::string>& words);
  int AddModel(const std::vector<std::string>& words);
  int AddSimulation(const std::vector<std::string>& words);

  // A required option's value; UsageError when missing.
  static std::string Required(const std::string& command, const ParsedArguments& arguments,
                              const std::string& option);
  // A whole number option; UsageError when missing (unless a fallback is given) or not a number.
  static int32_t Integer(const std::string& command, const ParsedArguments& arguments,
                         const std::string& option);
  static int32_t Integer(const std::string& command, const ParsedArguments& arguments,
                         const std::string& option, int32_t fallback);
  // --kind: one of the layer kinds the project defines; UsageError naming them otherwise.
  static int32_t Kind(const std::string& command, const ParsedArguments& arguments);
  // Runs a change of the project; a failure of the project file becomes a UsageError.
  template <class Body>
  static void Change(const std::string& command, Body&& body);
  static std::string Help(const std::string& subcommand);

  std::ostream& out_;
  InputFiles& files_;
};

}  // namespace zrsim

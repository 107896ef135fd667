#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "zrsim/InputFiles.h"
#include "zrsim/ParsedArguments.h"
#include "zrsim/UsageError.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsim {

// "zrsim project ...": creates an empty or the sample project, lists a project, and adds layers,
// designs, surveys, data filters, model definitions and simulations to it (ProjectEditCommands
// changes and removes them). Each change is one transaction of the project file.
class ProjectTool {
 public:
  ProjectTool(std::ostream& out, InputFiles& files) : out_(out), files_(files) {}

  // `words` starts after "project".
  int Run(const std::vector<std::string>& words);

  static std::string Usage();

  // A required option's value; UsageError when missing.
  static std::string Required(const std::string& command, const ParsedArguments& arguments,
                              const std::string& option);
  // A whole number option; UsageError when missing (unless a fallback is given) or not a number.
  static int32_t Integer(const std::string& command, const ParsedArguments& arguments,
                         const std::string& option);
  static int32_t Integer(const std::string& command, const ParsedArguments& arguments,
                         const std::string& option, int32_t fallback);
  // Runs a change of the project; a failure of the project file becomes a UsageError.
  template <class Body>
  static void Change(const std::string& command, Body&& body) {
    try {
      body();
    } catch (const UsageError&) {
      throw;
    } catch (const zrsimprp::RuntimeError& error) {
      throw UsageError(command + ": " + error.description);
    } catch (const std::exception& error) {
      throw UsageError(command + ": " + error.what());
    }
  }

 private:
  int New(const std::vector<std::string>& words);
  int Sample(const std::vector<std::string>& words);
  int List(const std::vector<std::string>& words);
  int ImportLayer(const std::vector<std::string>& words);
  int AddDesign(const std::vector<std::string>& words);
  int AddSurvey(const std::vector<std::string>& words);
  int AddFilter(const std::vector<std::string>& words);
  int AddModel(const std::vector<std::string>& words);
  int AddSimulation(const std::vector<std::string>& words);

  // --kind: one of the layer kinds the project defines; UsageError naming them otherwise.
  static int32_t Kind(const std::string& command, const ParsedArguments& arguments);
  // The definition text of a new design: its strata layer and, when --type is given, its type,
  // spacing and truncation, entered as the sample project's designs are.
  // The commands that remove the layer just imported and import it again reprojected to metres.
  static std::string ReimportCommand(const std::string& path, const std::vector<std::string>& words);
  static std::string DesignDefinition(const std::string& command, const ParsedArguments& arguments);
  static std::string Help(const std::string& subcommand);

  std::ostream& out_;
  InputFiles& files_;
};

}  // namespace zrsim

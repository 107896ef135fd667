#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/lint/DefinitionLint.h"
#include "zrsimprp/lint/ProjectFacts.h"

namespace zrsimprp {

// A small project: survey 3 (design 1, strata A, B, C in the layer "Strata" under "Region"), a
// survey 4 that cannot be chosen, a layer "Blocks" no design offers, data filter 2, and model
// definitions 1 (MRDS ds), 2 (MRDS io), 3 (MA) and 4 (DSM).
inline std::shared_ptr<MemoryProjectDatabase> LintTestProject() {
  auto project = std::make_shared<MemoryProjectDatabase>();
  project->AddDesign(1, "Lines", "Engine=DES;\r\n\"STRATUM LAYER\"=Strata;\r\n");
  project->AddSurvey(3, "Survey A", 1, 1);
  project->AddSurvey(4, "Draft", 0, 1);
  project->AddLayer({"Region", 1, "", "ID", "Name", {Variant(int32_t{1})}, {Variant(std::string("All"))}});
  project->AddLayer({"Strata",
                     2,
                     "Region",
                     "ID",
                     "Name",
                     {Variant(int32_t{1}), Variant(int32_t{2}), Variant(int32_t{3})},
                     {Variant(std::string("A")), Variant(std::string("B")), Variant(std::string("C"))}});
  project->AddLayer({"Blocks", 2, "Region", "ID", "", {Variant(int32_t{1})}, {}});
  project->AddDataFilter(2, "Truncate");
  project->AddModelDefinition(1, "HN", "MRDS", "Method=ds;");
  project->AddModelDefinition(2, "IO", "MRDS", "Method=io;");
  project->AddModelDefinition(3, "HR", "MA", "");
  project->AddModelDefinition(4, "Smooth", "DSM", "");
  return project;
}

// A definition that the project above gives no finding for, one entry a line (CR LF).
inline std::vector<std::string> CleanEntries() {
  return {"Engine=SIM;",
          "Transects=Survey /ObjectID=3;",
          "StrataLayer=Strata;",
          "Reps=10;",
          "Density=Uniform /Densities=1,2,3 /GridSpace=100;",
          "PopSize=\"Fixed N\" /Values=10,20,30;",
          "Clusters=False;",
          "Detectability=Half-Normal /ParamByStratum=False;",
          "DetFuncParam=\"\" /Scale=60;",
          "Analyse=True;",
          "DataFilter=2;",
          "ModelDef=1;",
          "ModelSelection=AIC;",
          "ParallelProcessing=False /cores=\"max cores\";"};
}

// The clean definition with the entry of `key` replaced by `entry` ("" removes it), or `entry`
// added at the end when no entry has that key.
inline std::string DefinitionWith(const std::string& key, const std::string& entry) {
  std::string text;
  bool replaced = false;
  for (const std::string& line : CleanEntries()) {
    if (line.compare(0, key.size() + 1, key + "=") == 0) {
      replaced = true;
      if (!entry.empty()) text += entry + "\r\n";
    } else {
      text += line + "\r\n";
    }
  }
  if (!replaced) text += entry + "\r\n";
  return text;
}

}  // namespace zrsimprp

// Feeds arbitrary definition texts to the lint, with and without a small project. Nothing may crash,
// hang or leak an exception; a text that is not a definition gives exactly one finding (ZR001), and
// every finding has a code, a sentence and a line within the text.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/lint/DefinitionLint.h"
#include "zrsimprp/lint/ProjectFacts.h"

namespace {

constexpr size_t kMaxInputSize = 64 * 1024;

std::shared_ptr<zrsimprp::MemoryProjectDatabase> SmallProject() {
  auto project = std::make_shared<zrsimprp::MemoryProjectDatabase>();
  project->AddDesign(1, "Lines", "\"STRATUM LAYER\"=Strata;");
  project->AddSurvey(3, "Survey", 1, 1);
  project->AddLayer({"Region", 1, "", "ID", "", {zrsimprp::Variant(int32_t{1})}, {}});
  project->AddLayer({"Strata",
                     2,
                     "Region",
                     "ID",
                     "Name",
                     {zrsimprp::Variant(int32_t{1}), zrsimprp::Variant(int32_t{2})},
                     {zrsimprp::Variant(std::string("A")), zrsimprp::Variant(std::string("B"))}});
  project->AddDataFilter(2, "Filter");
  project->AddModelDefinition(1, "HN", "MRDS", "Method=ds;");
  return project;
}

void Verify(const zrsimprp::DefinitionLint::Report& report, const std::string& text) {
  if (!report.is_definition && report.findings.size() != 1) std::abort();
  std::size_t lines = 1;
  for (char c : text) lines += c == '\n';
  for (const zrsimprp::Finding& finding : report.findings) {
    if (finding.code.size() != 5 || finding.sentence.empty()) std::abort();
    if (finding.line < 0 || static_cast<std::size_t>(finding.line) > lines) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > kMaxInputSize) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  static std::shared_ptr<zrsimprp::MemoryProjectDatabase> project = SmallProject();
  Verify(zrsimprp::DefinitionLint(nullptr).Check(text), text);
  zrsimprp::ProjectFacts facts(project);
  Verify(zrsimprp::DefinitionLint(&facts).Check(text), text);
  return 0;
}

#include "zrsim/SimulationChecker.h"

#include "zrsim/ControlSession.h"
#include "zrsim/PageChecker.h"
#include "zrsimprp/lint/DefinitionLint.h"
#include "zrsimprp/lint/PageCheckCause.h"

namespace zrsim {

SimulationChecker::SimulationChecker(std::shared_ptr<zrsimprp::ProjectDatabase> project)
    : project_(project), facts_(project) {}

SimulationCheck SimulationChecker::Check(const std::string& definition) {
  SimulationCheck check;
  zrsimprp::DefinitionLint::Report report = zrsimprp::DefinitionLint(&facts_).Check(definition);
  check.is_definition = report.is_definition;
  check.findings = std::move(report.findings);
  if (!check.is_definition) return check;

  ControlSession session;
  session.Load(project_, definition);
  check.pages = PageChecker(session).CheckAll();
  for (const PageVerdict& verdict : check.pages) {
    if (verdict.cause)
      check.findings.push_back(zrsimprp::PageCheckCause::Explain(verdict.page, *verdict.cause));
  }
  check.internal_errors = session.TakeInternalErrors();
  return check;
}

}  // namespace zrsim

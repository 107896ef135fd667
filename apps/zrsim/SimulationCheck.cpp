#include "zrsim/SimulationCheck.h"

namespace zrsim {

bool SimulationCheck::PageRefused() const {
  for (const PageVerdict& verdict : pages) {
    if (!verdict.valid) return true;
  }
  return false;
}

bool SimulationCheck::HasErrors() const {
  if (!is_definition || PageRefused() || !internal_errors.empty()) return true;
  for (const zrsimprp::Finding& finding : findings) {
    if (finding.severity == zrsimprp::Severity::kError) return true;
  }
  return false;
}

bool SimulationCheck::HasWarnings() const {
  for (const zrsimprp::Finding& finding : findings) {
    if (finding.severity == zrsimprp::Severity::kWarning) return true;
  }
  return false;
}

}  // namespace zrsim

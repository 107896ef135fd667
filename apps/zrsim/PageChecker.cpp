#include "zrsim/PageChecker.h"

#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsim {

std::vector<PageVerdict> PageChecker::CheckAll() {
  std::vector<PageVerdict> verdicts;
  for (const zrsimprp::PageEntry& page : zrsimprp::PageTable::Pages()) {
    HandOver(page.on_enter);
    verdicts.push_back(Check(page));
    if (verdicts.back().valid) HandOver(page.on_leave);
  }
  return verdicts;
}

PageVerdict PageChecker::Check(const zrsimprp::PageEntry& page) {
  zrsimprp::SIMProperties& control = session_.Control();
  PageVerdict verdict;
  verdict.page = page.word;
  zrsimprp::CModErrorHandling::TakeLastCheckError();  // an earlier page's, or another control's
  Trapped("IsValid", [&] { verdict.valid = page.is_valid(control, verdict.message); });
  if (verdict.valid) verdict.message.clear();
  std::optional<zrsimprp::RuntimeError> cause = zrsimprp::CModErrorHandling::TakeLastCheckError();
  if (!verdict.valid && verdict.message == zrsimprp::CModErrorHandling::kUnexpectedCheckMessage) {
    verdict.cause = cause;
  }
  return verdict;
}

void PageChecker::HandOver(const std::vector<zrsimprp::HandOverStep>& steps) {
  zrsimprp::SIMProperties& control = session_.Control();
  for (const zrsimprp::HandOverStep& step : steps) Trapped(step.routine, [&] { step.run(control); });
}

template <class Body>
void PageChecker::Trapped(const std::string& routine, Body&& body) {
  zrsimprp::RunTrapped(std::forward<Body>(body), [&](const zrsimprp::RuntimeError& error) {
    zrsimprp::CModErrorHandling::ReportInternalError(session_.Platform(), "zrsim", routine, error);
  });
}

}  // namespace zrsim

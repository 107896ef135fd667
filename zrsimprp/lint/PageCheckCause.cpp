#include "zrsimprp/lint/PageCheckCause.h"

#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/lint/LintCodes.h"

namespace zrsimprp {

std::string PageCheckCause::InWords(const RuntimeError& error) {
  switch (error.number) {
    case error_number::kTypeMismatch:
      return "a value that is empty or not a number";
    case error_number::kOverflow:
      return "a number too large for the page";
    case error_number::kDivisionByZero:
      return "a division by zero";
    case error_number::kSubscriptOutOfRange:
      return "a list with fewer values than the page needs";
    case error_number::kInvalidPropertyArrayIndex:
      return "a table cell that does not exist";
    default:
      return "an unexpected error";
  }
}

Finding PageCheckCause::Explain(const std::string& page, const RuntimeError& error) {
  Finding finding;
  finding.code = lint_code::kPageCheckInterrupted;
  finding.severity = Severity::kError;
  finding.sentence = "The " + page + " page could not finish its checks because it met " + InWords(error) +
                     " (\"" + error.description + "\", error " + std::to_string(error.number) + " from " +
                     error.source + ").";
  // It points at the page; which of its controls met the error is not known.
  for (const PageEntry& entry : PageTable::Pages()) {
    if (page == entry.word) finding.page = entry.word;
  }
  return finding;
}

}  // namespace zrsimprp

#include "zrsimprp/pages/CPagMisc/CPagMisc.h"

#include <cmath>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModErrorHandling.h"

namespace zrsimprp {
namespace {

bool IsBlankText(const std::string& text) { return TrimBlanks(text).empty(); }

// A core limit is a whole number of any sign, or nothing at all.
bool IsCoreLimit(const std::string& text) {
  if (IsNumeric(text)) {
    const double value = ToDouble(text);
    return std::floor(value) == value;
  }
  return IsBlankText(text);
}

}  // namespace

CPagMisc::CPagMisc(Platform& platform) : platform_(platform) {
  chkParallel.SetClickHandler([this] { ChkParallelClick(); });
  txtCores.SetEnabled(false);
}

std::string CPagMisc::Parallel() { return BooleanText(chkParallel.Value() == CheckBox::kChecked); }

void CPagMisc::SetParallel(const std::string& value) {
  chkParallel.SetValue(TextEquals(value, "True") ? CheckBox::kChecked : CheckBox::kUnchecked);
}

std::string CPagMisc::Cores() {
  const std::string& cores = txtCores.Text();
  return IsBlankText(cores) ? kMaxCoresWord : cores;
}

void CPagMisc::SetCores(const std::string& value) {
  txtCores.SetText(TextEquals(value, kMaxCoresWord) ? std::string() : value);
}

bool CPagMisc::IsValid(std::string& message) {
  ClearInvalid();
  return CModErrorHandling::RunPageChecks(message, [this]() -> std::string {
    if (chkParallel.Value() != CheckBox::kChecked || IsCoreLimit(txtCores.Text())) return "";
    MarkInvalid(txtCores);
    return "The maximum number of cores must either be an integer or left blank.";
  });
}

void CPagMisc::Initialize() {
  RunTrapped(
      [this] {
        chkParallel.SetValue(CheckBox::kUnchecked);
        txtCores.SetEnabled(false);
        txtCores.SetText("");
      },
      [this](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, "PagMisc", CModErrorHandling::kInitializeRoutine,
                                               error);
      });
}

void CPagMisc::ChkParallelClick() { txtCores.SetEnabled(chkParallel.Value() == CheckBox::kChecked); }

}  // namespace zrsimprp

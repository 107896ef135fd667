#include "zrsimprp/pages/CPagMisc/CPagMisc.h"

namespace zrsimprp {

CPagMisc::CPagMisc(Platform& platform) : platform_(platform) {}

std::string CPagMisc::Parallel() { return "False"; }
void CPagMisc::SetParallel(const std::string&) {}
std::string CPagMisc::Cores() { return txtCores.Text(); }
void CPagMisc::SetCores(const std::string& value) { txtCores.SetText(value); }
bool CPagMisc::IsValid(std::string& message) {
  message.clear();
  return true;
}
void CPagMisc::Initialize() {}
void CPagMisc::ChkParallelClick() {}

}  // namespace zrsimprp

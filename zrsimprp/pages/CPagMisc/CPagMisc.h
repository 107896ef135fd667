#pragma once

#include <string>

#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/host/Platform.h"
#include "zrsimprp/host/TextBox.h"

namespace zrsimprp {

// The "&Misc." tab: whether the simulation runs in parallel and the most processor cores it may use.
class CPagMisc : public PageControl {
 public:
  // What Cores gives for an empty core limit, and what sets it back to empty.
  static constexpr const char* kMaxCoresWord = "max cores";

  explicit CPagMisc(Platform& platform);

  Frame frmCores{"Cores"};
  Label labCores{
      "The maximum number of cores that the simulation will use is one less than the number of cores on "
      "the machine. If Max cores exceeds this number or is left blank it will default to using one less "
      "than the number of cores on the machine."};
  TextBox txtCores;
  CheckBox chkParallel{"Run in parallel"};
  LabelLine lalMisc{"Additional simulation options"};
  Label labMaxCores{"Max cores:"};

  std::string Parallel();
  void SetParallel(const std::string& value);
  std::string Cores();
  void SetCores(const std::string& value);
  bool IsValid(std::string& message);
  void Initialize();

 private:
  void ChkParallelClick();

  Platform& platform_;
};

}  // namespace zrsimprp

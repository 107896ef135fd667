#pragma once

#include <string>

#include "zrsimprp/host/Color.h"

namespace zrsimprp {

enum class MessageIcon { Exclamation, Critical };

// What the control needs of the program that embeds it. The platform object outlives the control.
class Platform {
 public:
  virtual ~Platform() = default;

  // True inside a running host, false inside a form designer.
  virtual bool UserMode() = 0;
  // A message box with an OK button only.
  virtual void MessageBox(const std::string& text, const std::string& title, MessageIcon icon) = 0;
  virtual void Beep() = 0;
  virtual void ResetMousePointer() = 0;
  virtual Color SystemColor(SystemColorRole role) = 0;
  // The control library's name as the run time reports it: "ZrSIMPrp".
  virtual std::string ComponentName() = 0;
};

}  // namespace zrsimprp

#pragma once

#include <string>
#include <vector>

#include "zrsim/ControlSession.h"
#include "zrsim/PageVerdict.h"
#include "zrsimprp/control/PageEntry.h"

namespace zrsim {

// Validates every page of a loaded control in the page table's order, as a person visiting each tab
// in turn would: before a page is checked it gets what the control hands over on the way to it, and
// a page that passes hands over what the control hands over on leaving it (the page table's steps,
// the very ones the control runs). Unlike a person, the walk goes on past a page that fails, and
// past a hand-over step that fails, so that one run reports every page.
class PageChecker {
 public:
  explicit PageChecker(ControlSession& session) : session_(session) {}

  std::vector<PageVerdict> CheckAll();

 private:
  PageVerdict Check(const zrsimprp::PageEntry& page);
  // Runs each step on its own; an error in one is reported like the control's own internal errors,
  // under the step's routine name, and the next step still runs.
  void HandOver(const std::vector<zrsimprp::HandOverStep>& steps);
  template <class Body>
  void Trapped(const std::string& routine, Body&& body);

  ControlSession& session_;
};

}  // namespace zrsim

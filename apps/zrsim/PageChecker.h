#pragma once

#include <string>
#include <vector>

#include "zrsim/ControlSession.h"
#include "zrsim/PageVerdict.h"

namespace zrsim {

// Validates every page of a loaded control in tab order, as a person visiting each tab in turn
// would: before a page is checked it gets what the control hands over on the way to it (strata
// after a valid Simulation page, cluster and covariate information after valid Population pages,
// the Detectability update on entering that tab). Unlike a person, the walk goes on past a page
// that fails, so that one run reports every page.
class PageChecker {
 public:
  explicit PageChecker(ControlSession& session) : session_(session) {}

  std::vector<PageVerdict> CheckAll();

 private:
  template <class Page>
  PageVerdict Check(const std::string& name, Page& page);
  void HandOverStrata();
  void HandOverToDetectability();
  // Runs a hand-over; an error in it is reported like the control's own internal errors.
  template <class Body>
  void HandOver(const std::string& routine, Body&& body);

  ControlSession& session_;
};

}  // namespace zrsim

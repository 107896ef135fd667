#pragma once

#include <string>
#include <vector>

namespace zrsimprp {

class PageControl;
class SIMProperties;

// The pages of the control, in the order a person meets them tab by tab.
enum class PageId { kSimulation, kDensity, kGeneral, kCovariates, kDetectability, kAnalysis, kMisc };

// One hand-over of values from page to page, named after the page routine that takes them: an error
// in it is reported under that name where a caller traps each step on its own.
struct HandOverStep {
  const char* routine;
  void (*run)(SIMProperties& control);
};

// Everything that identifies a page and ties it to its neighbours. Every place that names, finds,
// checks or feeds a page reads it from here.
struct PageEntry {
  PageId id;
  // Outer tab index, 0 to 5.
  int tab;
  // The outer tab's caption, shared by the pages of one tab.
  const char* tab_caption;
  // The key (and caption) of its inner tab where pages share an outer tab; "" on a tab of its own.
  const char* inner_key;
  // The page's name in "Error in options on <word> Page" and in `zrsim check`'s and the editor's
  // reports.
  const char* word;
  // The module the page's own error reports name.
  const char* module;
  // The heading of the page's section in the user guide.
  const char* help_section;
  PageControl& (*page)(SIMProperties& control);
  // The page's own check: its verdict, and its message when it refuses.
  bool (*is_valid)(SIMProperties& control, std::string& message);
  // Run in this order after the page passed its check and is being left.
  std::vector<HandOverStep> on_leave;
  // Run in this order when its tab is about to be shown. Pages that share a tab have none: entering
  // such a tab selects its inner tab by the key selected there, which shows that page.
  std::vector<HandOverStep> on_enter;
};

}  // namespace zrsimprp

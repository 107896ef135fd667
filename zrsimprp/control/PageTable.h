#pragma once

#include <string>
#include <vector>

#include "zrsimprp/control/PageEntry.h"
#include "zrsimprp/host/TabStrip.h"

namespace zrsimprp {

// The one table of the control's pages (PageEntry): the tab navigation, the Qt view's error
// reports, the editor's help and warnings line and `zrsim check` all read it.
class PageTable {
 public:
  // Every page, in tab order (General before Covariates on the shared tab).
  static const std::vector<PageEntry>& Pages();
  static const PageEntry& Get(PageId id);

  // The page shown on outer tab `tab` when the inner tab `inner_key` is selected (compared without
  // regard to case, and ignored on a tab of its own). Null for a tab outside 0 to 5 or a key that
  // names no page of the tab.
  static const PageEntry* Shown(int tab, const std::string& inner_key);
  // The page at inner position `inner` (from 1) of outer tab `tab`; a position the tab does not have
  // gives its first page. Null for a tab outside 0 to 5.
  static const PageEntry* AtPosition(int tab, int inner);
  // True when pages share outer tab `tab` behind an inner strip.
  static bool HasInnerTabs(int tab);

  // The outer tabs' captions, by index.
  static std::vector<std::string> TabCaptions();
  // The inner tabs of outer tab `tab`, in order; none on a tab of its own.
  static std::vector<TabStrip::Tab> InnerTabs(int tab);

  // The title of the box that shows the page's refusal.
  static std::string MessageTitle(const PageEntry& page);
  // Runs every step in order; an error ends the run and reaches the caller.
  static void HandOver(const std::vector<HandOverStep>& steps, SIMProperties& control);

  static constexpr int kTabCount = 6;
};

}  // namespace zrsimprp

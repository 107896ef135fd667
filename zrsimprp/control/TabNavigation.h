#pragma once

#include <string>

namespace zrsimprp {

class Platform;
class SIMProperties;
struct PageEntry;

// Moving between the control's tabs: the shown page is checked before it is left, a refusal keeps
// the person where they are, values are handed from page to page as the page table says, and the
// tab positions are remembered in the host's settings once the control is initialized.
class TabNavigation {
 public:
  // Takes over the tab events of `control`'s outer tab control and inner strip.
  TabNavigation(SIMProperties& control, Platform& platform);
  TabNavigation(const TabNavigation&) = delete;
  TabNavigation& operator=(const TabNavigation&) = delete;

  // Checks the page that is shown; a refusal is shown in the page's message box.
  bool ValidateShownPage();
  // Opens the tabs kept in the settings (or the first ones when the host does not want them kept).
  void RestoreTabs();
  // From now on, tab changes are remembered in the settings.
  void MarkInitialized() { initialized_ = true; }

 private:
  bool ValidatePage(const std::string& inner_key);
  bool Refuse(const PageEntry& page, const std::string& message);
  void BeforeTabChange(int& new_index);
  void AfterTabChange(int new_index);
  void SelectInnerTab(const std::string& key);
  void ShowInnerPage(const std::string& key);

  SIMProperties& control_;
  Platform& platform_;
  std::string remembered_inner_key_;
  bool initialized_ = false;
};

}  // namespace zrsimprp

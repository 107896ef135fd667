#include "zrsimprp/control/TabNavigation.h"

#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/control/RememberedTabs.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {

TabNavigation::TabNavigation(SIMProperties& control, Platform& platform)
    : control_(control), platform_(platform) {
  // The tab events set no trap of their own: an error in them belongs to whoever changed the tab,
  // Initialize's caller when the remembered tab is restored, the view's event boundary on a click.
  control_.tapSimulationDefinition.SetBeforeChangeHandler(
      [this](int& new_index) { BeforeTabChange(new_index); });
  control_.tapSimulationDefinition.SetAfterChangeHandler(
      [this](int new_index) { AfterTabChange(new_index); });
  control_.tabsPopulationDescription.SetClickHandler([this](const std::string& key) { SelectInnerTab(key); });
}

bool TabNavigation::ValidateShownPage() {
  const bool inner = PageTable::HasInnerTabs(control_.tapSimulationDefinition.CurrentTab());
  return ValidatePage(inner ? control_.tabsPopulationDescription.SelectedKey() : std::string());
}

void TabNavigation::RestoreTabs() {
  const RememberedTabs remembered = RememberedTabs::Fetch();
  if (remembered.RestoreWanted()) {
    control_.tapSimulationDefinition.SetCurrentTab(remembered.OuterTab());
    const std::string default_key = control_.tabsPopulationDescription.Key(1);
    SelectInnerTab(remembered.InnerKey(default_key));
  } else {
    control_.tapSimulationDefinition.SetCurrentTab(PageTable::Pages().front().tab);
    SelectInnerTab(control_.tabsPopulationDescription.Key(1));
  }
}

bool TabNavigation::ValidatePage(const std::string& inner_key) {
  // A tab outside the table, or an inner key that names none of its pages, has nothing to check.
  const PageEntry* page = PageTable::Shown(control_.tapSimulationDefinition.CurrentTab(), inner_key);
  if (page == nullptr) return true;
  std::string message;
  if (page->is_valid(control_, message)) return true;
  return Refuse(*page, message);
}

bool TabNavigation::Refuse(const PageEntry& page, const std::string& message) {
  platform_.MessageBox(message, PageTable::MessageTitle(page), MessageIcon::Exclamation);
  return false;
}

void TabNavigation::BeforeTabChange(int& new_index) {
  const int current = control_.tapSimulationDefinition.CurrentTab();
  const std::string key =
      PageTable::HasInnerTabs(current) ? control_.tabsPopulationDescription.SelectedKey() : std::string();
  if (!ValidatePage(key)) {
    new_index = -1;
    return;
  }
  const PageEntry* leaving = PageTable::Shown(current, key);
  if (leaving != nullptr) PageTable::HandOver(leaving->on_leave, control_);

  if (PageTable::HasInnerTabs(new_index)) {
    SelectInnerTab(control_.tabsPopulationDescription.SelectedKey());
    return;
  }
  const PageEntry* entering = PageTable::Shown(new_index, std::string());
  if (entering != nullptr) PageTable::HandOver(entering->on_enter, control_);
}

void TabNavigation::AfterTabChange(int new_index) {
  if (!initialized_ || !CModGlobal::ProjectDatabase()) return;
  RememberedTabs::Fetch().RememberOuterTab(new_index);
}

void TabNavigation::SelectInnerTab(const std::string& key) {
  TabStrip& strip = control_.tabsPopulationDescription;
  // The first key ever asked for stays the page that is checked before a switch and fallen back to.
  if (remembered_inner_key_.empty()) remembered_inner_key_ = key;
  const bool failed = !ValidatePage(remembered_inner_key_);

  int remembered_index = 0;
  const int tab_count = strip.TabCount();
  for (int i = 1; i <= tab_count; ++i) {
    const std::string& tab_key = strip.Key(i);
    if (TextEquals(tab_key, key) && strip.SelectedIndex() != i) strip.Select(i);
    if (TextEquals(tab_key, remembered_inner_key_)) remembered_index = i;
  }

  if (failed) {
    if (remembered_index != 0) strip.Select(remembered_index);
    return;
  }
  const std::string selected_key = strip.SelectedKey();
  ShowInnerPage(selected_key);
  if (initialized_) RememberedTabs::Fetch().RememberInnerKey(selected_key);
}

void TabNavigation::ShowInnerPage(const std::string& key) {
  // The strip belongs to the one outer tab whose pages share it.
  for (const PageEntry& page : PageTable::Pages()) {
    if (!PageTable::HasInnerTabs(page.tab)) continue;
    const PageEntry* shown = PageTable::Shown(page.tab, key);
    if (shown == nullptr) return;
    page.page(control_).SetVisible(&page == shown);
  }
}

}  // namespace zrsimprp

#include "zrsimprp/qt/binders/PageBinder.h"

#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

PageBinder::PageBinder(PageControl& page, QWidget* view) : ModelBinder(view), page_(page), view_(view) {
  Watch(page);
  RefreshNow();
}

void PageBinder::Refresh() { MirrorVisible(view_, page_.Visible()); }

}  // namespace zrsimprp

#pragma once

#include <QPointer>
#include <QWidget>

#include "zrsimprp/host/PageControl.h"
#include "zrsimprp/qt/binders/ModelBinder.h"

namespace zrsimprp {

// Shows a page's view while the page is shown (the Population and Covariates pages share a tab).
class PageBinder : public ModelBinder {
  Q_OBJECT

 public:
  PageBinder(PageControl& page, QWidget* view);

 protected:
  void Refresh() override;

 private:
  PageControl& page_;
  QPointer<QWidget> view_;
};

}  // namespace zrsimprp

#pragma once

#include <QRadioButton>
#include <vector>

#include "zrsimprp/host/OptionGroup.h"
#include "zrsimprp/qt/binders/ModelBinder.h"

namespace zrsimprp {

// OptionGroup -> one QRadioButton per option button. The radio buttons are not exclusive by Qt's
// rules: which one is on is the model's business (a group may have none on).
class OptionGroupBinder : public ModelBinder {
  Q_OBJECT

 public:
  // One radio button per option button, in index order; the binder is a child of the first.
  OptionGroupBinder(OptionGroup& group, std::vector<QRadioButton*> radios);

 protected:
  void Refresh() override;

 private:
  void OnClicked(int index);

  OptionGroup& group_;
  std::vector<QRadioButton*> radios_;
};

}  // namespace zrsimprp

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

  const OptionGroup& Group() const { return group_; }
  // The radio button of the option button `index`; nullptr when there is none.
  QRadioButton* Radio(int index) const {
    return index >= 0 && index < static_cast<int>(radios_.size()) ? radios_[static_cast<std::size_t>(index)]
                                                                  : nullptr;
  }

 protected:
  void Refresh() override;

 private:
  void OnClicked(int index);

  OptionGroup& group_;
  std::vector<QRadioButton*> radios_;
};

}  // namespace zrsimprp

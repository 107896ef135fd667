#include "zrsimprp/qt/binders/OptionGroupBinder.h"

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/UndoRecorder.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

OptionGroupBinder::OptionGroupBinder(OptionGroup& group, std::vector<QRadioButton*> radios)
    : ModelBinder(radios.empty() ? nullptr : radios.front()), group_(group), radios_(std::move(radios)) {
  Watch(group);
  for (int i = 0; i < static_cast<int>(radios_.size()) && i < group.Count(); ++i) {
    Watch(group.Button(i));
    radios_[static_cast<size_t>(i)]->setAutoExclusive(false);
    connect(radios_[static_cast<size_t>(i)], &QRadioButton::clicked, this, [this, i] { OnClicked(i); });
  }
  RefreshNow();
}

void OptionGroupBinder::Refresh() {
  for (int i = 0; i < static_cast<int>(radios_.size()) && i < group_.Count(); ++i) {
    QRadioButton* radio = radios_[static_cast<size_t>(i)];
    const OptionButton& button = group_.Button(i);
    radio->setText(AccessibleText::Literal(button.Caption()));
    radio->setAccessibleName(AccessibleText::FromCaption(button.Caption()));
    radio->setEnabled(group_.Enabled() && button.Enabled());
    MirrorVisible(radio, group_.Visible() && button.Visible());
    radio->setChecked(group_.Selected() == i);
  }
}

void OptionGroupBinder::OnClicked(int index) {
  if (Mirroring()) return;
  UndoRecorder::Run(
      this, "OptionButton_Click",
      QStringLiteral("choice of %1").arg(UndoRecorder::NameOf(radios_[static_cast<size_t>(index)])),
      [this, index] { group_.UserSelect(index); });
  RefreshNow();
}

}  // namespace zrsimprp

#include "zrsimprp/qt/binders/ButtonBinder.h"

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/UndoRecorder.h"

namespace zrsimprp {

ButtonBinder::ButtonBinder(Button& button, QPushButton* push_button)
    : ControlBinder(button, push_button), button_(button), push_button_(push_button) {
  push_button->setAutoDefault(false);
  connect(push_button, &QPushButton::clicked, this, &ButtonBinder::OnClicked);
  RefreshNow();
}

void ButtonBinder::SetAccessibleName(const QString& name) {
  accessible_name_ = name;
  RefreshNow();
}

void ButtonBinder::Mirror() {
  push_button_->setText(QString::fromStdString(button_.Caption()));
  push_button_->setAccessibleName(accessible_name_.isEmpty() ? AccessibleText::FromCaption(button_.Caption())
                                                             : accessible_name_);
}

void ButtonBinder::OnClicked() {
  if (Mirroring()) return;
  UndoRecorder::Run(this, "Button_Click", UndoRecorder::NameOf(push_button_),
                    [this] { button_.UserClick(); });
  RefreshNow();
}

}  // namespace zrsimprp

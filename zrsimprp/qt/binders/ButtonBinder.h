#pragma once

#include <QPushButton>

#include "zrsimprp/host/Button.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// Button -> QPushButton; a click runs the model's click.
class ButtonBinder : public ControlBinder {
  Q_OBJECT

 public:
  ButtonBinder(Button& button, QPushButton* push_button);

  // Buttons captioned "+" or "-" say what they add or remove to a screen reader.
  void SetAccessibleName(const QString& name);

 protected:
  void Mirror() override;

 private:
  void OnClicked();

  Button& button_;
  QPushButton* push_button_;
  QString accessible_name_;
};

}  // namespace zrsimprp

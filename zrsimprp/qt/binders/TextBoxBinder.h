#pragma once

#include <QLineEdit>

#include "zrsimprp/host/TextBox.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// TextBox -> QLineEdit. Every keystroke reaches the model as typing; the box then shows what the
// model kept (a disabled box keeps its text).
class TextBoxBinder : public ControlBinder {
  Q_OBJECT

 public:
  TextBoxBinder(TextBox& text_box, QLineEdit* edit);

 protected:
  void Mirror() override;

 private:
  void OnTextEdited(const QString& text);

  TextBox& text_box_;
  QLineEdit* edit_;
};

}  // namespace zrsimprp

#pragma once

#include <QComboBox>
#include <string>
#include <vector>

#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// ComboBox -> QComboBox, editable or list-only as the model's style says. Choosing an entry and
// typing reach the model; the wheel only works on a list that has focus.
class ComboBoxBinder : public ControlBinder {
  Q_OBJECT

 public:
  ComboBoxBinder(ComboBox& combo, QComboBox* widget);

 protected:
  void Mirror() override;

 private:
  void MirrorItems();
  void OnActivated(int index);
  void OnTextEdited(const QString& text);

  ComboBox& combo_;
  QComboBox* widget_combo_;
  std::vector<std::string> shown_items_;
};

}  // namespace zrsimprp

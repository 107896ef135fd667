#pragma once

#include <QLabel>
#include <string>
#include <utility>

#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/qt/binders/ControlBinder.h"

namespace zrsimprp {

// A label whose caption holds a run of blanks in which another control sits ("Repeat the simulation
// <box> times"): the caption is split around its longest run of blanks into two QLabels, drawn either
// side of that control.
class GapLabelBinder : public ControlBinder {
  Q_OBJECT

 public:
  GapLabelBinder(Label& label, QLabel* before, QLabel* after);

  // The text before and after the longest run of two or more blanks; no such run: all of it before.
  static std::pair<std::string, std::string> Split(const std::string& caption);

 protected:
  void Mirror() override;

 private:
  Label& label_;
  QLabel* before_;
  QLabel* after_;
};

}  // namespace zrsimprp

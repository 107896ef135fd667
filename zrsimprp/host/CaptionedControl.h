#pragma once

#include <string>

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

// A control that shows a caption: labels, section headers, frames, buttons, check and option boxes.
class CaptionedControl : public Control {
 public:
  explicit CaptionedControl(std::string caption = "") : caption_(std::move(caption)) {}

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    Changed();
  }

  std::unique_ptr<ControlState> SaveState() const override { return MakeState(std::make_tuple(caption_)); }
  void RestoreState(const ControlState& state) override {
    std::tie(caption_) = RestoreOwnState<std::tuple<std::string>>(state);
    Changed();
  }

 private:
  std::string caption_;
};

// A static caption.
class Label : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
};

// A section header: a caption followed by a horizontal rule.
class LabelLine : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
};

// A captioned box that groups other controls.
class Frame : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
};

}  // namespace zrsimprp

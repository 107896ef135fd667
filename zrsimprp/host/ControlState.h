#pragma once

#include <memory>
#include <tuple>
#include <utility>

#include "zrsimprp/host/Color.h"

namespace zrsimprp {

// What a control holds that a person's action or a page's handler can change, saved so that it can
// be put back exactly (undo). Two states compare equal when they hold the same values.
class ControlState {
 public:
  virtual ~ControlState() = default;
  virtual bool Equals(const ControlState& other) const = 0;
};

// The part every control has, and the part its own type adds (`Own`, compared with ==).
template <class Own>
class ControlStateOf : public ControlState {
 public:
  ControlStateOf(std::tuple<bool, bool, Color> common, Own own) : common_(common), own_(std::move(own)) {}

  bool Equals(const ControlState& other) const override {
    const auto* same = dynamic_cast<const ControlStateOf*>(&other);
    return same != nullptr && same->common_ == common_ && same->own_ == own_;
  }

  const std::tuple<bool, bool, Color>& Common() const { return common_; }
  const Own& OwnPart() const { return own_; }

 private:
  std::tuple<bool, bool, Color> common_;
  Own own_;
};

}  // namespace zrsimprp

#include "zrsimprp/host/Control.h"

namespace zrsimprp {

void Control::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Changed();
}

void Control::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed();
}

void Control::SetBackColor(Color color) {
  if (back_color_ == color && back_color_.red == color.red && back_color_.green == color.green &&
      back_color_.blue == color.blue) {
    return;
  }
  back_color_ = color;
  Changed();
}

}  // namespace zrsimprp

#pragma once

namespace zrsimprp {

// One record of a layer; the control only fetches it and keeps nothing of it.
class Feature {
 public:
  virtual ~Feature() = default;
};

}  // namespace zrsimprp

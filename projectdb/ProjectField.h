#pragma once

#include <string>

#include "zrsimprp/host/Field.h"

namespace zrsimprp {

class ProjectField : public Field {
 public:
  explicit ProjectField(std::string name) : name_(std::move(name)) {}
  std::string Name() override { return name_; }

 private:
  std::string name_;
};

}  // namespace zrsimprp

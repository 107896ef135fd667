#pragma once

#include <memory>
#include <string>

#include "zrsimprp/host/Layer.h"

namespace zrsimprp {

// The project's companion object: its catalogue of map layers.
class LayerCatalogue {
 public:
  virtual ~LayerCatalogue() = default;
  virtual std::shared_ptr<Layer> LayerByName(const std::string& name) = 0;
};

}  // namespace zrsimprp

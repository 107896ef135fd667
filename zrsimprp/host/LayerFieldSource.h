#pragma once

#include <string>
#include <vector>

namespace zrsimprp {

// Optional host interface: the numeric attribute fields of a layer, so that a person filling a strata
// row from the layer picks a field from a list instead of typing its name. A host offers it by having
// its ProjectDatabase object also derive from this class; the view finds it with
// std::dynamic_pointer_cast<LayerFieldSource>(database). Without it the person types the name.
class LayerFieldSource {
 public:
  virtual ~LayerFieldSource() = default;
  // The fields of layer `layer_name` (case ignored) that hold numbers, apart from its id and geometry,
  // in the order the host keeps them; empty for a layer the host does not know. A failing read throws
  // RuntimeError with "LayerFieldSource" as source.
  virtual std::vector<std::string> NumericFields(const std::string& layer_name) = 0;
};

}  // namespace zrsimprp

#pragma once

#include <string>

namespace zrsimprp {

class SqliteConnection;

// A layer with a parent must share the parent's coordinate system and lie inside it: strata in other
// coordinates, or hundreds of kilometres away, would otherwise be accepted and only puzzle the person
// later. Runs inside the caller's write transaction, after the layer is written, so a refusal undoes it.
class ParentContainment {
 public:
  // The share of a layer's area that must lie within its parent's polygons.
  static constexpr double kRequiredShare = 0.95;

  // Refuses, naming both layers and their coordinate systems, a layer outside its parent.
  static void Check(SqliteConnection& connection, const std::string& layer, const std::string& parent);
};

}  // namespace zrsimprp

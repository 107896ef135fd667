#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zrsimprp {

// The known name nearest to a name that was not recognised, by edit distance with case ignored.
class ClosestName {
 public:
  // Levenshtein distance between the two texts, ASCII letters compared without regard to case.
  static std::size_t Distance(std::string_view a, std::string_view b);
  // The candidate at the smallest distance (the first of equals); "" when there are none.
  static std::string Among(std::string_view name, const std::vector<std::string>& candidates);
};

}  // namespace zrsimprp

#include "zrsimprp/lint/ClosestName.h"

#include <algorithm>
#include <cctype>

namespace zrsimprp {

std::size_t ClosestName::Distance(std::string_view a, std::string_view b) {
  auto same = [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
  };
  // One row of the table at a time: names are short, and memory stays linear in their length.
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t above = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (same(a[i - 1], b[j - 1]) ? 0 : 1)});
      diagonal = above;
    }
  }
  return row[b.size()];
}

std::string ClosestName::Among(std::string_view name, const std::vector<std::string>& candidates) {
  std::string best;
  std::size_t best_distance = 0;
  for (const std::string& candidate : candidates) {
    const std::size_t distance = Distance(name, candidate);
    if (best.empty() || distance < best_distance) {
      best = candidate;
      best_distance = distance;
    }
  }
  return best;
}

}  // namespace zrsimprp

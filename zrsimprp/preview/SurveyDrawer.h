#pragma once

#include <cstdint>
#include <vector>

#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/preview/DrawnSurvey.h"
#include "zrsimprp/preview/PortableRandom.h"
#include "zrsimprp/preview/Preview.h"

namespace zrsimprp {

// Draws one survey of a previewed simulation: in each stratum its number of animals (the fixed N, or
// a Poisson number around the expected one), placed by the density surface (hotspots included: a
// grid cell is chosen in proportion to its value, then a point evenly within it and within the
// stratum); the design's lines laid south to north at its spacing from a random start and clipped to
// the strata; and each animal within the truncation distance of its nearest line seen with
// probability g(distance). Like the expected numbers, the draw has no edge effects: the distance is
// to the nearest line of the whole systematic grid as if every line went on past the strata's edges
// (a line just outside the strata, or across a hole, still sees the animals within w of it). In a
// real survey animals near an edge are seen a little less often. Pure; the same seed gives the same
// survey everywhere (PortableRandom).
class SurveyDrawer {
 public:
  // More animals than this are not drawn: a survey of that size says nothing a smaller one does not.
  static constexpr double kMaxAnimals = 20'000'000;
  // Nor more lines than this across the strata: a spacing that small is no survey design.
  static constexpr double kMaxLines = 100'000;

  static DrawnSurvey Draw(const Preview& preview, const LayerShapes& strata, uint64_t seed);

  // Pieces of the vertical lines x = first + k·spacing (k = 0, 1, ...) inside the strata, in order of
  // line and then of stratum.
  static std::vector<SurveyLine> ClipLines(const LayerShapes& strata, double first, double last,
                                           double spacing);

  // True when the point lies in the stratum (even-odd over its rings, so holes are outside).
  static bool Inside(const StratumGeometry& stratum, double x, double y);
};

}  // namespace zrsimprp

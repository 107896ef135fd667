#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "zrsimprp/map/MapModel.h"
#include "zrsimprp/preview/DetectionFunction.h"
#include "zrsimprp/preview/DetectionScales.h"

namespace zrsimprp {

// One detection curve: a value column of the parameter table (and a categorical level), g(x) from 0
// to the truncation distance. A curve whose cells cannot be used has a sentence that names the cell
// instead. Its points are worked out by whoever draws it: a table of thousands of strata gives as
// many curves, and only the few shown need points.
struct DetectionCurve {
  std::string label;  // "Study Area", a stratum's name, with ", level" for a categorical level
  double sigma = 0;
  double shape = 0;
  double average_detectability = 0;
  double truncation = 0;
  DetectionFunction function{DetectionFunction::Key::kHalfNormal, 1, 0};
  std::string problem;

  bool Usable() const { return problem.empty(); }
  // `count` points (x, g(x)) evenly from 0 to the truncation distance; none when the curve has a
  // problem.
  std::vector<std::pair<double, double>> Points(int count) const {
    std::vector<std::pair<double, double>> points;
    if (!Usable() || count < 2) return points;
    for (int k = 0; k < count; ++k) {
      const double x = truncation * k / (count - 1);
      points.emplace_back(x, function.At(x));
    }
    return points;
  }
};

// What the preview expects of one stratum in one repetition.
struct StratumPreview {
  std::string name;
  std::string id;
  double area = 0;     // square map units, holes excluded
  double animals = 0;  // N_s: animals, or clusters when animals come in clusters
  double coverage = 0;
  double average_detectability = 0;
  double expected_detections = 0;   // N_s × coverage × P_a
  double expected_individuals = 0;  // with clusters: detections × mean cluster size
  // The value column of `Preview::columns` whose detection functions (one per categorical level,
  // with the level's weight) this stratum uses.
  size_t column = 0;
};

// The expected numbers of a simulation before it runs. `refusal` is one sentence when the numbers
// cannot be worked out at all (no usable design, no geometry, a value it cannot use); the curves are
// filled as far as the truncation distance is known.
struct Preview {
  std::string refusal;
  std::vector<DetectionCurve> curves;
  std::vector<ColumnDetection> columns;
  std::vector<StratumPreview> strata;
  double truncation = 0;
  double spacing = 0;
  std::string design_name;
  std::string design_type;
  bool clusters = false;
  double mean_cluster_size = 0;
  // "Fixed N", "Poisson N" or "Fixed D": where N_s comes from, and a sentence that says so.
  std::string population_size;
  std::string population_source;
  double expected_detections = 0;
  double expected_individuals = 0;
  double cv_guide = 0;  // √(3/n); infinite when n is 0
  std::string warning;  // below 60 expected detections
  std::vector<std::string> notes;
  // The density surface the animals of a drawn survey are placed by (may have no surface: then they
  // are placed evenly, and a note says so).
  std::shared_ptr<const MapModel> surface;

  bool Usable() const { return refusal.empty(); }
};

}  // namespace zrsimprp

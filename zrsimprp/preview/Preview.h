#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/map/MapModel.h"
#include "zrsimprp/preview/DetectionFunction.h"

namespace zrsimprp {

// One detection curve: a value column of the parameter table (and a categorical level), g(x) from 0
// to the truncation distance. A curve whose cells cannot be used has no points and a sentence that
// names the cell.
struct DetectionCurve {
  std::string label;  // "Study Area", a stratum's name, with ", level" for a categorical level
  double sigma = 0;
  double shape = 0;
  double average_detectability = 0;
  std::vector<double> x;
  std::vector<double> g;
  std::string problem;

  bool Usable() const { return problem.empty(); }
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
  // The detection function (one per categorical level, with the level's weight) used for draws.
  std::vector<DetectionFunction> functions;
  std::vector<double> level_weights;
};

// The expected numbers of a simulation before it runs. `refusal` is one sentence when the numbers
// cannot be worked out at all (no usable design, no geometry, a value it cannot use); the curves are
// filled as far as the truncation distance is known.
struct Preview {
  std::string refusal;
  std::vector<DetectionCurve> curves;
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

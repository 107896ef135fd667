#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "zrsimprp/lint/Finding.h"
#include "zrsimprp/lint/ProjectFacts.h"

namespace zrsimprp {

class StrataGeometry;

// What the values of a definition mean on the strata layer it ends up with: strata left without a
// value or without animals, hotspots off the region, grid spacings that miss strata or make too
// many cells, distances read in degrees and detection functions that see almost nothing or almost
// everything within the design's truncation distance. One finding per cause, naming the strata it
// concerns; the layer's polygons are read once through the project facts.
class StrataLint {
 public:
  // The values as the definition gives them (texts as typed) and the line of each entry.
  struct Values {
    std::string layer;
    int layer_line = 0;
    std::string design;  // the design whose truncation distance and spacing the surveys use
    std::string density_description;
    std::vector<std::string> densities;
    std::size_t densities_given = 0;
    std::optional<std::string> grid_spacing;
    int density_line = 0;
    struct Hotspot {
      std::vector<std::string> values;  // X, Y, sigma, amplitude
      std::string field;                // as the text spells it
      int line = 0;
    };
    std::vector<Hotspot> hotspots;
    std::string population_size;
    std::vector<std::string> population_values;
    int population_line = 0;
    std::string detection_function = "Half-Normal";
    std::vector<std::string> scales;
    int scale_line = 0;
    std::vector<std::string> shapes;
    bool by_stratum = false;  // one scale and shape per stratum, else one for the study area
  };

  // A stratum list in a sentence names at most this many, then "and N more".
  static constexpr std::size_t kNamedStrata = 5;
  // A grid with more cells than this over the region is taken for a mistake.
  static constexpr double kMaxCells = 10'000'000;
  // Average detection probability within the truncation distance below which almost nothing is seen.
  static constexpr double kLowDetection = 0.05;
  // Detection probability at the truncation distance above which almost everything is seen.
  static constexpr double kHighDetection = 0.99;

  StrataLint(ProjectFacts& facts, const Values& values) : facts_(facts), values_(values) {}

  std::vector<Finding> Check();

  // "stratum 'C'", "3 strata ('A', 'B', 'C')" or "278 strata ('D', …, 'H' and 273 more)".
  static std::string StrataPhrase(const std::vector<FindingStratum>& strata);

  // The average of the detection function over 0 to `truncation`: Half-Normal exp(-x²/2σ²), or Hazard
  // Rate 1 - exp(-(x/σ)^-b) when `shape` is given.
  static double AverageDetection(double scale, std::optional<double> shape, double truncation);
  static double HazardRateAt(double distance, double scale, double shape);

 private:
  void CheckMissingValues(const char* entry, const std::string& field, const std::string& what,
                          std::size_t given, int line);
  void CheckZeroValues();
  void CheckDegrees(const StrataGeometry& geometry);
  void CheckHotspots(const StrataGeometry& geometry);
  void CheckGrid(const StrataGeometry& geometry);
  void CheckDetection();

  // One value column's detection parameters and what they give within the truncation distance.
  struct DetectionColumn {
    std::size_t column = 0;
    double scale = 0;
    std::optional<double> shape;
    std::string text;  // "the scale 5 and shape 3"
    double average = 0;
    double at_truncation = 0;
  };
  bool ColumnParameters(std::size_t column, bool hazard, DetectionColumn& parameters) const;
  static std::string ParametersPhrase(const std::vector<DetectionColumn>& columns, bool hazard);
  std::string StrataConcerned(const std::vector<DetectionColumn>& columns);
  void SetColumnStrata(Finding& finding, const std::vector<DetectionColumn>& columns);
  // A finding on the detection function's Scale row, for the columns concerned.
  void AddScaleFinding(const char* code, const std::vector<DetectionColumn>& columns,
                       const std::string& sentence);
  static bool SameParameters(const std::vector<DetectionColumn>& columns);
  static std::vector<std::size_t> ColumnIndices(const std::vector<DetectionColumn>& columns);

  std::vector<FindingStratum> StrataAt(const std::vector<std::size_t>& indices);
  std::string StratumName(std::size_t index);
  std::string Units(const StrataGeometry& geometry) const;
  Finding& Add(const char* code, const std::string& entry, const std::string& field, int line,
               const std::string& sentence);
  static void SetStrata(Finding& finding, std::vector<FindingStratum> strata);

  ProjectFacts& facts_;
  const Values& values_;
  std::vector<Finding> findings_;
};

}  // namespace zrsimprp

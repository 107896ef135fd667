#include "zrsimprp/preview/PreviewCalculator.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <map>
#include <optional>
#include <utility>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/map/DensityMapBuilder.h"
#include "zrsimprp/map/MapNumber.h"
#include "zrsimprp/preview/DetectionScales.h"

namespace zrsimprp {

namespace {

double TwiceSignedArea(const std::vector<MapPoint>& ring) {
  if (ring.empty()) return 0;
  // Each edge from the previous vertex, starting with the closing one: no division per vertex.
  double sum = 0;
  const MapPoint* a = &ring.back();
  for (const MapPoint& b : ring) {
    sum += a->x * b.y - b.x * a->y;
    a = &b;
  }
  return sum;
}

// The design's spacing or truncation as a number above 0; otherwise the sentence that refuses it.
std::optional<double> DesignDistance(const PreviewDesign& design, const std::string& text,
                                     const std::string& what, std::string& refusal) {
  if (TrimBlanks(text).empty()) {
    refusal = "The design '" + design.name + "' gives no " + what + ", so the survey cannot be previewed.";
    return std::nullopt;
  }
  const std::optional<double> value = FiniteNumber(text);
  if (!value || *value <= 0) {
    refusal = "The design '" + design.name + "' gives the " + what + " '" + text +
              "', which is not a number greater than 0, so the survey cannot be previewed.";
    return std::nullopt;
  }
  return value;
}

// Memoised average detectability: strata that share their parameters share the integral.
class AverageCache {
 public:
  double Of(const DetectionFunction& function, double w) {
    const auto key = std::make_pair(std::make_pair(function.sigma(), function.shape()),
                                    function.key() == DetectionFunction::Key::kHazardRate);
    const auto found = cache_.find(key);
    if (found != cache_.end()) return found->second;
    const double value = function.AverageDetectability(w);
    cache_.emplace(key, value);
    return value;
  }

 private:
  std::map<std::pair<std::pair<double, double>, bool>, double> cache_;
};

}  // namespace

double PreviewCalculator::Area(const StratumGeometry& stratum) {
  double area = 0;
  for (const MapPolygon& polygon : stratum.polygons) {
    for (size_t r = 0; r < polygon.rings.size(); ++r) {
      const double ring = std::fabs(TwiceSignedArea(polygon.rings[r])) / 2;
      area += r == 0 ? ring : -ring;
    }
  }
  return std::max(area, 0.0);
}

Preview PreviewCalculator::Compute(const PreviewInputs& inputs, const MapModel* previous, bool with_surface) {
  Preview preview;
  preview.clusters = inputs.clusters;
  preview.mean_cluster_size = inputs.mean_cluster_size;
  const bool design = ReadDesign(inputs, preview);
  // Each value column is read once, for its curves and for the strata that use it.
  std::vector<ColumnDetection> columns;
  const size_t column_count = std::max<size_t>(inputs.detection_columns.size(), 1);
  columns.reserve(column_count);  // thousands of strata columns: no moves of the ones read
  for (size_t c = 0; c < column_count; ++c) columns.push_back(DetectionScales::Read(inputs, c));
  if (design) {
    // Strata that share their parameters share the integral.
    AverageCache cache;
    for (ColumnDetection& column : columns) {
      column.averages.reserve(column.functions.size());
      for (const DetectionFunction& function : column.functions) {
        column.averages.push_back(cache.Of(function, preview.truncation));
      }
    }
    ReadCurves(inputs, columns, preview);
  }
  if (!design || !ReadStrata(inputs, preview)) return preview;
  if (with_surface || TextEquals(inputs.population_size, "Poisson N")) {
    preview.surface =
        std::make_shared<MapModel>(DensityMapBuilder::Build(inputs.layers, inputs.density, previous));
  }
  if (!ReadPopulation(inputs, preview) || !ReadDetection(inputs, columns, preview)) return preview;
  preview.columns = std::move(columns);
  Sum(preview);
  return preview;
}

bool PreviewCalculator::ReadDesign(const PreviewInputs& inputs, Preview& preview) {
  const PreviewDesign& design = inputs.design;
  if (!design.found) {
    preview.refusal = design.missing.empty() ? "There is no survey design to preview." : design.missing;
    return false;
  }
  preview.design_name = design.name;
  preview.design_type = design.type;
  const std::optional<double> spacing = DesignDistance(design, design.spacing, "spacing", preview.refusal);
  if (!spacing) return false;
  const std::optional<double> truncation =
      DesignDistance(design, design.truncation, "truncation distance", preview.refusal);
  if (!truncation) return false;
  preview.spacing = *spacing;
  preview.truncation = *truncation;
  if (TextEquals(design.type, "Zigzag")) {
    preview.notes.push_back(
        "The zigzag design is taken to cover what parallel lines at its spacing would: min(1, 2w/S).");
  } else if (!TextEquals(design.type, "Parallel")) {
    preview.notes.push_back("The design's type '" + design.type +
                            "' is taken to cover what parallel lines at its spacing would: min(1, 2w/S).");
  }
  return true;
}

void PreviewCalculator::ReadCurves(const PreviewInputs& inputs, const std::vector<ColumnDetection>& columns,
                                   Preview& preview) {
  const double w = preview.truncation;
  size_t count = 0;
  for (const ColumnDetection& column : columns) count += std::max<size_t>(column.functions.size(), 1);
  preview.curves.reserve(count);
  for (size_t c = 0; c < columns.size(); ++c) {
    const ColumnDetection& column = columns[c];
    if (!column.problem.empty()) {
      DetectionCurve curve;
      curve.label = c < inputs.detection_columns.size() ? inputs.detection_columns[c] : "Study Area";
      curve.problem = column.problem;
      preview.curves.push_back(curve);
      continue;
    }
    for (size_t i = 0; i < column.functions.size(); ++i) {
      const DetectionFunction& function = column.functions[i];
      DetectionCurve curve;
      curve.label = column.labels[i];
      curve.sigma = function.sigma();
      curve.shape = function.shape();
      curve.average_detectability = column.averages[i];
      curve.function = function;
      curve.truncation = w;
      preview.curves.push_back(curve);
    }
  }
}

bool PreviewCalculator::ReadStrata(const PreviewInputs& inputs, Preview& preview) {
  const MapLayers& layers = inputs.layers;
  if (TrimBlanks(layers.region_layer).empty() || TextEquals(layers.region_layer, "None")) {
    preview.refusal = "No strata layer is chosen, so there are no strata to preview.";
    return false;
  }
  if (!layers.region || layers.region->strata.empty()) {
    preview.refusal = "The strata layer '" + layers.region_layer +
                      "' has no geometry, so the strata's areas and lines cannot be worked out.";
    return false;
  }
  const double coverage = std::min(1.0, 2 * preview.truncation / preview.spacing);
  const std::vector<StratumGeometry>& strata = layers.region->strata;
  preview.strata.reserve(strata.size());
  for (size_t s = 0; s < strata.size(); ++s) {
    StratumPreview stratum;
    const std::string& label = strata[s].label.empty() ? strata[s].id : strata[s].label;
    stratum.name = s < inputs.strata.size() && !inputs.strata[s].empty() ? inputs.strata[s] : label;
    stratum.id = strata[s].id;
    stratum.area = Area(strata[s]);
    stratum.coverage = coverage;
    preview.strata.push_back(stratum);
  }
  return true;
}

bool PreviewCalculator::ReadPopulation(const PreviewInputs& inputs, Preview& preview) {
  const std::string what = inputs.clusters ? "clusters" : "animals";
  preview.population_size = inputs.population_size;
  const bool fixed_n = TextEquals(inputs.population_size, "Fixed N");
  const bool fixed_d = TextEquals(inputs.population_size, "Fixed D");
  const bool poisson_n = TextEquals(inputs.population_size, "Poisson N");
  if (!fixed_n && !fixed_d && !poisson_n) {
    preview.refusal = "No population size option is chosen, so there is no population to preview.";
    return false;
  }
  if (fixed_n) {
    preview.population_source = "The " + what + " per stratum are the fixed N typed on the Population page.";
  } else if (fixed_d) {
    preview.population_source = "The " + what +
                                " per stratum are expected from the fixed average density typed on the "
                                "Population page times the stratum's area; each repetition draws a "
                                "Poisson number around them.";
  } else {
    preview.population_source = "The " + what +
                                " per stratum are expected from the density surface summed over the "
                                "stratum's area; each repetition draws a Poisson number around them.";
  }
  if (poisson_n && !preview.surface->HasSurface()) {
    const std::string why = preview.surface->notices.empty() ? "" : " " + preview.surface->notices.back();
    preview.refusal = "The population comes from the density surface, which cannot be worked out." + why;
    return false;
  }
  std::vector<double> surface_sums(preview.strata.size(), 0.0);
  if (poisson_n) {
    const StrataRaster& raster = *preview.surface->raster;
    const double cell_area = raster.Spacing() * raster.Spacing();
    const std::vector<int32_t>& owners = raster.Owners();
    for (size_t cell = 0; cell < owners.size(); ++cell) {
      const float value = preview.surface->values[cell];
      if (owners[cell] >= 0 && value > 0)
        surface_sums[static_cast<size_t>(owners[cell])] += value * cell_area;
    }
  }
  for (size_t s = 0; s < preview.strata.size(); ++s) {
    StratumPreview& stratum = preview.strata[s];
    if (poisson_n) {
      stratum.animals = surface_sums[s];
      continue;
    }
    static const std::string kNone;
    const std::string& text = s < inputs.population_values.size() ? inputs.population_values[s] : kNone;
    const std::optional<double> value = FiniteNumber(text);
    if (!value || *value < 0) {
      const std::string cell = std::string(fixed_n ? "N" : "D") + " of stratum '" + stratum.name + "'";
      preview.refusal = "The " + cell + " ('" + text +
                        "') is not a number of 0 or more, so the population cannot be previewed.";
      return false;
    }
    stratum.animals = fixed_n ? *value : *value * stratum.area;
  }
  return true;
}

bool PreviewCalculator::ReadDetection(const PreviewInputs& inputs,
                                      const std::vector<ColumnDetection>& columns, Preview& preview) {
  const bool by_stratum =
      inputs.detection_columns.size() > 1 && inputs.detection_columns.size() == preview.strata.size();
  for (size_t s = 0; s < preview.strata.size(); ++s) {
    StratumPreview& stratum = preview.strata[s];
    const ColumnDetection& column = columns[by_stratum ? s : 0];
    if (!column.problem.empty()) {
      preview.refusal = column.problem;
      // The curve's sentence reads as a reason for the expected numbers too.
      const std::string curve_tail = ", so its detection curve cannot be drawn.";
      if (preview.refusal.size() > curve_tail.size() &&
          preview.refusal.compare(preview.refusal.size() - curve_tail.size(), curve_tail.size(),
                                  curve_tail) == 0) {
        preview.refusal.replace(preview.refusal.size() - curve_tail.size(), curve_tail.size(),
                                ", so the detections cannot be previewed.");
      }
      return false;
    }
    for (const std::string& note : column.notes) {
      if (std::find(preview.notes.begin(), preview.notes.end(), note) == preview.notes.end()) {
        preview.notes.push_back(note);
      }
    }
    double average = 0;
    for (size_t i = 0; i < column.functions.size(); ++i) {
      average += column.weights[i] * column.averages[i];
    }
    stratum.column = by_stratum ? s : 0;
    stratum.average_detectability = average;
    stratum.expected_detections = stratum.animals * stratum.coverage * average;
    // With clusters but no mean cluster size yet, the individuals are not known (NaN, JSON null).
    const double per_detection = !inputs.clusters               ? 1.0
                                 : inputs.mean_cluster_size > 0 ? inputs.mean_cluster_size
                                                                : std::numeric_limits<double>::quiet_NaN();
    stratum.expected_individuals = stratum.expected_detections * per_detection;
  }
  return true;
}

void PreviewCalculator::Sum(Preview& preview) {
  for (const StratumPreview& stratum : preview.strata) {
    preview.expected_detections += stratum.expected_detections;
    preview.expected_individuals += stratum.expected_individuals;
  }
  const double n = preview.expected_detections;
  preview.cv_guide = n > 0 ? std::sqrt(3 / n) : std::numeric_limits<double>::infinity();
  if (n < kFewDetections) {
    preview.warning = "Only " + MapNumber::Text(n, 4) +
                      " detections are expected in a repetition: fewer than 60, too few to fit a detection "
                      "function reliably (60 to 80 is the usual minimum).";
  }
  if (preview.clusters && !(preview.mean_cluster_size > 0)) {
    // The mean is read from the Population tab's cluster controls as they stand; 0 where they give none.
    preview.notes.push_back(
        "Detections are of clusters; the cluster values on the Population tab do not give a mean cluster "
        "size above 0 as they stand, so the expected individuals are not worked out.");
  } else if (preview.clusters) {
    preview.notes.push_back(
        "Detections are of clusters; the expected individuals are the clusters detected "
        "times the mean cluster size " +
        MapNumber::Text(preview.mean_cluster_size, 6) + ".");
  }
}

}  // namespace zrsimprp

#include "zrsimprp/preview/SurveyDrawer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/map/MapExtent.h"
#include "zrsimprp/map/MapNumber.h"

namespace zrsimprp {

namespace {

// Attempts at a point within a cell, or within a stratum's bounding box, before giving up on it.
constexpr int kCellTries = 64;
constexpr int kBoxTries = 4096;

MapExtent ExtentOf(const StratumGeometry& stratum) {
  MapExtent extent;
  for (const MapPolygon& polygon : stratum.polygons) {
    for (const auto& ring : polygon.rings) {
      for (const MapPoint& point : ring) extent.Include(point.x, point.y);
    }
  }
  return extent;
}

// The cells of the surface grouped by stratum, with their cumulative weights, and whether a cell lies
// wholly inside its stratum (all eight neighbours are the stratum's too), so that a point in it needs
// no test against the outline.
class SurfaceCells {
 public:
  SurfaceCells(const MapModel& surface, size_t strata) : first_(strata + 1, 0) {
    if (!surface.HasSurface()) return;
    raster_ = surface.raster.get();
    const std::vector<int32_t>& owners = raster_->Owners();
    for (int32_t owner : owners) {
      if (owner >= 0 && static_cast<size_t>(owner) < strata) ++first_[static_cast<size_t>(owner) + 1];
    }
    for (size_t s = 0; s < strata; ++s) first_[s + 1] += first_[s];
    cells_.resize(first_[strata]);
    cumulative_.resize(first_[strata]);
    std::vector<size_t> next(first_.begin(), first_.end() - 1);
    for (size_t cell = 0; cell < owners.size(); ++cell) {
      const int32_t owner = owners[cell];
      if (owner < 0 || static_cast<size_t>(owner) >= strata) continue;
      cells_[next[static_cast<size_t>(owner)]++] = cell;
    }
    for (size_t s = 0; s < strata; ++s) {
      double sum = 0;
      for (size_t i = first_[s]; i < first_[s + 1]; ++i) {
        const double value = surface.values[cells_[i]];
        if (value > 0) sum += value;
        cumulative_[i] = sum;
      }
    }
  }

  // The total weight of the stratum's cells; 0 when it has none (or only cells of value 0).
  double Total(size_t s) const { return first_[s + 1] > first_[s] ? cumulative_[first_[s + 1] - 1] : 0.0; }

  // A cell of the stratum chosen in proportion to its value: u uniform on [0, 1).
  size_t Pick(size_t s, double u) const {
    const double target = u * Total(s);
    const auto begin = cumulative_.begin() + static_cast<std::ptrdiff_t>(first_[s]);
    const auto end = cumulative_.begin() + static_cast<std::ptrdiff_t>(first_[s + 1]);
    auto found = std::upper_bound(begin, end, target);
    if (found == end) --found;
    return cells_[static_cast<size_t>(found - cumulative_.begin())];
  }

  bool Interior(size_t cell) const {
    const int32_t columns = raster_->Columns();
    const int32_t col = static_cast<int32_t>(cell % static_cast<size_t>(columns));
    const int32_t row = static_cast<int32_t>(cell / static_cast<size_t>(columns));
    const int32_t owner = raster_->Owner(col, row);
    for (int32_t dr = -1; dr <= 1; ++dr) {
      for (int32_t dc = -1; dc <= 1; ++dc) {
        const int32_t c = col + dc;
        const int32_t r = row + dr;
        if (c < 0 || r < 0 || c >= columns || r >= raster_->Rows()) return false;
        if (raster_->Owner(c, r) != owner) return false;
      }
    }
    return true;
  }

  const StrataRaster* Raster() const { return raster_; }

 private:
  const StrataRaster* raster_ = nullptr;
  std::vector<size_t> first_;
  std::vector<size_t> cells_;
  std::vector<double> cumulative_;
};

class Placer {
 public:
  Placer(const LayerShapes& strata, const SurfaceCells& cells) : strata_(strata), cells_(cells) {
    for (const StratumGeometry& stratum : strata.strata) boxes_.push_back(ExtentOf(stratum));
  }

  // A point of the stratum, by the surface where it has cells there, else evenly over the stratum.
  bool Place(size_t s, PortableRandom& random, double& x, double& y) const {
    const StratumGeometry& stratum = strata_.strata[s];
    if (cells_.Raster() != nullptr && cells_.Total(s) > 0) {
      const StrataRaster& raster = *cells_.Raster();
      const size_t cell = cells_.Pick(s, random.Uniform());
      const int32_t columns = raster.Columns();
      const int32_t col = static_cast<int32_t>(cell % static_cast<size_t>(columns));
      const int32_t row = static_cast<int32_t>(cell / static_cast<size_t>(columns));
      const double spacing = raster.Spacing();
      const bool interior = cells_.Interior(cell);
      for (int attempt = 0; attempt < kCellTries; ++attempt) {
        x = raster.OriginX() + (col + random.Uniform()) * spacing;
        y = raster.OriginY() + (row + random.Uniform()) * spacing;
        if (interior || SurveyDrawer::Inside(stratum, x, y)) return true;
      }
      x = raster.CentreX(col);
      y = raster.CentreY(row);
      return true;
    }
    const MapExtent& box = boxes_[s];
    if (box.empty) return false;
    for (int attempt = 0; attempt < kBoxTries; ++attempt) {
      x = box.min_x + random.Uniform() * box.Width();
      y = box.min_y + random.Uniform() * box.Height();
      if (SurveyDrawer::Inside(stratum, x, y)) return true;
    }
    return false;
  }

 private:
  const LayerShapes& strata_;
  const SurfaceCells& cells_;
  std::vector<MapExtent> boxes_;
};

uint64_t CountOf(const Preview& preview, double expected, PortableRandom& random) {
  if (TextEquals(preview.population_size, "Fixed N")) {
    const double whole = std::floor(expected);
    // A fractional N is met on average.
    return static_cast<uint64_t>(whole) + (random.Uniform() < expected - whole ? 1 : 0);
  }
  return random.Poisson(expected);
}

size_t PickLevel(const ColumnDetection& column, PortableRandom& random) {
  if (column.functions.size() <= 1) return 0;
  const double u = random.Uniform();
  double sum = 0;
  for (size_t i = 0; i < column.weights.size(); ++i) {
    sum += column.weights[i];
    if (u < sum) return i;
  }
  return column.functions.size() - 1;
}

}  // namespace

bool SurveyDrawer::Inside(const StratumGeometry& stratum, double x, double y) {
  bool inside = false;
  for (const MapPolygon& polygon : stratum.polygons) {
    for (const auto& ring : polygon.rings) {
      const size_t n = ring.size();
      for (size_t i = 0, j = n - 1; i < n; j = i++) {
        const MapPoint& a = ring[i];
        const MapPoint& b = ring[j];
        if ((a.y > y) != (b.y > y) && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x) inside = !inside;
      }
    }
  }
  return inside;
}

std::vector<SurveyLine> SurveyDrawer::ClipLines(const LayerShapes& strata, double first, double last,
                                                double spacing) {
  std::vector<SurveyLine> lines;
  if (!(spacing > 0) || first > last) return lines;
  const double count = std::floor((last - first) / spacing) + 1;
  if (!(count <= SurveyDrawer::kMaxLines + 1)) return lines;
  const int64_t lines_across = static_cast<int64_t>(count);
  std::vector<std::pair<int64_t, double>> crossings;
  for (size_t s = 0; s < strata.strata.size(); ++s) {
    crossings.clear();
    for (const MapPolygon& polygon : strata.strata[s].polygons) {
      for (const auto& ring : polygon.rings) {
        const size_t n = ring.size();
        for (size_t i = 0; i < n; ++i) {
          const MapPoint& a = ring[i];
          const MapPoint& b = ring[(i + 1) % n];
          if (a.x == b.x) continue;
          const double low = std::min(a.x, b.x);
          const double high = std::max(a.x, b.x);
          // Each edge counts the lines in [low, high), so a line through a vertex crosses once.
          int64_t k = std::max<int64_t>(0, static_cast<int64_t>(std::ceil((low - first) / spacing)));
          for (; k < lines_across; ++k) {
            const double x = first + static_cast<double>(k) * spacing;
            if (x < low) continue;
            if (x >= high) break;
            crossings.emplace_back(k, a.y + (x - a.x) * (b.y - a.y) / (b.x - a.x));
          }
        }
      }
    }
    std::sort(crossings.begin(), crossings.end());
    for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
      if (crossings[i].first != crossings[i + 1].first) {
        --i;  // an odd crossing left over by a degenerate ring: start again at the next one
        continue;
      }
      const double x = first + static_cast<double>(crossings[i].first) * spacing;
      if (crossings[i + 1].second > crossings[i].second) {
        lines.push_back({x, crossings[i].second, crossings[i + 1].second, static_cast<int32_t>(s)});
      }
    }
  }
  std::stable_sort(lines.begin(), lines.end(),
                   [](const SurveyLine& a, const SurveyLine& b) { return a.x < b.x; });
  return lines;
}

DrawnSurvey SurveyDrawer::Draw(const Preview& preview, const LayerShapes& strata, uint64_t seed) {
  DrawnSurvey survey;
  survey.seed = seed;
  if (!preview.Usable()) {
    survey.refusal = preview.refusal;
    return survey;
  }
  const size_t count = std::min(strata.strata.size(), preview.strata.size());
  double expected = 0;
  for (size_t s = 0; s < count; ++s) expected += preview.strata[s].animals;
  if (!(expected <= kMaxAnimals)) {
    survey.refusal = "The population of " + MapNumber::Text(expected, 3) +
                     (preview.clusters ? " clusters" : " animals") + " is more than the " +
                     MapNumber::Text(kMaxAnimals, 3) + " a drawn survey places, so no survey is drawn.";
    return survey;
  }
  MapExtent extent;
  for (const StratumGeometry& stratum : strata.strata) extent.Include(ExtentOf(stratum));
  const double spacing = preview.spacing;
  const double lines_across = extent.Width() / spacing;
  if (!(lines_across <= kMaxLines)) {
    survey.refusal = "The spacing " + MapNumber::Text(spacing) + " lays " + MapNumber::Text(lines_across, 3) +
                     " lines across the strata, more than the " + MapNumber::Text(kMaxLines, 3) +
                     " a drawn survey lays, so no survey is drawn.";
    return survey;
  }
  PortableRandom random(seed);
  const double first = extent.min_x + random.Uniform() * spacing;
  survey.lines = ClipLines(strata, first, extent.max_x, spacing);
  for (const SurveyLine& line : survey.lines) survey.line_length += line.y1 - line.y0;

  static const MapModel kNoSurface;
  const MapModel& surface = preview.surface ? *preview.surface : kNoSurface;
  const SurfaceCells cells(surface, count);
  if (!surface.HasSurface()) {
    survey.notes.push_back("The density surface cannot be worked out, so the animals are placed evenly.");
  }
  if (!TextEquals(preview.design_type, "Parallel")) {
    survey.notes.push_back("The lines are drawn as parallel lines at the design's spacing.");
  }
  const Placer placer(strata, cells);
  const double w = preview.truncation;
  survey.animals_by_stratum.assign(count, 0);
  survey.detections_by_stratum.assign(count, 0);
  survey.animals.reserve(static_cast<size_t>(expected * 1.01) + 16);
  for (size_t s = 0; s < count; ++s) {
    const StratumPreview& stratum = preview.strata[s];
    const ColumnDetection& column = preview.columns[stratum.column];
    const uint64_t animals = CountOf(preview, stratum.animals, random);
    for (uint64_t i = 0; i < animals; ++i) {
      DrawnAnimal animal;
      animal.stratum = static_cast<int32_t>(s);
      if (!placer.Place(s, random, animal.x, animal.y)) break;
      const size_t level = PickLevel(column, random);
      if (!column.functions.empty()) {
        // The nearest line of the whole systematic grid, laid or not: a line just past the strata's
        // edge still sees the animals within w of it, as the expected numbers assume.
        const double nearest = std::round((animal.x - first) / spacing);
        const double distance = std::fabs(animal.x - (first + nearest * spacing));
        if (distance <= w) animal.detected = random.Uniform() < column.functions[level].At(distance);
      }
      survey.animals.push_back(animal);
      ++survey.animals_by_stratum[s];
      if (animal.detected) ++survey.detections_by_stratum[s];
    }
    survey.total_animals += survey.animals_by_stratum[s];
    survey.total_detections += survey.detections_by_stratum[s];
  }
  return survey;
}

}  // namespace zrsimprp

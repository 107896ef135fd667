#include "zrsimprp/map/DensityMapBuilder.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/map/DensityFormula.h"
#include "zrsimprp/map/MapNumber.h"
#include "zrsimprp/surface/DensitySurfaceReader.h"

namespace zrsimprp {

namespace {

constexpr float kNoValue = std::numeric_limits<float>::quiet_NaN();
// A Gaussian bump is negligible (below 0.04 % of its amplitude) beyond four sigma.
constexpr double kBumpReach = 4.0;

// Twice the signed area and the area-weighted centre of a ring.
MapPoint RingCentroid(const std::vector<MapPoint>& ring, double& twice_area) {
  double cx = 0;
  double cy = 0;
  twice_area = 0;
  for (size_t i = 0; i < ring.size(); ++i) {
    const MapPoint& a = ring[i];
    const MapPoint& b = ring[(i + 1) % ring.size()];
    const double cross = a.x * b.y - b.x * a.y;
    twice_area += cross;
    cx += (a.x + b.x) * cross;
    cy += (a.y + b.y) * cross;
  }
  if (twice_area == 0) return ring.empty() ? MapPoint{} : ring.front();
  return {cx / (3 * twice_area), cy / (3 * twice_area)};
}

// A point inside the polygon for its label: on the level of the outer ring's centre, the middle of the
// widest stretch that lies inside (so a label never sits in a hole or outside a concave shape).
MapPoint InsidePoint(const MapPolygon& polygon, const MapPoint& centre) {
  std::vector<double> crossings;
  for (const auto& ring : polygon.rings) {
    for (size_t i = 0; i < ring.size(); ++i) {
      const MapPoint& a = ring[i];
      const MapPoint& b = ring[(i + 1) % ring.size()];
      if ((a.y > centre.y) != (b.y > centre.y)) {
        crossings.push_back(a.x + (centre.y - a.y) * (b.x - a.x) / (b.y - a.y));
      }
    }
  }
  std::sort(crossings.begin(), crossings.end());
  MapPoint best = centre;
  double widest = -1;
  for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
    if (crossings[i + 1] - crossings[i] > widest) {
      widest = crossings[i + 1] - crossings[i];
      best = {(crossings[i] + crossings[i + 1]) / 2, centre.y};
    }
  }
  return best;
}

// Where a stratum's name goes: inside its largest part.
MapPoint LabelPoint(const StratumGeometry& stratum) {
  MapPoint best;
  double best_area = -1;
  for (const MapPolygon& polygon : stratum.polygons) {
    if (polygon.rings.empty() || polygon.rings.front().empty()) continue;
    double twice_area = 0;
    const MapPoint centre = RingCentroid(polygon.rings.front(), twice_area);
    if (std::fabs(twice_area) > best_area) {
      best_area = std::fabs(twice_area);
      best = InsidePoint(polygon, centre);
    }
  }
  return best;
}

// A DSM field's value as a number; false when it is not one (or beyond a double).
bool ReadNumber(const std::string& text, double& value) {
  if (!IsNumeric(text)) return false;
  try {
    value = ToDouble(text);
  } catch (const RuntimeError&) {
    return false;
  }
  return std::isfinite(value);
}

// The map's sentence for a problem the surface reader found in a typed value; "" for a problem the
// map draws anyway (a negative density or amplitude is shown as it is). `name` is the stratum's name
// or the heading of the hotspot's column.
std::string Notice(const DensitySurfaceProblem& problem, const std::string& name) {
  const bool blank =
      problem.kind == SurfaceProblemKind::kBlank || problem.kind == SurfaceProblemKind::kMissing;
  const bool not_a_number =
      problem.kind == SurfaceProblemKind::kNotANumber || problem.kind == SurfaceProblemKind::kNotFinite;
  switch (problem.input) {
    case SurfaceInput::kGridSpacing:
      if (blank) return "The grid spacing is blank, so the surface cannot be drawn.";
      if (not_a_number) {
        return "The grid spacing '" + problem.text + "' is not a number, so the surface cannot be drawn.";
      }
      return "The grid spacing must be greater than 0 for the surface to be drawn.";
    case SurfaceInput::kStratumDensity:
      if (blank) return "The density of stratum '" + name + "' is blank, so the surface cannot be drawn.";
      if (not_a_number) {
        return "The density of stratum '" + name + "' ('" + problem.text +
               "') is not a number, so the surface cannot be drawn.";
      }
      return "";
    case SurfaceInput::kFormula:
      return "The formula is empty: type one, such as = -100 + x*1.02 + y*1.15, to see the surface.";
    case SurfaceInput::kHotspot: {
      const std::string value = "Hotspot " + std::to_string(problem.index + 1) + ": the " + name;
      if (blank) return value + " is blank, so the hotspot is not drawn.";
      if (not_a_number) {
        return value + " '" + problem.text + "' is not a number, so the hotspot is not drawn.";
      }
      if (problem.kind == SurfaceProblemKind::kNotPositive) {
        return value + " must be greater than 0, so the hotspot is not drawn.";
      }
      return "";
    }
  }
  return "";
}

// The surface is kept in single precision: a value beyond its range cannot be drawn.
bool FitsTheSurface(double value) {
  return std::isfinite(value) && std::fabs(value) <= std::numeric_limits<float>::max();
}

// The cell index range [first, end) that covers [low, high] along one axis, clamped to the grid.
void CellSpan(double low, double high, double origin, double spacing, int32_t cells, int32_t& first,
              int32_t& end) {
  const double from = std::floor((low - origin) / spacing);
  const double to = std::ceil((high - origin) / spacing) + 1;
  first = static_cast<int32_t>(std::clamp(from, 0.0, static_cast<double>(cells)));
  end = static_cast<int32_t>(std::clamp(to, 0.0, static_cast<double>(cells)));
}

}  // namespace

MapModel DensityMapBuilder::StrataOnly(const MapLayers& layers) {
  MapModel model;
  AddOutlines(model, layers);
  model.colour_by_stratum = true;
  return model;
}

void DensityMapBuilder::AddOutlines(MapModel& model, const MapLayers& layers) {
  model.layer_name = layers.region_layer;
  if (!layers.region) {
    if (!layers.region_notice.empty()) model.notices.push_back(layers.region_notice);
    return;
  }
  const MapExtent& extent = layers.region_extent;
  if (!std::isfinite(extent.min_x) || !std::isfinite(extent.min_y) || !std::isfinite(extent.Width()) ||
      !std::isfinite(extent.Height())) {
    model.notices.push_back("The region / strata layer '" + layers.region_layer +
                            "' spans coordinates that are not finite numbers, so there is nothing to draw.");
    return;
  }
  model.strata = layers.region;
  model.geographic = layers.region->reference.geographic;
  model.metres = layers.region->reference.metres;
  model.reference_name = layers.region->reference.name;
  model.extent = layers.region_extent;
  for (const StratumGeometry& stratum : layers.region->strata) {
    model.labels.push_back({stratum.label.empty() ? stratum.id : stratum.label, LabelPoint(stratum)});
  }
  if (model.geographic) {
    const std::string reference = model.reference_name.empty() ? "" : " (" + model.reference_name + ")";
    model.notices.push_back("The layer's coordinates are degrees of longitude and latitude" + reference +
                            ": the map is drawn unprojected and the grid spacing is read in degrees.");
  }
}

MapModel DensityMapBuilder::Build(const MapLayers& layers, const DensityMapInputs& inputs,
                                  const MapModel* previous) {
  MapModel model;
  AddOutlines(model, layers);
  if (!model.Drawable()) return model;
  const DensitySurfaceReading reading = DensitySurfaceReader::Read(inputs.SurfaceInputs());
  const std::vector<Hotspot> hotspots = ReadHotspots(inputs, reading, model);

  double spacing = 0;
  if (!ReadSpacing(inputs.grid_spacing, reading, model, spacing)) return model;
  if (previous != nullptr && previous->strata == model.strata && previous->raster &&
      previous->raster->Spacing() == spacing) {
    model.raster = previous->raster;
  } else {
    const double crossings = StrataRaster::CrossingCount(*model.strata, model.extent, spacing);
    if (crossings > kMaxCrossings) {
      model.notices.push_back(
          "The outlines of the layer '" + model.layer_name + "' cross the rows of grid spacing " +
          std::string(TrimBlanks(inputs.grid_spacing)) + " " + MapNumber::Text(crossings, 3) +
          " times, more than the " + MapNumber::Text(kMaxCrossings, 3) +
          " the map follows, so the surface is not drawn; a larger grid spacing draws it.");
      return model;
    }
    model.raster = StrataRaster::Make(*model.strata, model.extent, spacing);
  }

  bool computed = false;
  if (TextEquals(inputs.description, "Uniform")) {
    computed = UniformValues(inputs, reading, model);
    model.legend = "Relative density: each stratum's typed density";
  } else if (TextEquals(inputs.description, "Simple")) {
    computed = FormulaValues(inputs, reading, model);
    model.legend = "Relative density: the formula at each grid cell's centre";
  } else if (TextEquals(inputs.description, "DSM")) {
    computed = DsmValues(layers, model);
    model.legend = "Relative density: the DSM field '" + layers.dsm_field + "' of each polygon";
  } else {
    model.notices.push_back("No density option is chosen, so the surface cannot be drawn.");
  }
  if (!computed) {
    model.values.clear();
    model.legend.clear();
    return model;
  }
  AddBumps(hotspots, model);
  bool any_hotspot = false;
  for (const Hotspot& hotspot : hotspots) any_hotspot = any_hotspot || hotspot.usable;
  if (any_hotspot) {
    model.legend +=
        ", plus each hotspot as a Gaussian bump: amplitude × exp(−d² / 2σ²); circles mark one sigma";
  }
  model.legend += ".";
  if (!FindRange(model)) {
    model.notices.push_back("The surface reaches values too large to draw, so it is not drawn.");
    model.values.clear();
    model.legend.clear();
  }
  return model;
}

bool DensityMapBuilder::ReadSpacing(const std::string& text, const DensitySurfaceReading& reading,
                                    MapModel& model, double& spacing) {
  if (const DensitySurfaceProblem* problem = reading.ProblemOf(*reading.grid_spacing)) {
    model.notices.push_back(Notice(*problem, ""));
    return false;
  }
  spacing = *reading.grid_spacing->number;
  const double cells = StrataRaster::CellCount(model.extent, spacing);
  if (cells > kMaxCells) {
    model.notices.push_back("The grid spacing " + std::string(TrimBlanks(text)) + " would need " +
                            MapNumber::Text(cells, 3) + " cells, more than the " +
                            MapNumber::Text(kMaxCells, 3) +
                            " the map draws, so the surface is not drawn; a larger grid spacing draws it.");
    return false;
  }
  return true;
}

std::vector<DensityMapBuilder::Hotspot> DensityMapBuilder::ReadHotspots(const DensityMapInputs& inputs,
                                                                        const DensitySurfaceReading& reading,
                                                                        MapModel& model) {
  std::vector<Hotspot> hotspots;
  for (size_t i = 0; i < reading.hotspots.size(); ++i) {
    const std::string row = std::to_string(i + 1);
    const auto& values = reading.hotspots[i];
    // The first value without a number keeps the hotspot off the map; then a sigma that is not above
    // 0. A negative amplitude is drawn: it makes a dip.
    const DensitySurfaceProblem* problem = nullptr;
    for (size_t col = 0; col < values.size() && !problem; ++col) {
      if (!values[col].number) problem = reading.ProblemOf(values[col]);
    }
    if (!problem) problem = reading.ProblemOf(values[static_cast<size_t>(HotspotField::kSigma)]);
    if (problem) {
      model.notices.push_back(Notice(*problem, inputs.hotspot_headings[static_cast<size_t>(problem->field)]));
      continue;
    }
    double numbers[kHotspotFields];
    for (size_t col = 0; col < kHotspotFields; ++col) numbers[col] = *values[col].number;
    Hotspot hotspot;
    hotspot.usable = true;
    hotspot.mark.row = static_cast<int32_t>(i + 1);
    hotspot.mark.centre = {numbers[0], numbers[1]};
    hotspot.mark.sigma = numbers[2];
    hotspot.mark.amplitude = numbers[3];
    hotspot.mark.inside = model.StratumAtPoint(numbers[0], numbers[1]) >= 0;
    if (!hotspot.mark.inside) {
      model.notices.push_back("Hotspot " + row + " (" + inputs.hotspot_headings[0] + " " +
                              MapNumber::Text(numbers[0], 10) + ", " + inputs.hotspot_headings[1] + " " +
                              MapNumber::Text(numbers[1], 10) + ") lies outside every stratum.");
    }
    model.hotspots.push_back(hotspot.mark);
    hotspots.push_back(hotspot);
  }
  return hotspots;
}

std::string DensityMapBuilder::StratumName(const DensityMapInputs& inputs, const MapModel& model,
                                           size_t index) {
  if (index < inputs.strata.size() && !TrimBlanks(inputs.strata[index]).empty()) return inputs.strata[index];
  if (index < model.labels.size() && !model.labels[index].text.empty()) return model.labels[index].text;
  return std::to_string(index + 1);
}

bool DensityMapBuilder::UniformValues(const DensityMapInputs& inputs, const DensitySurfaceReading& reading,
                                      MapModel& model) {
  const size_t strata = model.strata->strata.size();
  if (inputs.densities.size() != strata) {
    model.notices.push_back("The density table has " + std::to_string(inputs.densities.size()) +
                            " strata but the layer '" + model.layer_name + "' has " + std::to_string(strata) +
                            ", so the surface cannot be drawn.");
    return false;
  }
  std::vector<float> by_stratum(strata);
  for (size_t i = 0; i < strata; ++i) {
    const DensitySurfaceReading::Value& density = reading.densities[i];
    if (!density.number) {
      model.notices.push_back(Notice(*reading.ProblemOf(density), StratumName(inputs, model, i)));
      return false;
    }
    const double value = *density.number;
    if (!FitsTheSurface(value)) {
      model.notices.push_back("The density of stratum '" + StratumName(inputs, model, i) + "' ('" +
                              inputs.densities[i] +
                              "') is too large to draw, so the surface cannot be drawn.");
      return false;
    }
    by_stratum[i] = static_cast<float>(value);
  }
  const std::vector<int32_t>& owners = model.raster->Owners();
  model.values.assign(owners.size(), kNoValue);
  for (size_t cell = 0; cell < owners.size(); ++cell) {
    if (owners[cell] >= 0) model.values[cell] = by_stratum[static_cast<size_t>(owners[cell])];
  }
  return true;
}

bool DensityMapBuilder::FormulaValues(const DensityMapInputs& inputs, const DensitySurfaceReading& reading,
                                      MapModel& model) {
  if (reading.formula_problem) {
    model.notices.push_back(Notice(reading.problems[*reading.formula_problem], ""));
    return false;
  }
  DensityFormula formula(inputs.formula);
  if (!formula.Parses()) {
    model.notices.push_back("The formula '" + reading.formula + "' cannot be evaluated (" + formula.Error() +
                            "), so the surface is not drawn.");
    return false;
  }
  const StrataRaster& raster = *model.raster;
  model.values.assign(raster.Owners().size(), kNoValue);
  for (int32_t row = 0; row < raster.Rows(); ++row) {
    const double y = raster.CentreY(row);
    for (int32_t col = 0; col < raster.Columns(); ++col) {
      const size_t cell = raster.Index(col, row);
      if (raster.Owners()[cell] < 0) continue;
      const double x = raster.CentreX(col);
      const double value = formula.Evaluate(x, y);
      if (!FitsTheSurface(value)) {
        model.notices.push_back("The formula has no finite value at x " + MapNumber::Coordinate(x) + ", y " +
                                MapNumber::Coordinate(y) + ", so the surface is not drawn.");
        return false;
      }
      model.values[cell] = static_cast<float>(value);
    }
  }
  return true;
}

bool DensityMapBuilder::DsmValues(const MapLayers& layers, MapModel& model) {
  if (!layers.dsm) {
    model.notices.push_back(layers.dsm_notice.empty()
                                ? "The DSM layer has no geometry, so the surface cannot be drawn."
                                : layers.dsm_notice);
    return false;
  }
  std::vector<float> by_polygon(layers.dsm_values.size());
  for (size_t i = 0; i < layers.dsm_values.size(); ++i) {
    const std::string text = VariantToText(layers.dsm_values[i]);
    double value = 0;
    if (!ReadNumber(text, value) || !FitsTheSurface(value)) {
      model.notices.push_back("The DSM field '" + layers.dsm_field + "' holds '" + text +
                              "' for the record " + layers.dsm->strata[i].id +
                              ", not a number it can draw, so the surface cannot be drawn.");
      return false;
    }
    by_polygon[i] = static_cast<float>(value);
  }
  MapExtent grid_extent = model.extent;
  const std::shared_ptr<const StrataRaster> dsm =
      StrataRaster::Make(*layers.dsm, grid_extent, model.raster->Spacing());
  const std::vector<int32_t>& owners = model.raster->Owners();
  model.values.assign(owners.size(), kNoValue);
  for (size_t cell = 0; cell < owners.size(); ++cell) {
    const int32_t polygon = dsm->Owners()[cell];
    if (owners[cell] >= 0 && polygon >= 0) model.values[cell] = by_polygon[static_cast<size_t>(polygon)];
  }
  return true;
}

void DensityMapBuilder::AddBumps(const std::vector<Hotspot>& hotspots, MapModel& model) {
  const StrataRaster& raster = *model.raster;
  for (const Hotspot& hotspot : hotspots) {
    if (!hotspot.usable) continue;
    const HotspotMark& mark = hotspot.mark;
    const double reach = kBumpReach * mark.sigma;
    int32_t first_col = 0;
    int32_t end_col = 0;
    int32_t first_row = 0;
    int32_t end_row = 0;
    CellSpan(mark.centre.x - reach, mark.centre.x + reach, raster.OriginX(), raster.Spacing(),
             raster.Columns(), first_col, end_col);
    CellSpan(mark.centre.y - reach, mark.centre.y + reach, raster.OriginY(), raster.Spacing(), raster.Rows(),
             first_row, end_row);
    const double two_sigma_squared = 2 * mark.sigma * mark.sigma;
    for (int32_t row = first_row; row < end_row; ++row) {
      const double dy = raster.CentreY(row) - mark.centre.y;
      for (int32_t col = first_col; col < end_col; ++col) {
        const size_t cell = raster.Index(col, row);
        if (std::isnan(model.values[cell])) continue;
        const double dx = raster.CentreX(col) - mark.centre.x;
        model.values[cell] +=
            static_cast<float>(mark.amplitude * std::exp(-(dx * dx + dy * dy) / two_sigma_squared));
      }
    }
  }
}

bool DensityMapBuilder::FindRange(MapModel& model) {
  bool any = false;
  for (const float value : model.values) {
    if (std::isnan(value)) continue;
    if (std::isinf(value)) return false;
    if (!any) {
      model.value_min = model.value_max = value;
      any = true;
    }
    model.value_min = std::min<double>(model.value_min, value);
    model.value_max = std::max<double>(model.value_max, value);
  }
  model.colour_stops = ColourStops::Of(model.values);
  return true;
}

}  // namespace zrsimprp

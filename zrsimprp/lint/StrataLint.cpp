#include "zrsimprp/lint/StrataLint.h"

#include <algorithm>
#include <cmath>
#include <exception>

#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/lint/LintCodes.h"
#include "zrsimprp/lint/StrataGeometry.h"
#include "zrsimprp/map/MapNumber.h"
#include "zrsimprp/preview/DetectionFunction.h"

namespace zrsimprp {

namespace {

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::optional<double> Positive(const std::string& text) {
  std::optional<double> value = FiniteNumber(text);
  if (value && *value > 0) return value;
  return std::nullopt;
}

std::string Shown(const std::string& text) { return std::string(TrimBlanks(text)); }

// "a", "a and b", "a, b and c".
std::string JoinedWithAnd(const std::vector<std::string>& parts) {
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) text += i + 1 == parts.size() ? " and " : ", ";
    text += parts[i];
  }
  return text;
}

}  // namespace

std::vector<Finding> StrataLint::Check() {
  findings_.clear();
  if (TextEquals(values_.density_description, "Uniform")) {
    CheckMissingValues(entry_key::kDensity, "Densities", "density", values_.densities_given,
                       values_.density_line);
  }
  if (TextEquals(values_.population_size, "Fixed N") || TextEquals(values_.population_size, "Fixed D")) {
    CheckMissingValues(entry_key::kPopSize, "Values", "population size", values_.population_values.size(),
                       values_.population_line);
  }
  CheckZeroValues();
  if (const StrataGeometry* geometry = values_.layer.empty() ? nullptr : facts_.GeometryOf(values_.layer)) {
    CheckDegrees(*geometry);
    CheckHotspots(*geometry);
    CheckGrid(*geometry);
  }
  CheckDetection();
  return std::move(findings_);
}

std::string StrataLint::StrataPhrase(const std::vector<FindingStratum>& strata) {
  auto name = [](const FindingStratum& stratum) { return "'" + stratum.name + "'"; };
  if (strata.size() == 1) return "stratum " + name(strata.front());
  std::string names;
  const std::size_t shown = std::min(strata.size(), kNamedStrata);
  for (std::size_t i = 0; i < shown; ++i) {
    if (i > 0) names += i + 1 == shown && strata.size() == shown ? " and " : ", ";
    names += name(strata[i]);
  }
  if (strata.size() > shown) names += " and " + std::to_string(strata.size() - shown) + " more";
  return std::to_string(strata.size()) + " strata (" + names + ")";
}

// The preview's detection function, so that the lint and the preview never disagree on a curve.
double StrataLint::HazardRateAt(double distance, double scale, double shape) {
  return DetectionFunction(DetectionFunction::Key::kHazardRate, scale, shape).At(distance);
}

double StrataLint::AverageDetection(double scale, std::optional<double> shape, double truncation) {
  const DetectionFunction function =
      shape ? DetectionFunction(DetectionFunction::Key::kHazardRate, scale, *shape)
            : DetectionFunction(DetectionFunction::Key::kHalfNormal, scale, 0);
  return function.AverageDetectability(truncation);
}

std::string StrataLint::StratumName(std::size_t index) {
  const auto& strata = facts_.StrataOf(values_.layer);
  if (strata && index < strata->size() && !(*strata)[index].empty()) return (*strata)[index];
  return "column " + std::to_string(index + 1);
}

std::vector<FindingStratum> StrataLint::StrataAt(const std::vector<std::size_t>& indices) {
  const std::vector<std::string>& ids = facts_.StrataIdsOf(values_.layer);
  const auto& labels = facts_.StrataOf(values_.layer);
  std::vector<FindingStratum> strata;
  strata.reserve(indices.size());
  for (std::size_t index : indices) {
    FindingStratum stratum;
    stratum.index = index;
    stratum.id = index < ids.size() ? ids[index] : "";
    stratum.name =
        labels && index < labels->size() && !(*labels)[index].empty() ? (*labels)[index] : StratumName(index);
    strata.push_back(std::move(stratum));
  }
  return strata;
}

std::string StrataLint::Units(const StrataGeometry& geometry) const {
  return geometry.Geographic() ? "degrees" : "map units";
}

void StrataLint::AddScaleFinding(const char* code, const std::vector<DetectionColumn>& columns,
                                 const std::string& sentence) {
  Finding& finding = Add(code, entry_key::kDetFuncParam, "Scale", values_.scale_line, sentence);
  // The person is taken to the Scale row of the Detectability table, in the columns concerned.
  finding.place_kind = "parameter";
  finding.place = "Scale";
  SetColumnStrata(finding, columns);
}

Finding& StrataLint::Add(const char* code, const std::string& entry, const std::string& field, int line,
                         const std::string& sentence) {
  Finding finding;
  finding.code = code;
  finding.severity = Severity::kWarning;
  finding.entry = entry;
  finding.field = field;
  finding.line = line;
  finding.sentence = sentence;
  findings_.push_back(std::move(finding));
  return findings_.back();
}

void StrataLint::SetStrata(Finding& finding, std::vector<FindingStratum> strata) {
  if (strata.size() == 1) {
    finding.place_kind = "stratum";
    finding.place = strata.front().name;
  }
  finding.strata = std::move(strata);
}

void StrataLint::CheckMissingValues(const char* entry, const std::string& field, const std::string& what,
                                    std::size_t given, int line) {
  // At the end of Initialize the strata reach the pages; strata beyond the values given keep "0".
  const auto& strata = facts_.StrataOf(values_.layer);
  if (values_.layer.empty() || !strata || given >= strata->size()) return;
  std::vector<std::size_t> missing;
  for (std::size_t i = given; i < strata->size(); ++i) missing.push_back(i);
  std::vector<FindingStratum> concerned = StrataAt(missing);
  const bool one = concerned.size() == 1;
  Finding& finding =
      Add(lint_code::kStratumWithoutValue, entry, field, line,
          "The entry " + Quoted(entry) + " gives no " + what + " for " + StrataPhrase(concerned) +
              (one ? ", which keeps 0" : ", which keep 0") + "; give one value for each stratum.");
  SetStrata(finding, std::move(concerned));
}

void StrataLint::CheckZeroValues() {
  const std::size_t strata =
      values_.layer.empty() || !facts_.StrataOf(values_.layer) ? 0 : facts_.StrataOf(values_.layer)->size();
  if (TextEquals(values_.density_description, "Uniform")) {
    std::vector<std::size_t> zero;
    bool positive = false;
    for (std::size_t i = 0; i < values_.densities.size() && i < strata; ++i) {
      const std::optional<double> value = FiniteNumber(values_.densities[i]);
      if (value && *value == 0) zero.push_back(i);
      positive = positive || (value && *value > 0);
    }
    if (positive && !zero.empty()) {
      std::vector<FindingStratum> concerned = StrataAt(zero);
      const bool one = concerned.size() == 1;
      Finding& finding =
          Add(lint_code::kZeroDensity, entry_key::kDensity, "Densities", values_.density_line,
              "The density is 0 in " + StrataPhrase(concerned) +
                  " while other strata have positive densities, so no animals will be placed there; give " +
                  (one ? "it a positive density" : "them positive densities") + " if animals live there.");
      SetStrata(finding, std::move(concerned));
    }
  }
  if (TextEquals(values_.population_size, "Fixed N")) {
    std::vector<std::size_t> zero;
    for (std::size_t i = 0; i < values_.population_values.size() && i < strata; ++i) {
      const std::optional<double> value = FiniteNumber(values_.population_values[i]);
      if (value && *value == 0) zero.push_back(i);
    }
    if (!zero.empty()) {
      std::vector<FindingStratum> concerned = StrataAt(zero);
      const bool one = concerned.size() == 1;
      Finding& finding =
          Add(lint_code::kZeroPopulation, entry_key::kPopSize, "Values", values_.population_line,
              "The population size N is 0 in " + StrataPhrase(concerned) +
                  ", so no animals will be there; give " + (one ? "it" : "each") +
                  " the number of animals it should hold.");
      SetStrata(finding, std::move(concerned));
    }
  }
}

void StrataLint::CheckDegrees(const StrataGeometry& geometry) {
  if (!geometry.Geographic()) return;
  std::vector<std::string> distances;
  const bool surface =
      TextEquals(values_.density_description, "Uniform") || TextEquals(values_.density_description, "Simple");
  if (surface && values_.grid_spacing) distances.push_back("the grid spacing");
  if (!values_.hotspots.empty()) distances.push_back("the hotspots' centres and sigmas");
  if (!values_.scales.empty()) distances.push_back("the detection scale");
  const ProjectFacts::DesignDistances design = facts_.DistancesOfDesign(values_.design);
  if (!design.spacing.empty() && !design.truncation.empty()) {
    distances.push_back("the design's spacing and truncation distance");
  } else if (!design.spacing.empty()) {
    distances.push_back("the design's spacing");
  } else if (!design.truncation.empty()) {
    distances.push_back("the design's truncation distance");
  }
  if (distances.empty()) return;
  const std::string& reference = geometry.Shapes().reference.name;
  Add(lint_code::kDistancesInDegrees, entry_key::kStrataLayer, "", values_.layer_line,
      "The strata layer " + Quoted(values_.layer) + " has its coordinates in degrees" +
          (reference.empty() ? "" : " (" + reference + ")") + ", so " + JoinedWithAnd(distances) +
          (distances.size() == 1 ? " is" : " are") +
          " read in degrees too; reproject the layer with \"zrsim project import-layer ... --to-crs auto\" "
          "and give the distances in metres.");
}

void StrataLint::CheckHotspots(const StrataGeometry& geometry) {
  const MapExtent& extent = geometry.Extent();
  if (extent.empty) return;
  for (std::size_t i = 0; i < values_.hotspots.size(); ++i) {
    const Values::Hotspot& hotspot = values_.hotspots[i];
    if (hotspot.values.size() < 4) continue;  // the reading stops there; reported already
    const std::string number = std::to_string(i + 1);
    const std::optional<double> x = FiniteNumber(hotspot.values[0]);
    const std::optional<double> y = FiniteNumber(hotspot.values[1]);
    if (x && y && !geometry.InsideAStratum(*x, *y)) {
      Finding& finding =
          Add(lint_code::kHotspotOutside, entry_key::kHotspot, hotspot.field, hotspot.line,
              "The centre (" + Shown(hotspot.values[0]) + ", " + Shown(hotspot.values[1]) + ") of hotspot " +
                  number + " lies outside every stratum of the layer " + Quoted(values_.layer) + ", " +
                  MapNumber::Coordinate(geometry.DistanceToRegion(*x, *y)) + " " + Units(geometry) +
                  " from the region; move the centre into the region or delete the hotspot.");
      finding.place_kind = "hotspot";
      finding.place = number;
    }
    const std::optional<double> sigma = Positive(hotspot.values[2]);
    const double size = std::max(extent.Width(), extent.Height());
    if (sigma && size > 0 && *sigma > size) {
      Finding& finding =
          Add(lint_code::kHotspotWiderThanRegion, entry_key::kHotspot, hotspot.field, hotspot.line,
              "The sigma " + Shown(hotspot.values[2]) + " of hotspot " + number +
                  " is larger than the region of the layer " + Quoted(values_.layer) + " (" +
                  MapNumber::Coordinate(extent.Width()) + " by " + MapNumber::Coordinate(extent.Height()) +
                  " " + Units(geometry) +
                  "), so the hotspot raises the density almost evenly everywhere; give a sigma smaller "
                  "than the region.");
      finding.place_kind = "hotspot";
      finding.place = number;
    }
  }
}

void StrataLint::CheckGrid(const StrataGeometry& geometry) {
  const bool surface =
      TextEquals(values_.density_description, "Uniform") || TextEquals(values_.density_description, "Simple");
  if (!surface || !values_.grid_spacing) return;
  const std::optional<double> spacing = Positive(*values_.grid_spacing);
  if (!spacing) return;  // not a number or not above 0: reported already
  const std::string shown = Shown(*values_.grid_spacing);
  const double cells = geometry.CellCount(*spacing);
  if (cells > kMaxCells) {
    Add(lint_code::kGridTooFine, entry_key::kDensity, "GridSpace", values_.density_line,
        "The grid spacing " + shown + " makes " + MapNumber::Text(cells, 3) + " cells over the layer " +
            Quoted(values_.layer) +
            ", more than 10 million, so the simulation will be very slow; give a larger grid spacing.");
    return;
  }
  const std::vector<std::size_t> without = geometry.StrataWithoutCellCentre(*spacing);
  if (without.empty()) return;
  std::vector<FindingStratum> concerned = StrataAt(without);
  const bool one = concerned.size() == 1;
  Finding& finding =
      Add(lint_code::kGridTooCoarse, entry_key::kDensity, "GridSpace", values_.density_line,
          "The grid spacing " + shown + " leaves " + StrataPhrase(concerned) +
              " without a grid cell centre, so the density surface has no cell " +
              (one ? "there" : "in them") + "; give a grid spacing smaller than the smallest stratum.");
  SetStrata(finding, std::move(concerned));
}

// The column's scale and, with the Hazard Rate, its own shape; false when either is not usable (not a
// number or not above 0: reported already).
bool StrataLint::ColumnParameters(std::size_t column, bool hazard, DetectionColumn& parameters) const {
  if (column >= values_.scales.size()) return false;
  const std::optional<double> scale = Positive(values_.scales[column]);
  if (!scale) return false;
  parameters.column = column;
  parameters.scale = *scale;
  parameters.text = "the scale " + Shown(values_.scales[column]);
  if (!hazard) return true;
  if (column >= values_.shapes.size()) return false;
  const std::optional<double> shape = Positive(values_.shapes[column]);
  if (!shape) return false;
  parameters.shape = shape;
  parameters.text += " and shape " + Shown(values_.shapes[column]);
  return true;
}

void StrataLint::CheckDetection() {
  if (values_.scales.empty() || values_.design.empty()) return;
  const std::optional<double> truncation = Positive(facts_.DistancesOfDesign(values_.design).truncation);
  if (!truncation) return;
  const bool hazard = TextEquals(values_.detection_function, "Hazard Rate");
  // Each value column (the study area, or one stratum each) has its own scale and shape.
  std::vector<DetectionColumn> low;
  std::vector<DetectionColumn> high;
  for (std::size_t column = 0; column < values_.scales.size(); ++column) {
    DetectionColumn parameters;
    if (!ColumnParameters(column, hazard, parameters)) continue;
    parameters.average = AverageDetection(parameters.scale, parameters.shape, *truncation);
    if (parameters.average < kLowDetection) {
      low.push_back(parameters);
    } else if (hazard) {
      parameters.at_truncation = HazardRateAt(*truncation, parameters.scale, *parameters.shape);
      if (parameters.at_truncation > kHighDetection) high.push_back(parameters);
    }
  }
  const std::string function = hazard ? "Hazard Rate" : "Half-Normal";
  const std::string distance = MapNumber::Text(*truncation, 6);
  if (!low.empty()) {
    double largest = 0;
    for (const DetectionColumn& column : low) largest = std::max(largest, column.average);
    AddScaleFinding(lint_code::kDetectionTooLow, low,
                    "With " + ParametersPhrase(low, hazard) + " of the " + function + " detection function" +
                        StrataConcerned(low) + " and the design's truncation distance " + distance +
                        ", the average detection probability within the truncation distance is " +
                        (SameParameters(low) ? "" : "at most ") + MapNumber::Text(largest, 2) +
                        ", so almost no animals will be detected; give a larger scale or check the design's "
                        "truncation distance.");
  }
  if (!high.empty()) {
    double smallest = 1;
    for (const DetectionColumn& column : high) smallest = std::min(smallest, column.at_truncation);
    AddScaleFinding(lint_code::kDetectionTooHigh, high,
                    "With " + ParametersPhrase(high, hazard) + " of the " + function + " detection function" +
                        StrataConcerned(high) +
                        ", the detection probability at the design's truncation distance " + distance +
                        " is still " + (SameParameters(high) ? "" : "at least ") +
                        MapNumber::Text(smallest, 4) +
                        ", so almost every animal within it is detected; give a smaller scale or check the "
                        "design's truncation distance.");
  }
}

bool StrataLint::SameParameters(const std::vector<DetectionColumn>& columns) {
  for (const DetectionColumn& column : columns) {
    if (column.text != columns.front().text) return false;
  }
  return true;
}

// "the scale 5", or "the scales" where the strata concerned have different values.
std::string StrataLint::ParametersPhrase(const std::vector<DetectionColumn>& columns, bool hazard) {
  if (SameParameters(columns)) return columns.front().text;
  return hazard ? "the scales and shapes" : "the scales";
}

// " in stratum 'T2'" or " in 3 strata ('T1', 'T2' and 'T3')" where each stratum has its own parameters;
// "" for the study area's one column.
std::string StrataLint::StrataConcerned(const std::vector<DetectionColumn>& columns) {
  if (!values_.by_stratum) return "";
  return " in " + StrataPhrase(StrataAt(ColumnIndices(columns)));
}

std::vector<std::size_t> StrataLint::ColumnIndices(const std::vector<DetectionColumn>& columns) {
  std::vector<std::size_t> indices;
  indices.reserve(columns.size());
  for (const DetectionColumn& column : columns) indices.push_back(column.column);
  return indices;
}

void StrataLint::SetColumnStrata(Finding& finding, const std::vector<DetectionColumn>& columns) {
  // One column for the study area concerns no stratum in particular; the place stays the Scale row.
  if (values_.by_stratum) finding.strata = StrataAt(ColumnIndices(columns));
}

}  // namespace zrsimprp

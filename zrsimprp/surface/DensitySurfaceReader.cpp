#include "zrsimprp/surface/DensitySurfaceReader.h"

#include <algorithm>
#include <cmath>

#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

// What a number must be, beyond being one.
enum class Rule { kAnyNumber, kNotNegative, kPositive };

constexpr Rule kHotspotRules[kHotspotFields] = {Rule::kAnyNumber, Rule::kAnyNumber, Rule::kPositive,
                                                Rule::kNotNegative};

// The problem a number breaks by its rule, if any.
std::optional<SurfaceProblemKind> RuleBroken(double number, Rule rule) {
  if (rule == Rule::kNotNegative && number < 0) return SurfaceProblemKind::kNegative;
  if (rule == Rule::kPositive && !(number > 0)) return SurfaceProblemKind::kNotPositive;
  return std::nullopt;
}

// Reads one text by `rule`; a problem is `where` completed with its kind and the text, appended to
// `problems`.
DensitySurfaceReading::Value ReadValue(const std::string& text, Rule rule, DensitySurfaceProblem where,
                                       std::vector<DensitySurfaceProblem>& problems) {
  DensitySurfaceReading::Value value;
  std::optional<SurfaceProblemKind> kind;
  const std::string_view trimmed = TrimBlanks(text);
  if (trimmed.empty()) {
    kind = SurfaceProblemKind::kBlank;
  } else if (!IsNumeric(trimmed)) {
    kind = SurfaceProblemKind::kNotANumber;
  } else {
    value.number = FiniteNumber(trimmed);
    kind = value.number ? RuleBroken(*value.number, rule) : SurfaceProblemKind::kNotFinite;
  }
  if (kind) {
    where.kind = *kind;
    where.text = text;
    value.problem = problems.size();
    problems.push_back(std::move(where));
  }
  return value;
}

DensitySurfaceReading::Value Missing(DensitySurfaceProblem where,
                                     std::vector<DensitySurfaceProblem>& problems) {
  DensitySurfaceReading::Value value;
  where.kind = SurfaceProblemKind::kMissing;
  value.problem = problems.size();
  problems.push_back(std::move(where));
  return value;
}

DensitySurfaceProblem AtStratum(const std::vector<std::string>& strata, std::size_t index) {
  DensitySurfaceProblem where;
  where.input = SurfaceInput::kStratumDensity;
  where.index = index;
  if (index < strata.size()) where.stratum = strata[index];
  return where;
}

void ReadDensities(const DensitySurfaceInputs& inputs, DensitySurfaceReading& reading) {
  reading.densities.reserve(std::max(inputs.strata.size(), inputs.densities.size()));
  for (std::size_t i = 0; i < inputs.densities.size(); ++i) {
    reading.densities.push_back(
        ReadValue(inputs.densities[i], Rule::kNotNegative, AtStratum(inputs.strata, i), reading.problems));
  }
  for (std::size_t i = inputs.densities.size(); i < inputs.strata.size(); ++i) {
    reading.densities.push_back(Missing(AtStratum(inputs.strata, i), reading.problems));
  }
}

void ReadHotspots(const DensitySurfaceInputs& inputs, DensitySurfaceReading& reading) {
  reading.hotspots.reserve(inputs.hotspots.size());
  for (std::size_t row = 0; row < inputs.hotspots.size(); ++row) {
    const std::vector<std::string>& texts = inputs.hotspots[row];
    std::array<DensitySurfaceReading::Value, kHotspotFields> values;
    for (std::size_t col = 0; col < kHotspotFields; ++col) {
      DensitySurfaceProblem where;
      where.input = SurfaceInput::kHotspot;
      where.index = row;
      where.field = static_cast<HotspotField>(col);
      values[col] = col < texts.size() ? ReadValue(texts[col], kHotspotRules[col], where, reading.problems)
                                       : Missing(where, reading.problems);
    }
    reading.hotspots.push_back(values);
  }
}

}  // namespace

DensitySurfaceReading DensitySurfaceReader::Read(const DensitySurfaceInputs& inputs) {
  DensitySurfaceReading reading;
  ReadDensities(inputs, reading);
  if (inputs.grid_spacing) {
    DensitySurfaceProblem where;
    where.input = SurfaceInput::kGridSpacing;
    reading.grid_spacing = ReadValue(*inputs.grid_spacing, Rule::kPositive, where, reading.problems);
  }
  if (inputs.formula) {
    reading.formula = FormulaExpression(*inputs.formula);
    if (reading.formula.empty()) {
      DensitySurfaceProblem blank;
      blank.kind = SurfaceProblemKind::kBlank;
      blank.input = SurfaceInput::kFormula;
      blank.text = *inputs.formula;
      reading.formula_problem = reading.problems.size();
      reading.problems.push_back(std::move(blank));
    }
  }
  ReadHotspots(inputs, reading);
  return reading;
}

std::vector<DensitySurfaceProblem> DensitySurfaceReader::StrataWithoutValue(
    const std::vector<std::string>& strata, std::size_t given) {
  std::vector<DensitySurfaceProblem> problems;
  for (std::size_t i = given; i < strata.size(); ++i) Missing(AtStratum(strata, i), problems);
  return problems;
}

std::string DensitySurfaceReader::FormulaExpression(std::string_view text) {
  std::string_view rest = TrimBlanks(text);
  if (!rest.empty() && rest.front() == '=') rest = TrimBlanks(rest.substr(1));
  return std::string(rest);
}

}  // namespace zrsimprp

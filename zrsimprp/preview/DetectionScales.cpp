#include "zrsimprp/preview/DetectionScales.h"

#include <cmath>
#include <exception>
#include <optional>

#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/map/MapNumber.h"

namespace zrsimprp {

namespace {

constexpr const char* kCannotDraw = ", so its detection curve cannot be drawn.";

class CellReader {
 public:
  CellReader(const PreviewInputs& inputs, size_t column) : inputs_(inputs), column_(column) {}

  // The value of the named row in this column; on failure `problem` holds the sentence.
  std::optional<double> Value(const std::string& row_name, std::string& problem) const {
    // A name given twice means its last row, as the page's own lookup has it.
    std::optional<size_t> row;
    for (size_t r = 0; r < inputs_.parameter_names.size(); ++r) {
      if (TextEquals(inputs_.parameter_names[r], row_name)) row = r;
    }
    if (!row) {
      problem = "The detection table has no row '" + row_name + "' for '" + Heading() + "'" + kCannotDraw;
      return std::nullopt;
    }
    const std::vector<std::string>& cells = inputs_.parameters[*row];
    static const std::string kBlank;
    const std::string& text = column_ < cells.size() ? cells[column_] : kBlank;
    const auto cell = [&]() { return "The " + inputs_.parameter_names[*row] + " for '" + Heading() + "'"; };
    if (TrimBlanks(text).empty()) {
      problem = cell() + " is blank" + kCannotDraw;
      return std::nullopt;
    }
    const std::optional<double> value = FiniteNumber(text);
    if (!value) problem = cell() + " ('" + text + "') is not a number" + kCannotDraw;
    return value;
  }

  // A covariate term's coefficient: its row's value, or 0 with a note when the table has no such row
  // yet (the control adds the covariate rows when the Detectability tab is shown).
  std::optional<double> Term(const std::string& row_name, std::string& problem,
                             std::vector<std::string>& notes) const {
    for (const std::string& name : inputs_.parameter_names) {
      if (TextEquals(name, row_name)) return Value(row_name, problem);
    }
    notes.push_back(
        "The detection table has no row '" + row_name +
        "' yet (the Detectability tab adds it when it is shown), so its coefficient is taken as 0.");
    return 0.0;
  }

  std::string Heading() const {
    return column_ < inputs_.detection_columns.size() ? inputs_.detection_columns[column_] : "Study Area";
  }

 private:
  const PreviewInputs& inputs_;
  size_t column_;
};

}  // namespace

std::vector<double> DetectionScales::LevelWeights(const PreviewInputs& inputs) {
  const size_t count = inputs.levels.size();
  std::vector<double> weights(count, count == 0 ? 0.0 : 1.0 / static_cast<double>(count));
  double sum = 0;
  std::vector<double> typed;
  for (size_t i = 0; i < count; ++i) {
    const std::optional<double> value =
        i < inputs.level_probabilities.size() ? FiniteNumber(inputs.level_probabilities[i]) : std::nullopt;
    if (!value || *value < 0) return weights;
    typed.push_back(*value);
    sum += *value;
  }
  if (!(sum > 0)) return weights;
  for (size_t i = 0; i < count; ++i) weights[i] = typed[i] / sum;
  return weights;
}

ColumnDetection DetectionScales::Read(const PreviewInputs& inputs, size_t column) {
  ColumnDetection result;
  const CellReader cells(inputs, column);
  DetectionFunction::Key key = DetectionFunction::Key::kHalfNormal;
  if (!DetectionFunction::KeyOf(inputs.key_function, key)) {
    result.problem = "The detection function model '" + inputs.key_function +
                     "' is neither Half-Normal nor Hazard Rate, so no detection curve can be drawn.";
    return result;
  }
  const std::optional<double> scale = cells.Value("Scale", result.problem);
  if (!scale) return result;
  if (*scale <= 0) {
    result.problem = "The Scale for '" + cells.Heading() + "' is " + MapNumber::Text(*scale, 10) +
                     ", but a scale must be greater than 0" + kCannotDraw;
    return result;
  }
  double shape = 0;
  if (key == DetectionFunction::Key::kHazardRate) {
    const std::optional<double> typed = cells.Value("Shape", result.problem);
    if (!typed) return result;
    if (*typed <= 0) {
      result.problem = "The Shape for '" + cells.Heading() + "' is " + MapNumber::Text(*typed, 10) +
                       ", but a hazard-rate shape must be greater than 0" + kCannotDraw;
      return result;
    }
    shape = *typed;
  }
  // exp(ln Scale + Σ βk·zk) written as Scale · exp(Σ βk·zk): the same number, without the rounding of a
  // logarithm taken and undone when no covariate moves the scale.
  double predictor = 0;
  if (inputs.clusters) {
    const std::optional<double> beta = cells.Term("cluster size", result.problem, result.notes);
    if (!beta) return result;
    predictor += *beta * inputs.mean_cluster_size;
  }
  if (!inputs.continuous_cov.empty()) {
    const std::optional<double> beta = cells.Term(inputs.continuous_cov, result.problem, result.notes);
    if (!beta) return result;
    predictor += *beta * inputs.mean_cov;
  }
  static const std::vector<std::string> kNoLevel{""};
  const bool by_level = !inputs.levels.empty();
  const std::vector<std::string>& levels = by_level ? inputs.levels : kNoLevel;
  result.labels.reserve(levels.size());
  result.functions.reserve(levels.size());
  for (const std::string& level : levels) {
    double level_predictor = predictor;
    if (by_level) {
      const std::optional<double> beta = cells.Term(level, result.problem, result.notes);
      if (!beta) return result;
      level_predictor += *beta;
    }
    const double sigma = *scale * std::exp(level_predictor);
    const std::string label = by_level ? cells.Heading() + ", " + level : cells.Heading();
    if (!std::isfinite(sigma) || !(sigma > 0)) {
      result.problem = "The scale of '" + label +
                       "' that its Scale and covariate rows give is beyond what can be computed" +
                       kCannotDraw;
      return result;
    }
    result.labels.push_back(label);
    result.functions.emplace_back(key, sigma, shape);
  }
  result.weights = by_level ? LevelWeights(inputs) : std::vector<double>{1.0};
  return result;
}

}  // namespace zrsimprp

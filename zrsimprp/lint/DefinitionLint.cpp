#include "zrsimprp/lint/DefinitionLint.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryTable.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/lint/ClosestName.h"
#include "zrsimprp/lint/EntryCatalogue.h"
#include "zrsimprp/lint/FormPlace.h"
#include "zrsimprp/lint/LintCodes.h"
#include "zrsimprp/surface/DensitySurfaceReader.h"

namespace zrsimprp {

namespace {

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string Ordinal(std::size_t position) {
  static const char* const kWords[] = {"first", "second", "third"};
  return position < 3 ? kWords[position] : std::to_string(position + 1) + "th";
}

const std::string& FieldValue(const DefinitionEntry& entry, std::size_t index) {
  static const std::string kNone;
  return index < entry.field_values.size() ? entry.field_values[index] : kNone;
}

std::string Join(const std::vector<std::string>& words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) text += (i ? ", " : "") + words[i];
  return text;
}

bool IsBooleanWord(std::string_view text) { return TextEquals(text, "True") || TextEquals(text, "False"); }

// The lint's code and sentence for a problem the density surface reader found in a value, where
// `subject` names the value ("The grid spacing"). Blank and unreadable texts are not numbers.
std::pair<const char*, std::string> SurfaceValueFinding(const DensitySurfaceProblem& problem,
                                                        const std::string& subject) {
  const std::string shown(TrimBlanks(problem.text));
  switch (problem.kind) {
    case SurfaceProblemKind::kNegative:
      return {lint_code::kNegative, subject + " is " + shown + "; it cannot be negative."};
    case SurfaceProblemKind::kNotPositive:
      return {lint_code::kNotPositive, subject + " is " + shown + "; it must be greater than 0."};
    default:
      return {lint_code::kNotANumber, subject + " is " + Quoted(problem.text) + ", which is not a number."};
  }
}

// How the lint names a hotspot's values.
const char* HotspotValueName(HotspotField field) {
  static const char* const kNames[kHotspotFields] = {"centre X", "centre Y", "sigma", "amplitude"};
  return kNames[static_cast<std::size_t>(field)];
}

// A probability sum counts as 1 within rounding of a few typed decimals; the pages' own test is exact.
constexpr double kSumTolerance = 1e-9;

}  // namespace

DefinitionLint::Report DefinitionLint::Check(std::string_view text) {
  report_ = Report();
  read_ = ReadState();
  DefinitionEntries entries(text);
  if (entries.SyntaxBreak()) {
    const DefinitionEntries::Break& at = *entries.SyntaxBreak();
    report_.is_definition = false;
    line_ = at.line;
    Add(lint_code::kNotADefinition, Severity::kError, "", "",
        "The text is not a definition from line " + std::to_string(at.line) + ", column " +
            std::to_string(at.column) + ": " + at.reason + ".");
    return report_;
  }
  if (facts_) SelectSurvey(facts_->FirstSurvey());
  for (const DefinitionEntries::Located& located : entries.Entries()) CheckEntry(located);
  CheckDuplicates(entries.Entries());
  CheckAfterReading();
  MergeStrataFindings();
  for (Finding& finding : report_.findings) FormPlace::Locate(finding);
  return report_;
}

Finding& DefinitionLint::Add(const char* code, Severity severity, const std::string& entry,
                             const std::string& field, const std::string& sentence) {
  Finding finding;
  finding.code = code;
  finding.severity = severity;
  finding.entry = entry;
  finding.field = field;
  finding.line = line_;
  finding.sentence = sentence;
  report_.findings.push_back(finding);
  return report_.findings.back();
}

void DefinitionLint::CheckEntry(const DefinitionEntries::Located& located) {
  const DefinitionEntry& entry = located.entry;
  line_ = located.line;
  current_key_ = entry.key;
  const EntryRow* row = EntryTable::Find(entry.key);
  if (row == nullptr) {
    const std::string closest = ClosestName::Among(entry.key, EntryCatalogue::Keys());
    Add(lint_code::kUnknownEntry, Severity::kWarning, entry.key, "",
        "The entry " + Quoted(entry.key) + " is not read by any page, so it is ignored and dropped on the " +
            "next save; the closest known entry is " + Quoted(closest) + ".")
        .suggestion = closest;
    return;
  }
  CheckFields(entry);
  CheckRules(entry, *row);
}

void DefinitionLint::CheckRules(const DefinitionEntry& entry, const EntryRow& row) {
  CheckRule(entry, "", entry.value, row.value_rule);
  const FieldLayout layout = EntryTable::Fields(entry);
  for (std::size_t i = 0; i < layout.rules.size() && i < layout.names.size(); ++i) {
    const ValueRule& rule = layout.rules[i];
    if (rule.when_given && static_cast<std::ptrdiff_t>(i) >= entry.field_count) continue;
    CheckRule(entry, layout.names[i], FieldValue(entry, i), rule);
  }
  if (row.own_check) (this->*OwnCheckOf(row.key))(entry);
}

void DefinitionLint::CheckRule(const DefinitionEntry& entry, const std::string& field,
                               const std::string& value, const ValueRule& rule) {
  switch (rule.kind) {
    case ValueRule::Kind::kFree:
      break;
    case ValueRule::Kind::kNumber:
      CheckNumber(field, rule.subject, value, rule.number);
      break;
    case ValueRule::Kind::kWord:
      CheckWord(entry, field, value, rule.words, rule.consequence);
      break;
    case ValueRule::Kind::kBoolean:
      if (IsBooleanWord(TrimBlanks(value))) break;
      Add(lint_code::kNotABooleanIgnored, Severity::kWarning, entry.key, field,
          "The value " + Quoted(value) + (field.empty() ? " of the entry " + Quoted(entry.key) : "") +
              (field.empty() ? "" : " of the field " + Quoted(field)) + " is not True or False, " +
              rule.consequence + ".");
      break;
    case ValueRule::Kind::kReference:
      CheckReference(entry);
      break;
  }
}

DefinitionLint::OwnCheck DefinitionLint::OwnCheckOf(const std::string& key) {
  static const std::map<std::string, OwnCheck> kChecks = {
      {entry_key::kTransects, &DefinitionLint::CheckTransects},
      {entry_key::kStrataLayer, &DefinitionLint::CheckStrataLayer},
      {entry_key::kDensity, &DefinitionLint::CheckDensity},
      {entry_key::kHotspot, &DefinitionLint::CheckHotspot},
      {entry_key::kPopSize, &DefinitionLint::CheckPopSize},
      {entry_key::kClusters, &DefinitionLint::CheckClusters},
      {entry_key::kCategoricalCov, &DefinitionLint::CheckCategorical},
      {entry_key::kContinuousCov, &DefinitionLint::CheckContinuous},
      {entry_key::kDetectability, &DefinitionLint::CheckDetectability},
      {entry_key::kDetFuncParam, &DefinitionLint::CheckDetFuncParam},
      {entry_key::kParallelProcessing, &DefinitionLint::CheckParallel},
  };
  return kChecks.at(key);
}

void DefinitionLint::CheckFields(const DefinitionEntry& entry) {
  const FieldLayout layout = EntryTable::Fields(entry);
  const std::vector<std::string>& known = layout.names;
  const std::size_t given = static_cast<std::size_t>(std::max(entry.field_count, 0));
  const std::size_t available = std::max<std::size_t>(given, 1);
  const std::size_t read = layout.read;
  if (read > available && read <= known.size()) {
    const std::string& missing = known[available];
    Add(lint_code::kMissingField, Severity::kError, entry.key, missing,
        "The entry " + Quoted(entry.key) + " has no " + Ordinal(available) + " field " + Quoted(missing) +
            ", so reading the definition stops here with an internal error.");
  }
  if (layout.naming == FieldLayout::Naming::kNamesParameter) return;
  for (std::size_t i = 0; i < given && i < entry.field_names.size(); ++i) {
    const std::string& name = entry.field_names[i];
    if (i >= known.size()) {
      Finding& finding = Add(lint_code::kUnreadField, Severity::kWarning, entry.key, name,
                             "The field " + Quoted(name) + " of the entry " + Quoted(entry.key) +
                                 " is not part of that entry, so it is dropped on the next save" +
                                 (known.empty() ? "; " + Quoted(entry.key) + " takes no fields here."
                                                : "; the closest known field is " +
                                                      Quoted(ClosestName::Among(name, known)) + "."));
      if (!known.empty()) finding.suggestion = ClosestName::Among(name, known);
    } else if (!TextEquals(name, known[i]) && layout.naming == FieldLayout::Naming::kByPosition) {
      Add(lint_code::kFieldReadByPosition, Severity::kWarning, entry.key, name,
          "The field " + Quoted(name) + " of the entry " + Quoted(entry.key) +
              " is read by its position as " + Quoted(known[i]) + " and is saved under that name.")
          .suggestion = known[i];
    }
  }
}

void DefinitionLint::SelectSurvey(const std::string& survey_id) {
  read_.survey = survey_id;
  read_.layer.clear();
  if (!facts_ || read_.survey.empty()) return;
  read_.values.design = facts_->DesignOfSurvey(read_.survey);
  const std::vector<std::string>& layers = facts_->LayersOfferedFor(read_.survey);
  if (!layers.empty()) read_.layer = layers.front();
}

void DefinitionLint::CheckTransects(const DefinitionEntry& entry) {
  if (!facts_) return;
  const std::string id(TrimBlanks(FieldValue(entry, 0)));
  if (TextEquals(entry.value, "Design")) read_.values.design = id;
  if (TextEquals(entry.value, "Design") && !facts_->HasDesign(id)) {
    Add(lint_code::kUnknownDesign, Severity::kError, entry.key, "ObjectID",
        "The project has no design " + Quoted(id) + ", so the page selects its first design instead.");
  }
  if (TextEquals(entry.value, "Survey") && id != "0") {
    if (!facts_->OffersSurvey(id)) {
      Add(lint_code::kUnknownSurvey, Severity::kError, entry.key, "ObjectID",
          "The project has no survey " + Quoted(id) +
              " that can be chosen (a survey with status 1), so the page selects its first survey instead.");
      SelectSurvey(facts_->FirstSurvey());
    } else {
      SelectSurvey(id);
    }
  }
}

void DefinitionLint::CheckStrataLayer(const DefinitionEntry& entry) {
  read_.strata_handed_over = true;
  read_.values.layer_line = line_;
  if (!facts_ || TextEquals(entry.value, "None")) return;
  const std::vector<std::string>& offered = facts_->LayersOfferedFor(read_.survey);
  for (const std::string& layer : offered) {
    if (TextEquals(layer, entry.value)) {
      read_.layer = layer;
      return;
    }
  }
  Finding& finding =
      Add(lint_code::kLayerNotOffered, Severity::kError, entry.key, "",
          "The strata layer " + Quoted(entry.value) + " is not offered for the chosen survey" +
              (offered.empty() ? ", and no layer is."
                               : ", so the page selects " + Quoted(offered.front()) + " instead."));
  if (!offered.empty()) finding.suggestion = ClosestName::Among(entry.value, offered);
  read_.layer = offered.empty() ? "" : offered.front();
}

std::optional<std::size_t> DefinitionLint::StrataCount() const {
  if (!facts_) return std::nullopt;
  if (read_.layer.empty()) return std::size_t{0};
  const auto& strata = facts_->StrataOf(read_.layer);
  if (!strata) return std::nullopt;
  return strata->size();
}

FindingStratum DefinitionLint::StratumAt(std::size_t index) const {
  FindingStratum stratum;
  stratum.index = index;
  stratum.name = StratumName(index);
  if (facts_ && !read_.layer.empty()) {
    const std::vector<std::string>& ids = facts_->StrataIdsOf(read_.layer);
    if (index < ids.size()) stratum.id = ids[index];
  }
  return stratum;
}

std::string DefinitionLint::StratumName(std::size_t index) const {
  if (facts_ && !read_.layer.empty()) {
    const auto& strata = facts_->StrataOf(read_.layer);
    if (strata && index < strata->size() && !(*strata)[index].empty()) return (*strata)[index];
  }
  return "column " + std::to_string(index + 1);
}

void DefinitionLint::CheckColumnCount(const DefinitionEntry& entry, const std::string& field,
                                      const std::string& what, std::size_t count) {
  // Until a "StrataLayer" entry hands the strata over, the tables keep the one column they are made with.
  std::optional<std::size_t> columns =
      read_.strata_handed_over ? StrataCount() : std::optional<std::size_t>(1);
  if (!columns || count <= std::max<std::size_t>(*columns, 1)) return;
  const std::size_t shown = std::max<std::size_t>(*columns, 1);
  Add(lint_code::kMoreValuesThanColumns, Severity::kError, entry.key, field,
      "The entry " + Quoted(entry.key) + " gives " + std::to_string(count) + " " + what +
          " but the table has " + std::to_string(shown) + (shown == 1 ? " column" : " columns") +
          " when it is read" +
          (read_.strata_handed_over ? " (the strata of " + Quoted(read_.layer) + ")"
                                    : " (no " + Quoted(entry_key::kStrataLayer) + " entry comes before it)") +
          ", so reading the definition stops here with an internal error.");
}

void DefinitionLint::CheckDensity(const DefinitionEntry& entry) {
  CheckWord(entry, "", entry.value, {"Uniform", "Simple", "DSM"}, "so it changes nothing");
  read_.density_description = entry.value;
  read_.values.density_description = entry.value;
  read_.values.density_line = line_;
  read_.values.densities.clear();
  read_.values.densities_given = 0;
  read_.values.grid_spacing.reset();
  if (TextEquals(entry.value, "DSM") && entry.field_count > 0) {
    Add(lint_code::kDsmFieldsNotRead, Severity::kWarning, entry.key, entry.field_names[0],
        "The fields of a DSM density are not read back, so its layer and field are lost on the next save.");
  }
  const bool uniform = TextEquals(entry.value, "Uniform");
  if (!uniform && !TextEquals(entry.value, "Simple")) return;
  DensitySurfaceInputs inputs;
  if (uniform) {
    inputs.densities = Split(FieldValue(entry, 0), ',');
    read_.values.densities = inputs.densities;
    read_.values.densities_given = inputs.densities.size();
    CheckColumnCount(entry, "Densities", "densities", inputs.densities.size());
    inputs.strata.reserve(inputs.densities.size());
    for (std::size_t i = 0; i < inputs.densities.size(); ++i) inputs.strata.push_back(StratumName(i));
  }
  if (entry.field_count >= 2) inputs.grid_spacing = FieldValue(entry, 1);
  read_.values.grid_spacing = inputs.grid_spacing;
  for (const DensitySurfaceProblem& problem : DensitySurfaceReader::Read(inputs).problems) {
    const bool density = problem.input == SurfaceInput::kStratumDensity;
    const auto [code, sentence] = SurfaceValueFinding(
        problem, density ? "The density for stratum '" + problem.stratum + "'" : "The grid spacing");
    Finding& finding = Add(code, Severity::kError, entry.key, density ? "Densities" : "GridSpace", sentence);
    if (density) {
      finding.place_kind = "stratum";
      finding.place = problem.stratum;
      finding.strata.push_back(StratumAt(problem.index));
    }
  }
}

void DefinitionLint::CheckHotspot(const DefinitionEntry& entry) {
  // Hotspots are numbered by their order among the hotspot entries, as the page adds their rows.
  const std::string place = std::to_string(++read_.hotspot_count);
  DensitySurfaceInputs inputs;
  inputs.hotspots.push_back(Split(FieldValue(entry, 0), ','));
  read_.values.hotspots.push_back({inputs.hotspots.front(), entry.field_names[0], line_});
  const std::vector<DensitySurfaceProblem> problems = DensitySurfaceReader::Read(inputs).problems;
  const std::string& field = entry.field_names[0];
  // A row short of values stops the reading there, so its other values are never judged.
  const auto short_of = std::find_if(
      problems.begin(), problems.end(),
      [](const DensitySurfaceProblem& problem) { return problem.kind == SurfaceProblemKind::kMissing; });
  if (short_of != problems.end()) {
    Finding& finding =
        Add(lint_code::kListLengthsDiffer, Severity::kError, entry.key, field,
            "The entry " + Quoted(entry_key::kHotspot) + " gives " +
                std::to_string(static_cast<std::size_t>(short_of->field)) + " values for hotspot " + place +
                " but needs four (X, Y, Sig, Amp), so reading the definition stops here with an internal "
                "error.");
    finding.place_kind = "hotspot";
    finding.place = place;
    return;
  }
  for (const DensitySurfaceProblem& problem : problems) {
    const auto [code, sentence] = SurfaceValueFinding(
        problem, "The " + std::string(HotspotValueName(problem.field)) + " of hotspot " + place);
    Finding& finding = Add(code, Severity::kError, entry.key, field, sentence);
    finding.place_kind = "hotspot";
    finding.place = place;
  }
}

void DefinitionLint::CheckPopSize(const DefinitionEntry& entry) {
  if (TextEquals(entry.value, "Fixed N") || TextEquals(entry.value, "Poisson N") ||
      TextEquals(entry.value, "Fixed D")) {
    read_.population_size = entry.value;
    read_.values.population_size = entry.value;
  }
  // The values are taken whatever the word, so too many of them stop the reading under any option.
  const std::vector<std::string> values = Split(FieldValue(entry, 0), ',');
  read_.values.population_values = values;
  read_.values.population_line = line_;
  CheckColumnCount(entry, "Values", "population sizes", values.size());
  const bool fixed_n = TextEquals(entry.value, "Fixed N");
  if (!fixed_n && !TextEquals(entry.value, "Fixed D")) return;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string stratum = StratumName(i);
    if (!CheckNumber(
            "Values",
            (fixed_n ? "The population size N for stratum '" : "The density D for stratum '") + stratum + "'",
            values[i], fixed_n ? kWholeNotNegative : kNotNegative, "stratum", stratum)) {
      report_.findings.back().strata.push_back(StratumAt(i));
    }
  }
}

void DefinitionLint::CheckClusters(const DefinitionEntry& entry) {
  if (!TextEquals(entry.value, "True")) return;
  const std::string& distribution = FieldValue(entry, 0);
  if (TextEquals(distribution, "pmf")) {
    CheckPmf(entry);
    return;
  }
  const std::vector<std::string> parameters = Split(FieldValue(entry, 1), ',');
  if (TextEquals(distribution, "Poisson") && !parameters.empty()) {
    CheckNumber("param", "The mean cluster size lambda", parameters[0], kPositive);
  }
  if (TextEquals(distribution, "Negative-Binomial")) {
    if (!parameters.empty()) CheckNumber("param", "The cluster size parameter r", parameters[0], kPositive);
    if (parameters.size() > 1)
      CheckNumber("param", "The cluster size parameter p", parameters[1], kProbability);
  }
}

void DefinitionLint::CheckPmf(const DefinitionEntry& entry) {
  const std::vector<std::string> sizes = Split(FieldValue(entry, 1), ',');
  const std::vector<std::string> probabilities = Split(FieldValue(entry, 2), ',');
  if (sizes.size() != probabilities.size()) {
    Add(lint_code::kListLengthsDiffer, Severity::kError, entry.key, "prob",
        "The entry " + Quoted(entry_key::kClusters) + " gives " + std::to_string(sizes.size()) +
            " cluster sizes but " + std::to_string(probabilities.size()) +
            " probabilities; each size needs one probability.");
  }
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const std::string column = std::to_string(i + 1);
    CheckNumber("size", "The cluster size in column " + column, sizes[i], kWholePositive, "column", column);
  }
  for (std::size_t i = 0; i < probabilities.size(); ++i) {
    const std::string column = std::to_string(i + 1);
    CheckNumber("prob", "The probability in column " + column, probabilities[i], kProbability, "column",
                column);
  }
  CheckSum(entry, "prob", probabilities);
}

void DefinitionLint::CheckCategorical(const DefinitionEntry& entry) {
  const std::vector<std::string> levels = Split(FieldValue(entry, 0), ',');
  const std::vector<std::string> probabilities = Split(FieldValue(entry, 1), ',');
  if (levels.size() != probabilities.size()) {
    Add(lint_code::kListLengthsDiffer, Severity::kError, entry.key, "prob",
        "The entry " + Quoted(entry_key::kCategoricalCov) + " gives " + std::to_string(levels.size()) +
            " levels but " + std::to_string(probabilities.size()) +
            " probabilities; each level needs one probability.");
  }
  for (std::size_t i = 0; i < probabilities.size(); ++i) {
    const std::string level = i < levels.size() ? levels[i] : "column " + std::to_string(i + 1);
    CheckNumber("prob", "The probability of level '" + level + "'", probabilities[i], kProbability, "level",
                level);
  }
  CheckSum(entry, "prob", probabilities);
}

void DefinitionLint::CheckContinuous(const DefinitionEntry& entry) {
  const std::vector<std::string> parameters = Split(FieldValue(entry, 1), ',');
  const std::string name = "the continuous covariate '" + entry.value + "'";
  if (!parameters.empty()) CheckNumber("param", "The mu of " + name, parameters[0], kAnyNumber);
  if (parameters.size() > 1) CheckNumber("param", "The sigma of " + name, parameters[1], kPositive);
}

void DefinitionLint::CheckDetectability(const DefinitionEntry& entry) {
  read_.detection_function = TextEquals(entry.value, "Hazard Rate") ? "Hazard Rate" : "Half-Normal";
  read_.values.detection_function = read_.detection_function;
  // As the page reads it: only "True" gives each stratum its own parameters.
  read_.values.by_stratum = entry.field_count >= 1 && TextEquals(FieldValue(entry, 0), "True");
}

void DefinitionLint::CheckDetFuncParam(const DefinitionEntry& entry) {
  if (entry.field_count < 1) return;
  const std::string& name = entry.field_names[0];
  const bool scale = TextEquals(name, "Scale");
  const bool shape = TextEquals(name, "Shape");
  if (!scale && !shape) {
    Finding& finding = Add(lint_code::kParameterRowMissing, Severity::kWarning, entry.key, name,
                           "The entry " + Quoted(entry_key::kDetFuncParam) + " for " + Quoted(name) +
                               " is read before the cluster size and covariate rows exist, so its value " +
                               Quoted(FieldValue(entry, 0)) + " is lost on the next save.");
    finding.place_kind = "parameter";
    finding.place = name;
    return;
  }
  if (shape) read_.shape_lines.push_back(line_);
  if (shape) read_.values.shapes = Split(FieldValue(entry, 0), ',');
  if (scale) {
    read_.values.scales = Split(FieldValue(entry, 0), ',');
    read_.values.scale_line = line_;
  }
  for (const std::string& value : Split(FieldValue(entry, 0), ',')) {
    if (!CheckNumber(name,
                     "The " + std::string(scale ? "scale" : "shape") + " parameter of the detection function",
                     value, kPositive, "parameter", scale ? "Scale" : "Shape")) {
      break;
    }
  }
}

void DefinitionLint::CheckParallel(const DefinitionEntry& entry) {
  const std::string_view value = TrimBlanks(entry.value);
  if (!IsBooleanWord(value) && !IsNumeric(value)) {
    Add(lint_code::kNotABooleanStopsReading, Severity::kError, entry.key, "",
        "The value " + Quoted(entry.value) + " of the entry " + Quoted(entry_key::kParallelProcessing) +
            " is not True, False or a number, so reading the definition stops here with an internal "
            "error.");
    return;
  }
  if (EntryCatalogue::FieldsRead(entry) == 0 || entry.field_count < 1) return;
  const std::string& cores = FieldValue(entry, 0);
  if (TextEquals(cores, "max cores") || TrimBlanks(cores).empty()) return;
  CheckNumber("cores", "The number of cores", cores, kWholePositive);
}

void DefinitionLint::CheckReference(const DefinitionEntry& entry) {
  const std::string id(TrimBlanks(entry.value));
  if (!facts_ || id == "0") return;
  if (TextEquals(entry.key, entry_key::kDataFilter) && !facts_->HasDataFilter(id)) {
    Add(lint_code::kUnknownDataFilter, Severity::kError, entry.key, "",
        "The project has no data filter " + Quoted(id) +
            ", so the page selects its first data filter instead.");
  }
  if (TextEquals(entry.key, entry_key::kModelDef) && !facts_->OffersModelDefinition(id)) {
    Add(lint_code::kUnknownModelDefinition, Severity::kError, entry.key, "",
        "The project has no model definition " + Quoted(id) +
            " that can be chosen (MRDS with method ds, or MA), so the page selects its first model "
            "definition instead.");
  }
}

void DefinitionLint::CheckDuplicates(const std::vector<DefinitionEntries::Located>& entries) {
  // One pass with a count per name: entries of the same key (or the same parameter) after the first.
  std::map<std::string, std::pair<std::size_t, const DefinitionEntries::Located*>> seen;
  std::vector<std::string> order;
  for (const DefinitionEntries::Located& located : entries) {
    const EntryRow* row = EntryTable::Find(located.entry.key);
    // Entries that each add one more (hotspots) are not duplicates of one another.
    if (row == nullptr || row->adds_one_each) continue;
    std::string name = ToLowerAscii(row->key);
    const FieldLayout layout = EntryTable::Fields(located.entry);
    if (layout.naming == FieldLayout::Naming::kNamesParameter) {
      if (located.entry.field_count < 1) continue;
      name += "/" + ToLowerAscii(located.entry.field_names[0]);
    }
    auto& slot = seen[name];
    if (slot.first++ == 0) order.push_back(name);
    slot.second = &located;
  }
  for (const std::string& name : order) {
    const auto& [count, last] = seen[name];
    if (count < 2) continue;
    line_ = last->line;
    const DefinitionEntry& entry = last->entry;
    const bool parameter = EntryTable::Fields(entry).naming == FieldLayout::Naming::kNamesParameter;
    Add(lint_code::kDuplicateEntry, Severity::kWarning, entry.key, parameter ? entry.field_names[0] : "",
        "The entry " + Quoted(entry.key) +
            (parameter ? " for " + Quoted(entry.field_names[0]) : std::string()) + " appears " +
            std::to_string(count) +
            " times; only the last one is used and the others are dropped on the next save.");
  }
}

void DefinitionLint::CheckAfterReading() {
  if (TextEquals(read_.detection_function, "Half-Normal")) {
    for (int line : read_.shape_lines) {
      line_ = line;
      Finding& finding = Add(lint_code::kShapeUnused, Severity::kWarning, entry_key::kDetFuncParam, "Shape",
                             "The entry " + Quoted(entry_key::kDetFuncParam) +
                                 " for \"Shape\" is not used by the Half-Normal detection function, so "
                                 "it is dropped on the next save.");
      finding.place_kind = "parameter";
      finding.place = "Shape";
    }
  }
  if (!facts_) return;
  read_.values.layer = read_.layer;
  for (Finding& finding : StrataLint(*facts_, read_.values).Check())
    report_.findings.push_back(std::move(finding));
}

void DefinitionLint::MergeStrataFindings() {
  // The value findings of one entry's field that differ only in their stratum: one cause.
  struct Wording {
    const char* code;
    const char* tail;    // how the sentence of one stratum ends, after the value
    const char* plural;  // what several are, before their values
    const char* advice;
  };
  static const Wording kWordings[] = {
      {lint_code::kNotANumber, ", which is not a number.", "not a number", "type a number for each"},
      {lint_code::kNegative, "; it cannot be negative.", "negative", "give each 0 or a positive number"},
      {lint_code::kNotWhole, "; it must be a whole number.", "not a whole number",
       "give each a whole number"},
  };
  std::vector<Finding> merged;
  std::vector<bool> taken(report_.findings.size(), false);
  for (std::size_t i = 0; i < report_.findings.size(); ++i) {
    if (taken[i]) continue;
    Finding& first = report_.findings[i];
    const Wording* wording = nullptr;
    for (const Wording& candidate : kWordings) {
      if (first.code == candidate.code) wording = &candidate;
    }
    const std::string marker = " for stratum '" + first.place + "' is ";
    if (wording == nullptr || first.place_kind != "stratum" || first.strata.size() != 1 ||
        first.sentence.find(marker) == std::string::npos) {
      merged.push_back(std::move(first));
      continue;
    }
    const std::string prefix = first.sentence.substr(0, first.sentence.find(marker));
    std::vector<std::size_t> group;
    std::vector<std::string> values;
    for (std::size_t j = i; j < report_.findings.size(); ++j) {
      const Finding& other = report_.findings[j];
      const std::string other_marker = " for stratum '" + other.place + "' is ";
      const std::string& sentence = other.sentence;
      if (taken[j] || other.code != first.code || other.entry != first.entry || other.field != first.field ||
          other.line != first.line || other.place_kind != "stratum" || other.strata.size() != 1 ||
          sentence.compare(0, prefix.size() + other_marker.size(), prefix + other_marker) != 0 ||
          sentence.size() < prefix.size() + other_marker.size() + std::strlen(wording->tail)) {
        continue;
      }
      const std::size_t start = prefix.size() + other_marker.size();
      values.push_back(sentence.substr(start, sentence.size() - start - std::strlen(wording->tail)));
      group.push_back(j);
    }
    if (group.size() < 2) {
      merged.push_back(std::move(first));
      continue;
    }
    Finding one = first;
    one.strata.clear();
    for (std::size_t j : group) {
      taken[j] = true;
      one.strata.push_back(report_.findings[j].strata.front());
    }
    std::string shown;
    const std::size_t named = std::min(values.size(), StrataLint::kNamedStrata);
    for (std::size_t k = 0; k < named; ++k) {
      if (k > 0) shown += k + 1 == named && values.size() == named ? " and " : ", ";
      shown += values[k];
    }
    if (values.size() > named) shown += " and " + std::to_string(values.size() - named) + " more";
    one.sentence = prefix + " for " + StrataLint::StrataPhrase(one.strata) + " is " + wording->plural + " (" +
                   shown + "); " + wording->advice + ".";
    one.place_kind.clear();
    one.place.clear();
    merged.push_back(std::move(one));
  }
  report_.findings = std::move(merged);
}

bool DefinitionLint::CheckNumber(const std::string& field, const std::string& subject,
                                 const std::string& text, Rule rule, const std::string& place_kind,
                                 const std::string& place) {
  const std::string_view trimmed = TrimBlanks(text);
  const char* code = nullptr;
  std::string sentence;
  if (!IsNumeric(trimmed)) {
    code = lint_code::kNotANumber;
    sentence = subject + " is " + Quoted(text) + ", which is not a number.";
  } else {
    double value = 0;
    bool converts = true;
    try {
      value = ToDouble(trimmed);
    } catch (const std::exception&) {
      converts = false;
    }
    const std::string shown(trimmed);
    const bool whole = converts && std::floor(value) == value;
    if (!converts) {
      code = lint_code::kNotANumber;
      sentence = subject + " is " + Quoted(text) + ", which is not a number.";
    } else if ((rule == kNotNegative || rule == kWholeNotNegative) && value < 0) {
      code = lint_code::kNegative;
      sentence = subject + " is " + shown + "; it cannot be negative.";
    } else if ((rule == kPositive || rule == kWholePositive) && value <= 0) {
      code = lint_code::kNotPositive;
      sentence = subject + " is " + shown + "; it must be greater than 0.";
    } else if ((rule == kWholePositive || rule == kWholeNotNegative) && !whole) {
      code = lint_code::kNotWhole;
      sentence = subject + " is " + shown + "; it must be a whole number.";
    } else if (rule == kProbability && (value < 0 || value > 1)) {
      code = lint_code::kProbabilityOutOfRange;
      sentence = subject + " is " + shown + "; a probability must be between 0 and 1.";
    }
  }
  if (!code) return true;
  Finding& finding = Add(code, Severity::kError, current_key_, field, sentence);
  finding.place_kind = place_kind;
  finding.place = place;
  return false;
}

void DefinitionLint::CheckWord(const DefinitionEntry& entry, const std::string& field,
                               const std::string& word, const std::vector<std::string>& words,
                               const std::string& consequence) {
  for (const std::string& known : words) {
    if (TextEquals(known, word)) return;
  }
  const std::string closest = ClosestName::Among(word, words);
  Add(lint_code::kUnknownWord, Severity::kWarning, entry.key, field,
      "The value " + Quoted(word) + (field.empty() ? "" : " of the field " + Quoted(field)) +
          " of the entry " + Quoted(entry.key) + " is not one of " + Join(words) + ", " + consequence +
          "; the closest is " + Quoted(closest) + ".")
      .suggestion = closest;
}

void DefinitionLint::CheckSum(const DefinitionEntry& entry, const std::string& field,
                              const std::vector<std::string>& probabilities) {
  double sum = 0;
  for (const std::string& probability : probabilities) {
    const std::string_view trimmed = TrimBlanks(probability);
    if (!IsNumeric(trimmed)) return;  // already reported; a sum would mean nothing
    sum += ToDouble(trimmed);
  }
  if (probabilities.empty() || std::fabs(sum - 1.0) <= kSumTolerance) return;
  Add(lint_code::kProbabilitiesDoNotSumToOne, Severity::kError, entry.key, field,
      "The probabilities of the entry " + Quoted(entry.key) + " add up to " + DoubleText(sum) + ", not 1.");
}

}  // namespace zrsimprp

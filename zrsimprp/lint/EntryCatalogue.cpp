#include "zrsimprp/lint/EntryCatalogue.h"

#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

const std::string& FirstField(const DefinitionEntry& entry) {
  static const std::string kNone;
  return entry.field_values.empty() ? kNone : entry.field_values.front();
}

bool IsTrueWord(const std::string& value) {
  const std::string_view trimmed = TrimBlanks(value);
  if (TextEquals(trimmed, "True")) return true;
  return IsNumeric(trimmed) && ToDouble(trimmed) != 0.0;
}

}  // namespace

const std::vector<std::string>& EntryCatalogue::Keys() {
  static const std::vector<std::string> kKeys = {
      "Engine",  "Transects",  "StrataLayer",    "Reps",           "Density",           "Hotspot",
      "PopSize", "Clusters",   "CategoricalCov", "ContinuousCov",  "Detectability",     "DetFuncParam",
      "Analyse", "DataFilter", "ModelDef",       "ModelSelection", "ParallelProcessing"};
  return kKeys;
}

std::string EntryCatalogue::KnownKey(const std::string& key) {
  for (const std::string& known : Keys()) {
    if (TextEquals(known, key)) return known;
  }
  return "";
}

std::vector<std::string> EntryCatalogue::FieldNames(const DefinitionEntry& entry) {
  const std::string key = KnownKey(entry.key);
  const std::string& value = entry.value;
  if (key == "Transects") return {"ObjectID"};
  if (key == "Density") {
    if (TextEquals(value, "Uniform")) return {"Densities", "GridSpace"};
    if (TextEquals(value, "Simple")) return {"Formula", "GridSpace"};
    if (TextEquals(value, "DSM")) return {"Layer", "Field"};
    return {};
  }
  if (key == "Hotspot") return {"X,Y,Sig,Amp"};
  if (key == "PopSize")
    return TextEquals(value, "Poisson N") ? std::vector<std::string>{} : std::vector<std::string>{"Values"};
  if (key == "Clusters") {
    if (!TextEquals(value, "True")) return {};
    if (TextEquals(FirstField(entry), "pmf")) return {"Distribution", "size", "prob"};
    return {"Distribution", "param"};
  }
  if (key == "CategoricalCov") return {"categories", "prob"};
  if (key == "ContinuousCov") return {"distribution", "param"};
  if (key == "Detectability") return {"ParamByStratum"};
  if (key == "ParallelProcessing") return {"cores"};
  return {};
}

std::size_t EntryCatalogue::FieldsRead(const DefinitionEntry& entry) {
  const std::string key = KnownKey(entry.key);
  const std::string& value = entry.value;
  if (key == "Transects") return TextEquals(value, "Design") || TextEquals(value, "Survey") ? 1 : 0;
  if (key == "Density") return TextEquals(value, "Uniform") || TextEquals(value, "Simple") ? 2 : 0;
  if (key == "Clusters") {
    if (!TextEquals(value, "True")) return 0;
    return TextEquals(FirstField(entry), "pmf") ? 3 : 2;
  }
  if (key == "CategoricalCov" || key == "ContinuousCov") return 2;
  if (key == "Hotspot" || key == "PopSize" || key == "Detectability" || key == "DetFuncParam") return 1;
  if (key == "ParallelProcessing") {
    // A value that is not a Boolean stops the reading before the field is taken.
    const std::string_view trimmed = TrimBlanks(value);
    if (!TextEquals(trimmed, "True") && !TextEquals(trimmed, "False") && !IsNumeric(trimmed)) return 0;
    return IsTrueWord(value) ? 1 : 0;
  }
  return 0;
}

}  // namespace zrsimprp

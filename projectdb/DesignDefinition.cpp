#include "projectdb/DesignDefinition.h"

#include <vector>

#include "projectdb/ProjectChecks.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/DefinitionEntryCodec.h"

namespace zrsimprp {

namespace {

void Append(std::string& text, const std::string& key, const std::string& value,
            const std::string& field = "", const std::string& field_value = "", bool line_breaks = true) {
  std::vector<std::string> names = {field};
  std::vector<std::string> values = {field_value};
  DefinitionEntryCodec::Instance().AppendEntry(text, key, value, names, values, field.empty() ? 0 : 1, 0,
                                               line_breaks);
}

}  // namespace

std::string DesignDefinition::Distance(const std::string& what, const std::string& text) {
  const std::string trimmed(TrimBlanks(text));
  const double value = IsNumeric(trimmed) ? ToDouble(trimmed) : 0.0;
  if (!(value > 0.0) || value > 1e12) {
    ProjectChecks::Refuse("The " + what + " must be a distance above 0, not '" + text + "'.");
  }
  return trimmed;
}

std::string DesignDefinition::LayerOnly(const std::string& stratum_layer) {
  std::string text;
  Append(text, "STRATUM LAYER", stratum_layer, "", "", false);
  return text;
}

std::string DesignDefinition::Text(const std::string& stratum_layer, const std::string& type,
                                   const std::string& spacing, const std::string& truncation) {
  const std::string trimmed(TrimBlanks(type));
  const std::string written = TextEquals(trimmed, "parallel") ? "Parallel"
                              : TextEquals(trimmed, "zigzag") ? "Zigzag"
                                                              : "";
  if (written.empty())
    ProjectChecks::Refuse("The type of a design must be parallel or zigzag, not '" + type + "'.");
  std::string text;
  Append(text, "Engine", "DES");
  Append(text, "Type", written, spacing.empty() ? "" : "Spacing",
         spacing.empty() ? "" : Distance("spacing", spacing));
  Append(text, "STRATUM LAYER", stratum_layer);
  if (!truncation.empty()) Append(text, "Truncation", Distance("truncation", truncation));
  return text;
}

}  // namespace zrsimprp

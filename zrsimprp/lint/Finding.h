#pragma once

#include <string>

namespace zrsimprp {

enum class Severity { kError, kWarning };

// "error" or "warning", as reports print it.
inline const char* SeverityName(Severity severity) {
  return severity == Severity::kError ? "error" : "warning";
}

// One thing the lint found in a definition beyond the pages' own verdicts. `code` is stable ("ZR101");
// `entry` and `field` name what the finding is about as the text spells them; `place_kind` and
// `place` name the stratum, hotspot, level or parameter row ("stratum", "B"); `suggestion` is the
// closest known name where a name was not recognised; `line` is where the entry starts (0: the
// finding is about the definition as a whole).
struct Finding {
  std::string code;
  Severity severity = Severity::kError;
  std::string entry;
  std::string field;
  std::string place_kind;
  std::string place;
  std::string suggestion;
  int line = 0;
  std::string sentence;
};

}  // namespace zrsimprp

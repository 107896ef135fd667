#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zrsimprp {

enum class Severity { kError, kWarning };

// "error" or "warning", as reports print it.
inline const char* SeverityName(Severity severity) {
  return severity == Severity::kError ? "error" : "warning";
}

// A stratum a finding is about: its position in the layer (from 0), its identifier and its label as
// the layer gives them.
struct FindingStratum {
  std::size_t index = 0;
  std::string id;
  std::string name;
};

// One thing the lint found in a definition beyond the pages' own verdicts. `code` is stable ("ZR101");
// `entry` and `field` name what the finding is about as the text spells them; `place_kind` and
// `place` name the stratum, hotspot, level or parameter row ("stratum", "B"); `suggestion` is the
// closest known name where a name was not recognised; `line` is where the entry starts (0: the
// finding is about the definition as a whole). `strata` lists every stratum the finding is about, however
// many the sentence names. `page` (the page's word, "Density") and `control` ("txtGridSpace") say
// where the person changes what the finding is about; both are "" when no page shows it.
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
  std::vector<FindingStratum> strata;
  std::string page;
  std::string control;
};

}  // namespace zrsimprp

#pragma once

#include <string>

namespace zrsim {

// A record's definition text as a person reads it in a listing: "type Parallel, spacing 500,
// stratum layer Strata". Keys become lower-case words, each field follows its entry, the "Engine"
// entry (shown beside the record already) is left out, and control characters of a value are shown
// as escapes so that a line is never broken.
std::string DefinitionWords(const std::string& definition);

}  // namespace zrsim

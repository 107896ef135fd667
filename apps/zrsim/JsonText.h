#pragma once

#include <string>
#include <string_view>

namespace zrsim {

// A JSON string literal, quotes included: '"', '\' and every control character escaped; well-formed
// UTF-8 passes unchanged and every other byte becomes U+FFFD, so the result is always valid JSON.
std::string JsonString(std::string_view text);

}  // namespace zrsim

#pragma once

#include <string>
#include <string_view>

namespace zrsim {

// A JSON string literal, quotes included: '"', '\' and every control character escaped; other bytes
// (UTF-8 included) pass unchanged.
std::string JsonString(std::string_view text);

}  // namespace zrsim

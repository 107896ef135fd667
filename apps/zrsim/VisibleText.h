#pragma once

#include <string>
#include <string_view>

namespace zrsim {

// Text for a terminal or a log: carriage returns, line feeds, tabs and other control characters of
// a value are shown as escapes ("\r", "\n", "\t", "\x01") so that a value never breaks or overwrites
// the line it is printed on.
std::string VisibleText(std::string_view text);

// The same for text made of lines: line feeds stay, every other control character is shown.
std::string VisibleLines(std::string_view text);

}  // namespace zrsim

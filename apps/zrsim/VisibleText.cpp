#include "zrsim/VisibleText.h"

#include <cstdio>

namespace zrsim {

namespace {

std::string Escaped(std::string_view text, bool keep_line_feeds) {
  std::string shown;
  shown.reserve(text.size());
  for (char c : text) {
    const unsigned char byte = static_cast<unsigned char>(c);
    if (c == '\n' && keep_line_feeds) {
      shown += c;
    } else if (c == '\r') {
      shown += "\\r";
    } else if (c == '\n') {
      shown += "\\n";
    } else if (c == '\t') {
      shown += "\\t";
    } else if (byte < 0x20 || byte == 0x7f) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02x", byte);
      shown += escape;
    } else {
      shown += c;
    }
  }
  return shown;
}

}  // namespace

std::string VisibleText(std::string_view text) { return Escaped(text, false); }

std::string VisibleLines(std::string_view text) { return Escaped(text, true); }

}  // namespace zrsim

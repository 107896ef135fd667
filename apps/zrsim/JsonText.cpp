#include "zrsim/JsonText.h"

#include <cstdio>

namespace zrsim {

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  json.reserve(text.size() + 2);
  for (char c : text) {
    switch (c) {
      case '"':
        json += "\\\"";
        break;
      case '\\':
        json += "\\\\";
        break;
      case '\b':
        json += "\\b";
        break;
      case '\f':
        json += "\\f";
        break;
      case '\n':
        json += "\\n";
        break;
      case '\r':
        json += "\\r";
        break;
      case '\t':
        json += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char escape[8];
          std::snprintf(escape, sizeof escape, "\\u%04x",
                        static_cast<unsigned>(static_cast<unsigned char>(c)));
          json += escape;
        } else {
          json += c;
        }
    }
  }
  json += "\"";
  return json;
}

}  // namespace zrsim

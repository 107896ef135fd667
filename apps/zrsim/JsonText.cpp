#include "zrsim/JsonText.h"

#include <cstdio>

namespace zrsim {

namespace {

// The length of the well-formed UTF-8 sequence at `at`, or 0 when the byte there does not start one.
std::size_t Utf8SequenceLength(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  std::size_t length = 0;
  if (lead >= 0xc2 && lead <= 0xdf) {
    length = 2;
  } else if (lead >= 0xe0 && lead <= 0xef) {
    length = 3;
  } else if (lead >= 0xf0 && lead <= 0xf4) {
    length = 4;
  } else {
    return 0;
  }
  if (at + length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xc0) != 0x80) return 0;
  }
  // Overlong forms, surrogates and code points beyond U+10FFFF.
  if (lead == 0xe0 && byte(at + 1) < 0xa0) return 0;
  if (lead == 0xed && byte(at + 1) >= 0xa0) return 0;
  if (lead == 0xf0 && byte(at + 1) < 0x90) return 0;
  if (lead == 0xf4 && byte(at + 1) >= 0x90) return 0;
  return length;
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  json.reserve(text.size() + 2);
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (static_cast<unsigned char>(c) >= 0x80) {
      // A definition may hold any bytes; JSON must be UTF-8, so a byte that is not part of a
      // well-formed sequence becomes U+FFFD.
      const std::size_t length = Utf8SequenceLength(text, at);
      if (length == 0) {
        json += "\\ufffd";
      } else {
        json.append(text.substr(at, length));
        at += length - 1;
      }
      continue;
    }
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

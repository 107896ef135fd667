#include "JsonReader.h"

#include <cstdlib>

namespace {

class Reader {
 public:
  explicit Reader(std::string_view json) : json_(json) {}

  JsonValue Document() {
    JsonValue value = Value();
    SkipSpace();
    if (at_ != json_.size()) Fail("text after the value");
    return value;
  }

 private:
  [[noreturn]] void Fail(const std::string& what) const {
    throw std::runtime_error("not JSON at offset " + std::to_string(at_) + ": " + what);
  }
  void SkipSpace() {
    while (at_ < json_.size() &&
           (json_[at_] == ' ' || json_[at_] == '\n' || json_[at_] == '\r' || json_[at_] == '\t'))
      ++at_;
  }
  bool Take(std::string_view word) {
    if (json_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    return true;
  }
  void Expect(char c) {
    SkipSpace();
    if (at_ >= json_.size() || json_[at_] != c) Fail(std::string("expected '") + c + "'");
    ++at_;
  }

  JsonValue Value() {
    SkipSpace();
    if (at_ >= json_.size()) Fail("a value is missing");
    JsonValue value;
    const char c = json_[at_];
    if (c == '{') return Object();
    if (c == '[') return Array();
    if (c == '"') {
      value.kind = JsonValue::Kind::kString;
      value.text = String();
    } else if (Take("true")) {
      value.kind = JsonValue::Kind::kBool;
      value.boolean = true;
    } else if (Take("false")) {
      value.kind = JsonValue::Kind::kBool;
    } else if (Take("null")) {
      value.kind = JsonValue::Kind::kNull;
    } else {
      value.kind = JsonValue::Kind::kNumber;
      value.number = Number();
    }
    return value;
  }

  JsonValue Object() {
    JsonValue value;
    value.kind = JsonValue::Kind::kObject;
    Expect('{');
    SkipSpace();
    if (Take("}")) return value;
    while (true) {
      SkipSpace();
      if (at_ >= json_.size() || json_[at_] != '"') Fail("a member name is missing");
      std::string name = String();
      if (value.members.count(name)) Fail("the member '" + name + "' appears twice");
      Expect(':');
      value.members[name] = Value();
      SkipSpace();
      if (Take("}")) return value;
      Expect(',');
    }
  }

  JsonValue Array() {
    JsonValue value;
    value.kind = JsonValue::Kind::kArray;
    Expect('[');
    SkipSpace();
    if (Take("]")) return value;
    while (true) {
      value.items.push_back(Value());
      SkipSpace();
      if (Take("]")) return value;
      Expect(',');
    }
  }

  std::string String() {
    ++at_;  // opening quote
    std::string text;
    while (true) {
      if (at_ >= json_.size()) Fail("a string is not closed");
      const char c = json_[at_++];
      if (c == '"') return text;
      if (static_cast<unsigned char>(c) < 0x20) Fail("a raw control character in a string");
      if (c != '\\') {
        text += c;
        continue;
      }
      if (at_ >= json_.size()) Fail("an escape is cut off");
      const char escape = json_[at_++];
      switch (escape) {
        case '"':
          text += '"';
          break;
        case '\\':
          text += '\\';
          break;
        case '/':
          text += '/';
          break;
        case 'b':
          text += '\b';
          break;
        case 'f':
          text += '\f';
          break;
        case 'n':
          text += '\n';
          break;
        case 'r':
          text += '\r';
          break;
        case 't':
          text += '\t';
          break;
        case 'u':
          text += Unicode();
          break;
        default:
          Fail("an unknown escape");
      }
    }
  }

  std::string Unicode() {
    if (at_ + 4 > json_.size()) Fail("a \\u escape is cut off");
    const std::string hex(json_.substr(at_, 4));
    char* end = nullptr;
    const long code = std::strtol(hex.c_str(), &end, 16);
    if (end != hex.c_str() + 4) Fail("a \\u escape is not hexadecimal");
    at_ += 4;
    std::string utf8;
    if (code < 0x80) {
      utf8 += static_cast<char>(code);
    } else if (code < 0x800) {
      utf8 += static_cast<char>(0xc0 | (code >> 6));
      utf8 += static_cast<char>(0x80 | (code & 0x3f));
    } else {
      utf8 += static_cast<char>(0xe0 | (code >> 12));
      utf8 += static_cast<char>(0x80 | ((code >> 6) & 0x3f));
      utf8 += static_cast<char>(0x80 | (code & 0x3f));
    }
    return utf8;
  }

  double Number() {
    const std::size_t start = at_;
    while (at_ < json_.size() &&
           std::string_view("+-0123456789.eE").find(json_[at_]) != std::string_view::npos)
      ++at_;
    if (at_ == start) Fail("a value is not JSON");
    const std::string digits(json_.substr(start, at_ - start));
    char* end = nullptr;
    const double number = std::strtod(digits.c_str(), &end);
    if (end != digits.c_str() + digits.size()) Fail("a number is malformed");
    return number;
  }

  std::string_view json_;
  std::size_t at_ = 0;
};

}  // namespace

JsonValue JsonValue::Parse(std::string_view json) { return Reader(json).Document(); }

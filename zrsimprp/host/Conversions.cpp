#include "zrsimprp/host/Conversions.h"

#include <locale.h>

#include <cerrno>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {
namespace {

constexpr const char* kSource = "ZrSIMPrp";

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

RuntimeError TypeMismatch() { return RuntimeError(error_number::kTypeMismatch, kSource, "Type mismatch"); }
RuntimeError Overflow() { return RuntimeError(error_number::kOverflow, kSource, "Overflow"); }

// One C locale for the whole process, so that strtod never sees a host's decimal comma.
locale_t CLocale() {
  static const locale_t locale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(nullptr));
  return locale;
}

template <class Int>
Int RoundToInteger(double value) {
  if (std::isnan(value)) throw Overflow();
  const double rounded = std::nearbyint(value);  // the default rounding mode rounds half to even
  if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
      rounded > static_cast<double>(std::numeric_limits<Int>::max())) {
    throw Overflow();
  }
  return static_cast<Int>(rounded);
}

}  // namespace

std::string_view TrimBlanks(std::string_view text) {
  size_t begin = 0;
  size_t end = text.size();
  while (begin < end && IsBlank(text[begin])) ++begin;
  while (end > begin && IsBlank(text[end - 1])) --end;
  return text.substr(begin, end - begin);
}

bool IsNumeric(std::string_view text) {
  const std::string_view t = TrimBlanks(text);
  size_t i = 0;
  const size_t n = t.size();
  if (i < n && (t[i] == '+' || t[i] == '-')) ++i;
  size_t digits = 0;
  while (i < n && IsDigit(t[i])) ++i, ++digits;
  if (i < n && t[i] == '.') {
    ++i;
    while (i < n && IsDigit(t[i])) ++i, ++digits;
  }
  if (digits == 0) return false;
  if (i < n && (t[i] == 'e' || t[i] == 'E')) {
    ++i;
    if (i < n && (t[i] == '+' || t[i] == '-')) ++i;
    size_t exponent_digits = 0;
    while (i < n && IsDigit(t[i])) ++i, ++exponent_digits;
    if (exponent_digits == 0) return false;
  }
  return i == n;
}

double ToDouble(std::string_view text) {
  if (!IsNumeric(text)) throw TypeMismatch();
  const std::string trimmed(TrimBlanks(text));
  errno = 0;
  char* end = nullptr;
  const double value = strtod_l(trimmed.c_str(), &end, CLocale());
  if (errno == ERANGE && std::isinf(value)) throw Overflow();
  return value;  // an underflow gives zero or a denormal, as the platform does
}

std::optional<double> FiniteNumber(std::string_view text) {
  if (!IsNumeric(text)) return std::nullopt;
  try {
    const double value = ToDouble(text);
    if (std::isfinite(value)) return value;
  } catch (const RuntimeError&) {
    // Beyond a double: the conversion reports an overflow.
  }
  return std::nullopt;
}

int16_t ToInt16(double value) { return RoundToInteger<int16_t>(value); }
int16_t ToInt16(std::string_view text) { return ToInt16(ToDouble(text)); }
int32_t ToInt32(double value) { return RoundToInteger<int32_t>(value); }
int32_t ToInt32(std::string_view text) { return ToInt32(ToDouble(text)); }

bool ToBoolean(std::string_view text) {
  const std::string_view t = TrimBlanks(text);
  if (TextEquals(t, "True")) return true;
  if (TextEquals(t, "False")) return false;
  if (IsNumeric(t)) return ToDouble(t) != 0.0;
  throw TypeMismatch();
}

std::string BooleanText(bool value) { return value ? "True" : "False"; }

std::string DoubleText(double value) {
  if (value == 0.0) return "0";
  char buffer[64];
  // Fifteen significant digits, as the platform prints a double, then trimmed.
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15);
  std::string text(buffer, result.ptr);
  const size_t e = text.find('e');
  if (e != std::string::npos) {
    std::string mantissa = text.substr(0, e);
    std::string exponent = text.substr(e + 1);
    const char sign = exponent[0] == '-' ? '-' : '+';
    if (exponent[0] == '-' || exponent[0] == '+') exponent.erase(0, 1);
    while (exponent.size() > 2 && exponent[0] == '0') exponent.erase(0, 1);
    text = mantissa + "E" + sign + exponent;
  }
  return text;
}

double Divide(double dividend, double divisor) {
  if (divisor == 0.0) throw RuntimeError(error_number::kDivisionByZero, kSource, "Division by zero");
  return dividend / divisor;
}

bool TextEquals(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char x = a[i];
    char y = b[i];
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x - 'A' + 'a');
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y - 'A' + 'a');
    if (x != y) return false;
  }
  return true;
}

std::string ToLowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  size_t start = 0;
  while (true) {
    const size_t at = text.find(separator, start);
    if (at == std::string_view::npos) {
      pieces.emplace_back(text.substr(start));
      return pieces;
    }
    pieces.emplace_back(text.substr(start, at - start));
    start = at + 1;
  }
}

std::string Join(const std::vector<std::string>& pieces, std::string_view separator) {
  size_t size = 0;
  for (const std::string& piece : pieces) size += piece.size() + separator.size();
  std::string joined;
  joined.reserve(size);
  for (size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) joined.append(separator);
    joined.append(pieces[i]);
  }
  return joined;
}

}  // namespace zrsimprp

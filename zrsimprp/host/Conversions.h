#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The platform's conversions between text and values. They are independent of the process locale:
// the decimal separator is always ".", whatever a host or Qt has set with setlocale().
namespace zrsimprp {

// Optional blanks, optional sign, digits with at most one ".", at least one digit, optional exponent,
// optional blanks.
bool IsNumeric(std::string_view text);

// Numeric text to its value; error 13 when the text is not numeric, 6 when it is beyond a double.
double ToDouble(std::string_view text);
// The number `text` holds (C locale, blanks around it ignored) when it is a finite one; no value for
// blank or non-numeric text or a number beyond a double. Never throws.
std::optional<double> FiniteNumber(std::string_view text);

// Round half to even; error 6 outside the type's range.
int16_t ToInt16(double value);
int16_t ToInt16(std::string_view text);
int32_t ToInt32(double value);
int32_t ToInt32(std::string_view text);

// "True"/"False" in any case (blanks trimmed) or numeric text (non-zero is true); otherwise error 13.
bool ToBoolean(std::string_view text);
std::string BooleanText(bool value);  // "True" / "False"

// Shortest decimal text that reads back as the same double ("0.1", "1.7", "1E+20" style exponents).
std::string DoubleText(double value);

// Division of doubles; error 11 when the divisor is zero, so no infinity or NaN ever appears.
double Divide(double dividend, double divisor);

// Text comparison: ASCII letters compared without regard to case.
bool TextEquals(std::string_view a, std::string_view b);
std::string ToLowerAscii(std::string_view text);

// Split on a separator: the empty text gives no pieces, "a" one, "a," two ("a", "").
std::vector<std::string> Split(std::string_view text, char separator);
std::string Join(const std::vector<std::string>& pieces, std::string_view separator);

// Leading and trailing blanks (space and tab) removed.
std::string_view TrimBlanks(std::string_view text);

}  // namespace zrsimprp

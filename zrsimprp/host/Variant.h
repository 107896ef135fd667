#pragma once

#include <cstdint>
#include <string>
#include <variant>

namespace zrsimprp {

// A host value: null, Boolean, 16-bit, 32-bit, double or text.
using Variant = std::variant<std::monostate, bool, int16_t, int32_t, double, std::string>;

inline bool IsNull(const Variant& value) { return std::holds_alternative<std::monostate>(value); }

// Null gives "", Booleans "True"/"False", numbers their decimal text.
std::string VariantToText(const Variant& value);
// Null gives false; text converts as the platform converts text to Boolean (error 13 otherwise).
bool VariantToBoolean(const Variant& value);
// Null gives 0; text must be numeric (error 13), and the value must fit (error 6).
double VariantToDouble(const Variant& value);
int16_t VariantToInt16(const Variant& value);
int32_t VariantToInt32(const Variant& value);

}  // namespace zrsimprp

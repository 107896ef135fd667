#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace zrsimprp {

// The platform's run-time error: a number, the object that raised it and a description.
struct RuntimeError : std::exception {
  RuntimeError(int32_t number, std::string source, std::string description)
      : number(number), source(std::move(source)), description(std::move(description)) {}
  const char* what() const noexcept override { return description.c_str(); }

  int32_t number;
  std::string source;
  std::string description;
};

// Numbers the pages and the host rely on.
namespace error_number {
constexpr int32_t kInvalidProcedureCall = 5;
constexpr int32_t kOverflow = 6;
constexpr int32_t kSubscriptOutOfRange = 9;
constexpr int32_t kDivisionByZero = 11;
constexpr int32_t kTypeMismatch = 13;
constexpr int32_t kApplicationDefined = 51;
constexpr int32_t kControlArrayElementMissing = 340;
constexpr int32_t kInvalidPropertyValue = 380;
constexpr int32_t kInvalidPropertyArrayIndex = 381;
constexpr int32_t kSetNotPermittedInDesignMode = 382;
constexpr int32_t kPropertyIsReadOnly = 383;
}  // namespace error_number

}  // namespace zrsimprp

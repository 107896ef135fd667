#include "zrsimprp/host/Variant.h"

#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {
namespace {

template <class... Ts>
struct Overloaded : Ts... {
  using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

}  // namespace

std::string VariantToText(const Variant& value) {
  return std::visit(
      Overloaded{[](std::monostate) { return std::string(); }, [](bool b) { return BooleanText(b); },
                 [](int16_t i) { return std::to_string(i); }, [](int32_t i) { return std::to_string(i); },
                 [](double d) { return DoubleText(d); }, [](const std::string& s) { return s; }},
      value);
}

bool VariantToBoolean(const Variant& value) {
  return std::visit(
      Overloaded{[](std::monostate) { return false; }, [](bool b) { return b; },
                 [](int16_t i) { return i != 0; }, [](int32_t i) { return i != 0; },
                 [](double d) { return d != 0.0; }, [](const std::string& s) { return ToBoolean(s); }},
      value);
}

double VariantToDouble(const Variant& value) {
  return std::visit(Overloaded{[](std::monostate) { return 0.0; }, [](bool b) { return b ? -1.0 : 0.0; },
                               [](int16_t i) { return static_cast<double>(i); },
                               [](int32_t i) { return static_cast<double>(i); }, [](double d) { return d; },
                               [](const std::string& s) { return ToDouble(s); }},
                    value);
}

int16_t VariantToInt16(const Variant& value) { return ToInt16(VariantToDouble(value)); }
int32_t VariantToInt32(const Variant& value) { return ToInt32(VariantToDouble(value)); }

}  // namespace zrsimprp

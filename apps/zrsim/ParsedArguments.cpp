#include "zrsim/ParsedArguments.h"

namespace zrsim {

std::string ParsedArguments::Value(const std::string& option, const std::string& fallback) const {
  auto found = values_.find(option);
  return found == values_.end() ? fallback : found->second;
}

}  // namespace zrsim

#pragma once

#include <fstream>
#include <sstream>
#include <string>

namespace zrsimprp::testing {

// Every byte of the file at `path` (empty when it cannot be read): tests compare a project file
// before and after an action that must leave it alone.
inline std::string FileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

}  // namespace zrsimprp::testing

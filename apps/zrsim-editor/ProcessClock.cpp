#include "zrsim-editor/ProcessClock.h"

#include <time.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace zrsim_editor {

namespace {

// Field 22 of /proc/self/stat: the start time in clock ticks since boot.
constexpr int kStartTimeField = 22;

std::chrono::steady_clock::time_point& MarkedStart() {
  static std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
  return start;
}

}  // namespace

void ProcessClock::MarkStart() { MarkedStart(); }

double ProcessClock::StartSinceBoot() {
  std::ifstream stat("/proc/self/stat");
  const std::string line((std::istreambuf_iterator<char>(stat)), std::istreambuf_iterator<char>());
  // The command name (field 2) is in parentheses and may hold blanks: count fields after the last ')'.
  const size_t name_end = line.rfind(')');
  const long ticks_per_second = sysconf(_SC_CLK_TCK);
  if (name_end == std::string::npos || ticks_per_second <= 0) return -1;
  std::istringstream fields(line.substr(name_end + 1));
  std::string field;
  for (int index = 3; index <= kStartTimeField; ++index) {
    if (!(fields >> field)) return -1;
  }
  try {
    return static_cast<double>(std::stoull(field)) / static_cast<double>(ticks_per_second);
  } catch (const std::exception&) {
    return -1;
  }
}

double ProcessClock::MillisecondsSinceStart() {
  const double start = StartSinceBoot();
  timespec now{};
  if (start >= 0 && clock_gettime(CLOCK_BOOTTIME, &now) == 0) {
    const double since_boot = static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
    if (since_boot >= start) return (since_boot - start) * 1e3;
  }
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - MarkedStart()).count();
}

}  // namespace zrsim_editor

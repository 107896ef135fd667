#pragma once

#include <string>
#include <vector>

namespace zrsim_editor {

// The projects a person opened last, newest first, kept in their own settings (never in a project).
class RecentProjects {
 public:
  static constexpr int kKept = 8;

  // The remembered projects, newest first.
  static std::vector<std::string> List();
  // Puts `path` (made absolute) first, dropping an older mention and the oldest beyond kKept.
  static void Add(const std::string& path);
  // The newest remembered project that still exists, "" when none does.
  static std::string LastExisting();
};

}  // namespace zrsim_editor

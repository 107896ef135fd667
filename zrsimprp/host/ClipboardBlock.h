#pragma once

#include <string>
#include <vector>

namespace zrsimprp {

// A block of cells as text, the way spreadsheets put it on the clipboard: one line per row (CR LF,
// LF or CR), cells split by tabs; text without a tab is split by semicolons, or else by commas. A
// line break at the very end is no empty row.
class ClipboardBlock {
 public:
  using Rows = std::vector<std::vector<std::string>>;

  static Rows Parse(const std::string& text);
  // Rows joined with CR LF and cells with tabs, ending with CR LF.
  static std::string Format(const Rows& rows);

 private:
  static char SeparatorOf(const std::string& text);
  static std::vector<std::string> Lines(const std::string& text);
};

}  // namespace zrsimprp

#include "zrsimprp/host/ClipboardBlock.h"

namespace zrsimprp {

char ClipboardBlock::SeparatorOf(const std::string& text) {
  if (text.find('\t') != std::string::npos) return '\t';
  // A semicolon list keeps decimal commas ("0,5;1,2") inside its cells.
  if (text.find(';') != std::string::npos) return ';';
  return ',';
}

std::vector<std::string> ClipboardBlock::Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::string line;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\r' || c == '\n') {
      lines.push_back(line);
      line.clear();
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      line += c;
    }
  }
  // What follows the last line break is a row only when there is something on it.
  if (!line.empty()) lines.push_back(line);
  return lines;
}

ClipboardBlock::Rows ClipboardBlock::Parse(const std::string& text) {
  const char separator = SeparatorOf(text);
  Rows rows;
  for (const std::string& line : Lines(text)) {
    std::vector<std::string> cells;
    size_t start = 0;
    while (true) {
      const size_t end = line.find(separator, start);
      cells.push_back(line.substr(start, end == std::string::npos ? std::string::npos : end - start));
      if (end == std::string::npos) break;
      start = end + 1;
    }
    rows.push_back(std::move(cells));
  }
  return rows;
}

std::string ClipboardBlock::Format(const Rows& rows) {
  std::string text;
  for (const auto& row : rows) {
    for (size_t c = 0; c < row.size(); ++c) {
      if (c > 0) text += '\t';
      text += row[c];
    }
    text += "\r\n";
  }
  return text;
}

}  // namespace zrsimprp

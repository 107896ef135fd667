#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "zrsimprp/entries/EntryTable.h"

namespace zrsimprp {
namespace {

namespace fs = std::filesystem;

struct Literal {
  std::string text;
  int line = 0;
};

// The string literals of a C++ source, with their lines; comments and character literals are passed
// over. Escapes are kept as written, so a literal equal to a key is the key exactly.
std::vector<Literal> StringLiterals(const std::string& source) {
  std::vector<Literal> literals;
  int line = 1;
  for (std::size_t i = 0; i < source.size(); ++i) {
    const char c = source[i];
    const char next = i + 1 < source.size() ? source[i + 1] : '\0';
    if (c == '\n') {
      ++line;
    } else if (c == '/' && next == '/') {
      while (i < source.size() && source[i] != '\n') ++i;
      ++line;
    } else if (c == '/' && next == '*') {
      for (i += 2; i + 1 < source.size() && !(source[i] == '*' && source[i + 1] == '/'); ++i) {
        if (source[i] == '\n') ++line;
      }
      ++i;
    } else if (c == '\'') {
      for (++i; i < source.size() && source[i] != '\''; ++i) {
        if (source[i] == '\\') ++i;
      }
    } else if (c == '"' && i > 0 && source[i - 1] == 'R') {
      const std::size_t open = source.find('(', i);
      const std::string close = ")" + source.substr(i + 1, open - i - 1) + "\"";
      const std::size_t end = source.find(close, open);
      literals.push_back({source.substr(open + 1, end - open - 1), line});
      for (; i < end + close.size() - 1; ++i) {
        if (source[i] == '\n') ++line;
      }
    } else if (c == '"') {
      Literal literal{"", line};
      for (++i; i < source.size() && source[i] != '"'; ++i) {
        if (source[i] == '\\') literal.text += source[i++];
        literal.text += source[i];
      }
      literals.push_back(literal);
    }
  }
  return literals;
}

// Words that are also keys but name something else in these files: the pages' words and captions.
bool Allowed(const std::string& file, const std::string& word) {
  static const std::map<std::string, std::set<std::string>> kAllowed = {
      {"zrsimprp/control/PageTable.cpp", {"Density", "Detectability"}},
      // The caption of the Detectability page's label line.
      {"zrsimprp/pages/CPagDetectability/CPagDetectability.h", {"Detectability"}},
  };
  const auto it = kAllowed.find(file);
  return it != kAllowed.end() && it->second.count(word) > 0;
}

TEST(EntryKeys, EveryKeyIsSpelledOnlyInEntryKeys) {
  std::set<std::string> keys;
  for (const EntryRow& row : EntryTable::Rows()) keys.insert(row.key);
  const fs::path root(ZRSIMPRP_SOURCE_DIR);
  std::vector<std::string> found;
  std::size_t files = 0;
  for (const char* folder : {"zrsimprp", "apps"}) {
    for (const fs::directory_entry& item : fs::recursive_directory_iterator(root / folder)) {
      const std::string extension = item.path().extension().string();
      if (!item.is_regular_file() || (extension != ".h" && extension != ".cpp" && extension != ".in"))
        continue;
      const std::string file = fs::relative(item.path(), root).generic_string();
      if (file == "zrsimprp/entries/EntryKeys.h") continue;
      ++files;
      std::ifstream in(item.path(), std::ios::binary);
      std::stringstream source;
      source << in.rdbuf();
      for (const Literal& literal : StringLiterals(source.str())) {
        if (keys.count(literal.text) && !Allowed(file, literal.text)) {
          found.push_back(file + ":" + std::to_string(literal.line) + ": \"" + literal.text + "\"");
        }
      }
    }
  }
  EXPECT_GT(files, 100u) << "the sources were not found under " << root;
  std::string report;
  for (const std::string& place : found) report += "  " + place + "\n";
  EXPECT_TRUE(found.empty()) << "keys spelled outside zrsimprp/entries/EntryKeys.h (use its constants):\n"
                             << report;
}

TEST(EntryKeys, TheScanFindsLiteralsButNotCommentsOrTextAroundThem) {
  const std::vector<Literal> literals = StringLiterals(
      "// \"Reps\" in a comment\nf(\"Reps\", 'x', \"a \\\"Hotspot\\\" b\");\n/* \"Density\" */ g(R\"(Clusters)\");");
  ASSERT_EQ(literals.size(), 3u);
  EXPECT_EQ(literals[0].text, "Reps");
  EXPECT_EQ(literals[0].line, 2);
  EXPECT_EQ(literals[1].text, "a \\\"Hotspot\\\" b");
  EXPECT_EQ(literals[2].text, "Clusters");
  EXPECT_EQ(literals[2].line, 3);
}

}  // namespace
}  // namespace zrsimprp

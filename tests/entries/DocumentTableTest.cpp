#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "zrsimprp/entries/EntryTable.h"

namespace zrsimprp {
namespace {

// The entry table of docs/definition-format.md: from its heading row to the first line that is not
// part of it.
std::vector<std::string> DocumentedTable() {
  std::ifstream in(std::string(ZRSIMPRP_SOURCE_DIR) + "/docs/definition-format.md");
  std::vector<std::string> lines;
  std::string line;
  bool inside = false;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.rfind("| # | Key |", 0) == 0) inside = true;
    if (inside && line.rfind("|", 0) != 0) break;
    if (inside) lines.push_back(line);
  }
  return lines;
}

TEST(EntryDocument, TheFormatDocumentShowsTheEntryTable) {
  const std::vector<std::string> documented = DocumentedTable();
  const std::vector<std::string> expected = EntryTable::DocumentTable();
  ASSERT_FALSE(documented.empty()) << "docs/definition-format.md has no entry table";
  for (std::size_t i = 0; i < std::max(documented.size(), expected.size()); ++i) {
    EXPECT_EQ(i < documented.size() ? documented[i] : "(no line)",
              i < expected.size() ? expected[i] : "(no line)")
        << "line " << i + 1 << " of the table; the document should read:\n"
        << [&] {
             std::string all;
             for (const std::string& line : expected) all += line + "\n";
             return all;
           }();
  }
}

}  // namespace
}  // namespace zrsimprp

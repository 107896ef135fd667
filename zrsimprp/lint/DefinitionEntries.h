#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zrsimprp/host/DefinitionEntryCodec.h"

namespace zrsimprp {

// A definition text taken apart by the host's codec, as ReadDefinition takes it, with where each
// entry starts. A text that stops being a definition is read up to the break, and the break is kept
// with its line and column and the codec's reason in words.
class DefinitionEntries {
 public:
  struct Located {
    DefinitionEntry entry;
    int line = 1;
    int column = 1;
  };
  struct Break {
    int line = 1;
    int column = 1;
    std::string reason;
  };

  explicit DefinitionEntries(std::string_view text);

  const std::vector<Located>& Entries() const { return entries_; }
  // Set when the text is not a definition from some point on.
  const std::optional<Break>& SyntaxBreak() const { return break_; }

 private:
  // Advances the line and column count to `offset`, which never goes back.
  void MoveTo(std::size_t offset);
  void KeepBreak(std::size_t entry_start, const std::string& description);

  std::string_view text_;
  std::size_t counted_to_ = 0;
  int line_ = 1;
  int column_ = 1;
  std::vector<Located> entries_;
  std::optional<Break> break_;
};

}  // namespace zrsimprp

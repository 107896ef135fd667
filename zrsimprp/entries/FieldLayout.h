#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "zrsimprp/entries/ValueRule.h"

namespace zrsimprp {

// The fields of one entry for one value: their names as they are written, in slot order, and how
// many slots the reader takes (a slot the text lacks stops the reading).
struct FieldLayout {
  // How the reader treats the names of the fields it finds.
  enum class Naming {
    kByPosition,     // names are not looked at: each field is taken as the one written in its slot
    kNotReadBack,    // the fields are written but the reader takes none of them
    kNamesParameter  // the one field's name says which parameter the value is for
  };

  std::vector<std::string> names;
  std::size_t read = 0;
  Naming naming = Naming::kByPosition;
  // What `zrsim check` expects of each field, in slot order; a field without one takes anything.
  std::vector<ValueRule> rules = {};
};

}  // namespace zrsimprp

#pragma once

#include <QString>
#include <string>

namespace zrsimprp {

// Accessible names and plain texts made from captions.
class AccessibleText {
 public:
  // "&Simulation" -> "Simulation", "Layer:" -> "Layer", runs of blanks collapsed.
  static QString FromCaption(const std::string& caption);
  // The caption as a QLabel shows it literally: "&" doubled, since a label would take it for a mnemonic.
  static QString Literal(const std::string& caption);
};

}  // namespace zrsimprp

#include "zrsimprp/qt/AccessibleText.h"

namespace zrsimprp {

QString AccessibleText::FromCaption(const std::string& caption) {
  const QString text = QString::fromStdString(caption);
  QString plain;
  plain.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == QLatin1Char('&')) {
      // "&&" is a literal ampersand; a single one only marks the mnemonic.
      if (i + 1 < text.size() && text[i + 1] == QLatin1Char('&')) {
        plain += QLatin1Char('&');
        ++i;
      }
      continue;
    }
    plain += text[i];
  }
  plain = plain.simplified();
  while (plain.endsWith(QLatin1Char(':'))) plain.chop(1);
  return plain.trimmed();
}

QString AccessibleText::Literal(const std::string& caption) {
  QString text = QString::fromStdString(caption);
  text.replace(QLatin1Char('&'), QLatin1String("&&"));
  return text;
}

}  // namespace zrsimprp

#include "zrsim-editor/PersonalSettings.h"

#include <QFileInfo>
#include <QSettings>
#include <QStringList>
#include <QUrl>

namespace zrsim_editor {

namespace {

// QSettings forgets types in its text files: each value is kept as its type's name and its text.
QStringList Encode(const zrsimprp::Variant& value) {
  static const char* const kTypes[] = {"null", "bool", "int16", "int32", "double", "string"};
  return {QString::fromLatin1(kTypes[value.index()]), QString::fromStdString(zrsimprp::VariantToText(value))};
}

zrsimprp::Variant Decode(const QStringList& stored, const zrsimprp::Variant& default_value) {
  if (stored.size() != 2) return default_value;
  const QString& type = stored[0];
  const QString& text = stored[1];
  bool ok = true;
  if (type == QLatin1String("null")) return zrsimprp::Variant();
  if (type == QLatin1String("bool")) return zrsimprp::Variant(text == QLatin1String("True"));
  if (type == QLatin1String("int16")) {
    const short number = text.toShort(&ok);
    return ok ? zrsimprp::Variant(static_cast<int16_t>(number)) : default_value;
  }
  if (type == QLatin1String("int32")) {
    const int number = text.toInt(&ok);
    return ok ? zrsimprp::Variant(static_cast<int32_t>(number)) : default_value;
  }
  if (type == QLatin1String("double")) {
    const double number = text.toDouble(&ok);
    return ok ? zrsimprp::Variant(number) : default_value;
  }
  if (type == QLatin1String("string")) return zrsimprp::Variant(text.toStdString());
  // Written by another version, or edited by hand: the default is the safe reading.
  return default_value;
}

// Keeps slashes and backslashes (QSettings' separators) out of a path used as a key.
QString Escaped(const QString& text) { return QString::fromLatin1(QUrl::toPercentEncoding(text)); }

}  // namespace

PersonalSettings::PersonalSettings(const std::string& project_path, const std::string& simulation)
    : group_(GroupFor(project_path, simulation)) {}

QString PersonalSettings::GroupFor(const std::string& project_path, const std::string& simulation) {
  const QFileInfo file(QString::fromStdString(project_path));
  QString canonical = file.canonicalFilePath();
  if (canonical.isEmpty()) canonical = file.absoluteFilePath();
  return QStringLiteral("projects/") + Escaped(canonical) + QLatin1Char('/') +
         Escaped(QString::fromStdString(simulation));
}

QString PersonalSettings::KeyFor(const std::string& section, const std::string& key) const {
  return group_ + QLatin1Char('/') + Escaped(QString::fromStdString(section)) + QLatin1Char('/') +
         Escaped(QString::fromStdString(key));
}

zrsimprp::Variant PersonalSettings::ReadSetting(int32_t, int32_t, const std::string& section,
                                                const std::string& key,
                                                const zrsimprp::Variant& default_value) {
  QSettings settings;
  const QVariant stored = settings.value(KeyFor(section, key));
  if (!stored.isValid()) return default_value;
  return Decode(stored.toStringList(), default_value);
}

void PersonalSettings::WriteSetting(int32_t, int32_t, const std::string& section, const std::string& key,
                                    const zrsimprp::Variant& value) {
  QSettings settings;
  settings.setValue(KeyFor(section, key), Encode(value));
}

}  // namespace zrsim_editor

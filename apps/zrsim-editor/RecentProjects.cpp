#include "zrsim-editor/RecentProjects.h"

#include <QFileInfo>
#include <QSettings>
#include <QStringList>

namespace zrsim_editor {

namespace {

const char* const kKey = "recentProjects";

}  // namespace

std::vector<std::string> RecentProjects::List() {
  std::vector<std::string> paths;
  for (const QString& path : QSettings().value(kKey).toStringList()) paths.push_back(path.toStdString());
  return paths;
}

void RecentProjects::Add(const std::string& path) {
  const QString absolute = QFileInfo(QString::fromStdString(path)).absoluteFilePath();
  QStringList paths = QSettings().value(kKey).toStringList();
  paths.removeAll(absolute);
  paths.prepend(absolute);
  while (paths.size() > kKept) paths.removeLast();
  QSettings settings;
  settings.setValue(kKey, paths);
}

std::string RecentProjects::LastExisting() {
  for (const std::string& path : List()) {
    if (QFileInfo(QString::fromStdString(path)).isFile()) return path;
  }
  return {};
}

}  // namespace zrsim_editor

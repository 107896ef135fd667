#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
  // The form is drawn off screen: the tests never need, nor open, a display.
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QApplication application(argc, argv);
  QApplication::setOrganizationName("ZrSIMPrp");
  QApplication::setApplicationName("zrsim-editor-test");
  // The person's settings go to a folder of this run, never to the real configuration.
  QStandardPaths::setTestModeEnabled(true);
  const QString settings_dir =
      QDir::temp().filePath(QStringLiteral("zrsim-editor-settings-%1").arg(::getpid()));
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_dir);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings_dir);
  ::testing::InitGoogleTest(&argc, argv);
  const int status = RUN_ALL_TESTS();
  QDir(settings_dir).removeRecursively();
  return status;
}

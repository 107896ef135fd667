#include <QGuiApplication>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "zrsim/map/MapCommand.h"

int main(int argc, char** argv) {
  // A picture for a file needs no screen: draw offscreen unless the caller chose a platform.
  const char* platform = std::getenv("QT_QPA_PLATFORM");
  if (platform == nullptr || *platform == '\0') setenv("QT_QPA_PLATFORM", "offscreen", 1);
  std::vector<std::string> words(argv + 1, argv + argc);
  int qt_argc = 1;
  QGuiApplication application(qt_argc, argv);
  return zrsim::MapCommand(std::cout, std::cerr).Run(words);
}

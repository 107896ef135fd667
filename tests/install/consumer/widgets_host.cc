// Embeds the control's Qt view with an in-memory project, offscreen.
#include <QApplication>
#include <cstdlib>
#include <iostream>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  QApplication application(argc, argv);
  zrsimprp::SIMPropertiesWidget widget;
  widget.SetProjectDatabase(std::make_shared<zrsimprp::MemoryProjectDatabase>());
  widget.SetDefinition("Reps=5;");
  widget.Initialize();
  const std::string definition = widget.Definition();
  if (definition.find("Reps=5;") == std::string::npos || widget.Render().isNull()) {
    std::cerr << "unexpected definition: " << definition << "\n";
    return 1;
  }
  std::cout << "widgets host: " << definition.size() << " characters written back\n";
  return 0;
}

// Loads the installed sample project's simulation into the headless control and writes it back.
#include <iostream>

#include "projectdb/GeoPackageProject.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/HeadlessPlatform.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: headless_host SAMPLE.gpkg\n";
    return 2;
  }
  zrsimprp::HeadlessPlatform platform;
  zrsimprp::SIMProperties control(platform);
  auto project = zrsimprp::GeoPackageProject::Open(argv[1]);
  const auto names = project->SimulationNames();
  if (names.empty()) {
    std::cerr << "the sample has no simulation\n";
    return 1;
  }
  control.SetProjectDatabase(project);
  control.SetDefinition(project->SimulationDefinition(names.front()) + "Reps=17;");
  control.Initialize();
  const std::string definition = control.Definition();
  if (!control.IsValid() || definition.find("Reps=17;") == std::string::npos ||
      !platform.Messages().empty()) {
    std::cerr << "unexpected definition: " << definition << "\n";
    return 1;
  }
  std::cout << "headless host: " << names.front() << " has " << control.pagSimulation.StrataNum()
            << " strata\n";
  return 0;
}

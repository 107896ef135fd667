#pragma once

#include <benchmark/benchmark.h>

#include <QtGlobal>
#include <cstdint>
#include <memory>
#include <string>

#include "zrsimprp/host/MemoryProjectDatabase.h"

namespace zrsimprp::bench {

// A project of one survey of design 10 over the strata layer "Strata" of `strata` strata ("S1", ...).
inline std::shared_ptr<zrsimprp::MemoryProjectDatabase> OneSurveyProject(int strata) {
  auto database = std::make_shared<zrsimprp::MemoryProjectDatabase>();
  database->AddDesign(10, "Lines", "\"STRATUM LAYER\"=Strata;");
  database->AddSurvey(1, "Line survey", 1, 10);
  zrsimprp::MemoryProjectDatabase::LayerData layer;
  layer.name = "Strata";
  layer.kind = 1;
  layer.label_field = "Label";
  for (int i = 1; i <= strata; ++i) {
    layer.ids.emplace_back(int32_t{i});
    layer.labels.emplace_back(std::string("S") + std::to_string(i));
  }
  database->AddLayer(layer);
  return database;
}

// The main of a benchmark program that draws with Qt: `Application` (QApplication for widgets,
// QGuiApplication for painting alone) on the offscreen platform, then every benchmark.
template <class Application>
int RunQtBenchmarks(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  Application application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace zrsimprp::bench

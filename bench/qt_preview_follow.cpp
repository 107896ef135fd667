// How soon the editor's preview follows an edit: a population cell typed on the sample project, then
// everything the panel does before the person sees the new numbers (the curves, the expected
// detections and their table, and the drawn survey when one is shown). The panel waits
// PreviewPanel::kSettleMs after the last key stroke first: that pause plus the time measured here is
// what a person waits, against the goal of 100 ms.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "bench/QtBench.h"
#include "projectdb/GeoPackageProject.h"
#include "projectdb/SampleProject.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/map/PreviewPanel.h"

namespace {

std::string SampleCopy() {
  const std::filesystem::path path = std::filesystem::temp_directory_path() /
                                     ("zrsim-preview-follow-" + std::to_string(::getpid()) + ".gpkg");
  std::filesystem::remove(path);
  zrsimprp::SampleProject::Create(path.string());
  return path.string();
}

void FollowAnEdit(benchmark::State& state, bool with_survey) {
  const std::string path = SampleCopy();
  {
    zrsimprp::CModGlobal::Clear();
    auto project = zrsimprp::GeoPackageProject::Open(path);
    zrsimprp::SIMPropertiesWidget widget;
    widget.Platform().SetMessageSink([](const std::string&, const std::string&, zrsimprp::MessageIcon) {});
    widget.SetProjectDatabase(project);
    widget.SetDefinition(project->SimulationDefinition("Sample simulation"));
    widget.Initialize();
    zrsimprp::PreviewPanel panel(widget.Control());
    panel.resize(360, 700);
    panel.show();
    panel.RecomputeNow();
    if (with_survey) panel.DrawAgain();
    int value = 400;
    for (auto _ : state) {
      widget.Control().pagPopulation.flxN.UserEditCell(1, 1, std::to_string(++value % 1000 + 1));
      panel.RecomputeNow();
      QApplication::processEvents();
      benchmark::DoNotOptimize(panel.Current());
    }
    state.SetLabel("after the " + std::to_string(zrsimprp::PreviewPanel::kSettleMs) + " ms pause");
  }
  zrsimprp::CModGlobal::Clear();
  std::filesystem::remove(path);
}

void BM_PreviewFollowsAnEdit(benchmark::State& state) { FollowAnEdit(state, false); }
BENCHMARK(BM_PreviewFollowsAnEdit)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_PreviewWithDrawnSurveyFollowsAnEdit(benchmark::State& state) { FollowAnEdit(state, true); }
BENCHMARK(BM_PreviewWithDrawnSurveyFollowsAnEdit)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) { return zrsimprp::bench::RunQtBenchmarks<QApplication>(argc, argv); }

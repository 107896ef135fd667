// Pasting 10,000 cells into a strata table of the Qt widget, and undoing that paste, each with the
// views brought up to date.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QClipboard>
#include <QUndoStack>
#include <memory>
#include <string>

#include "bench/QtBench.h"
#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/qt/SIMPropertiesWidget.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/grid/GridView.h"

namespace {

constexpr int kCells = 10000;

// A widget on the Density page over 10,000 strata, the clipboard holding one density per stratum.
struct PasteSetUp {
  PasteSetUp() {
    zrsimprp::CModGlobal::Clear();
    widget = std::make_unique<zrsimprp::SIMPropertiesWidget>();
    widget->Platform().SetMessageSink([](const std::string&, const std::string&, zrsimprp::MessageIcon) {});
    widget->SetProjectDatabase(zrsimprp::bench::OneSurveyProject(kCells));
    widget->SetDefinition("Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\nReps=10;\r\n");
    widget->Initialize();
    widget->resize(1000, 700);
    widget->ShowOuterTab(1);
    widget->RefreshNow();
    view = widget->findChild<zrsimprp::GridView*>(QStringLiteral("flxConstantDensity"));
    view->setCurrentIndex(view->model()->index(1, 1));
    QString block;
    for (int i = 0; i < kCells; ++i) block += QString::number(0.5 + i % 7) + (i + 1 < kCells ? "\t" : "\r\n");
    QApplication::clipboard()->setText(block);
  }
  ~PasteSetUp() {
    widget.reset();
    zrsimprp::CModGlobal::Clear();
  }
  void Paste() {
    view->setCurrentIndex(view->model()->index(1, 1));
    view->findChild<zrsimprp::GridBinder*>()->EditActions()->Paste();
    widget->RefreshNow();
  }
  void Undo() {
    widget->UndoStack()->undo();
    widget->RefreshNow();
  }

  std::unique_ptr<zrsimprp::SIMPropertiesWidget> widget;
  zrsimprp::GridView* view = nullptr;
};

void BM_PasteTenThousandCells(benchmark::State& state) {
  PasteSetUp set_up;
  for (auto _ : state) {
    set_up.Paste();
    state.PauseTiming();
    set_up.Undo();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_PasteTenThousandCells)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_UndoPasteOfTenThousandCells(benchmark::State& state) {
  PasteSetUp set_up;
  for (auto _ : state) {
    state.PauseTiming();
    set_up.Paste();
    state.ResumeTiming();
    set_up.Undo();
  }
}
BENCHMARK(BM_UndoPasteOfTenThousandCells)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) { return zrsimprp::bench::RunQtBenchmarks<QApplication>(argc, argv); }

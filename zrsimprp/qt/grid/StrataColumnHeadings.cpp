#include "zrsimprp/qt/grid/StrataColumnHeadings.h"

#include "zrsimprp/control/StrataHeadings.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"
#include "zrsimprp/qt/grid/GridTableModel.h"

namespace zrsimprp {

StrataColumnHeadings::StrataColumnHeadings(CPagSimulation& simulation, std::vector<GridTableModel*> tables,
                                           QObject* parent)
    : QObject(parent), simulation_(simulation), tables_(std::move(tables)) {
  subscription_ = simulation_.cboRegionLayer.Subscribe([this] { FollowLayer(); });
}

StrataColumnHeadings::~StrataColumnHeadings() { simulation_.cboRegionLayer.Unsubscribe(subscription_); }

void StrataColumnHeadings::FollowLayer() {
  if (loading_ || simulation_.cboRegionLayer.Text() == layer_) return;
  Reload();
}

void StrataColumnHeadings::ReloadAfter(const std::function<void()>& load) {
  loading_ = true;
  try {
    load();
  } catch (...) {
    loading_ = false;
    throw;
  }
  loading_ = false;
  Reload();
}

void StrataColumnHeadings::Reload() {
  layer_ = simulation_.cboRegionLayer.Text();
  const auto headings = std::make_shared<const std::vector<StrataHeadings::Heading>>(
      StrataHeadings::ForLayer(CModGlobal::ProjectDatabase(), layer_));
  for (GridTableModel* table : tables_) table->SetColumnHeadings(0, 1, headings);
}

}  // namespace zrsimprp

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
  if (simulation_.cboRegionLayer.Text() == layer_) return;
  Reload();
}

void StrataColumnHeadings::Reload() {
  layer_ = simulation_.cboRegionLayer.Text();
  const std::vector<StrataHeadings::Heading> headings =
      StrataHeadings::ForLayer(CModGlobal::ProjectDatabase(), layer_);
  for (GridTableModel* table : tables_) table->SetColumnHeadings(0, 1, headings);
}

}  // namespace zrsimprp

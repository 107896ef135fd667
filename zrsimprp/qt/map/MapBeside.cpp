#include "zrsimprp/qt/map/MapBeside.h"

#include <QBoxLayout>
#include <QLayoutItem>
#include <QSplitter>
#include <QWidget>

namespace zrsimprp {
namespace {

// The page's controls get this share of the width the splitter hands out beyond the two sides' own
// needs, the map the rest: a table of many strata shows more of its columns than the map needs.
constexpr int kControlsStretch = 3;
constexpr int kMapStretch = 2;

}  // namespace

void MapBeside::Place(QBoxLayout* body, QWidget* map) {
  QWidget* page = body->parentWidget();
  auto* controls_pane = new QWidget(page);
  auto* controls = new QVBoxLayout(controls_pane);
  controls->setContentsMargins(0, 0, 0, 0);
  controls->setSpacing(body->spacing());
  while (QLayoutItem* item = body->takeAt(0)) {
    if (QWidget* widget = item->widget()) {
      controls->addWidget(widget);
      delete item;
    } else if (QLayout* layout = item->layout()) {
      controls->addLayout(layout);  // re-parents the row, so its widgets move into the pane
    } else {
      controls->addItem(item);  // a stretch or spacer
    }
  }
  auto* splitter = new QSplitter(Qt::Horizontal, page);
  splitter->setObjectName(QStringLiteral("mapSplitter"));
  splitter->setChildrenCollapsible(false);
  splitter->addWidget(controls_pane);
  splitter->addWidget(map);
  splitter->setStretchFactor(0, kControlsStretch);
  splitter->setStretchFactor(1, kMapStretch);
  body->addWidget(splitter);
}

}  // namespace zrsimprp

#include "zrsimprp/qt/map/MapBeside.h"

#include <QBoxLayout>
#include <QLayoutItem>
#include <QWidget>

namespace zrsimprp {

void MapBeside::Place(QBoxLayout* body, QWidget* map, Qt::Alignment alignment) {
  auto* controls = new QVBoxLayout;
  controls->setSpacing(body->spacing());
  while (QLayoutItem* item = body->takeAt(0)) {
    if (QWidget* widget = item->widget()) {
      controls->addWidget(widget);
      delete item;
    } else if (QLayout* layout = item->layout()) {
      controls->addLayout(layout);  // re-parents the row, so its widgets keep their parent
    } else {
      controls->addItem(item);  // a stretch or spacer
    }
  }
  auto* row = new QHBoxLayout;
  row->addLayout(controls, 0);
  row->addWidget(map, 1, alignment);
  body->addLayout(row);
}

}  // namespace zrsimprp

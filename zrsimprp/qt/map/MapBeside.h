#pragma once

#include <Qt>

class QBoxLayout;
class QWidget;

namespace zrsimprp {

// Puts a map to the right of a page's controls: the page's column of rows moves, unchanged, into the
// left half of a new row, so the controls keep their order, focus chain and sizes.
class MapBeside {
 public:
  static void Place(QBoxLayout* body, QWidget* map, Qt::Alignment alignment = {});
};

}  // namespace zrsimprp

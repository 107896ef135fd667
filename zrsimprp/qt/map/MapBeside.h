#pragma once

class QBoxLayout;
class QWidget;

namespace zrsimprp {

// Puts a map to the right of a page's controls: the page's column of rows moves, unchanged, into the
// left pane of a splitter, so the controls keep their order, focus chain and sizes, and a person can
// give the controls (a table of many strata) or the map more of the width.
class MapBeside {
 public:
  static void Place(QBoxLayout* body, QWidget* map);
};

}  // namespace zrsimprp

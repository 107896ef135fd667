#pragma once

#include <QModelIndex>
#include <QObject>
#include <QPointer>

#include "zrsimprp/host/PageControl.h"

class QWidget;

namespace zrsimprp {

// Points a person at what a page's check refused: a red frame round the field, or round the grid
// cell (scrolled into view, never made the current cell), that the page names as invalid. The frame
// stays until that value changes or the page passes its check. It never changes the control's state.
class InvalidSpotMarker : public QObject {
  Q_OBJECT

 public:
  // Watches `page`; looks for the widgets of its controls under `root`.
  InvalidSpotMarker(PageControl& page, QWidget* root);
  ~InvalidSpotMarker() override;

  // The widget marked now (null when none) and, in a grid, the cell.
  QWidget* MarkedWidget() const { return marked_; }
  QModelIndex MarkedCell() const { return cell_; }
  // The red frame while it is shown.
  QWidget* Frame() const { return frame_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Update();
  void Mark(QWidget* widget, int row, int col);
  void Clear();
  void PlaceFrame();
  QWidget* WidgetOf(const Control* control) const;

  PageControl& page_;
  QWidget* root_;
  int subscription_ = 0;
  PageControl::InvalidSpot shown_;
  QPointer<QWidget> marked_;
  QPersistentModelIndex cell_;
  QPointer<QWidget> frame_;
  QMetaObject::Connection value_changed_;
};

}  // namespace zrsimprp

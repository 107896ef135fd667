#pragma once

#include <QWidget>
#include <memory>

#include "zrsimprp/preview/DrawnSurvey.h"

class QPushButton;
class QHBoxLayout;

namespace zrsimprp {
class MapCanvas;
class PreviewPanel;
class SIMPropertiesWidget;
}  // namespace zrsimprp

namespace zrsim_editor {

// The pages with the preview beside them: the "Preview" button (the window puts it among its own
// buttons) opens a panel to the right of the tabs with what one repetition is expected to give,
// which follows every edit; the window grows by the panel's width so that the pages keep theirs. The
// panel is made the first time it is opened, so a window that never shows it never computes it.
class PreviewBeside : public QWidget {
  Q_OBJECT

 public:
  PreviewBeside(zrsimprp::SIMPropertiesWidget* properties, QWidget* parent = nullptr);
  // The panel goes first: it watches the control's values, which go with the properties widget.
  ~PreviewBeside() override;

  void SetPreviewShown(bool shown);
  QPushButton* Toggle() const { return toggle_; }
  // Null until the preview was first shown.
  zrsimprp::PreviewPanel* Panel() const { return panel_; }
  // The Density tab's map, which shows the drawn survey too; null when the widget has none.
  zrsimprp::MapCanvas* DensityMapCanvas() const;

 private:
  // Puts the drawn survey over the Density tab's map as well (null takes it away).
  void ShowOnDensityMap(std::shared_ptr<const zrsimprp::DrawnSurvey> survey);

  zrsimprp::SIMPropertiesWidget* properties_;
  QPushButton* toggle_;
  QHBoxLayout* row_;
  zrsimprp::PreviewPanel* panel_ = nullptr;
};

}  // namespace zrsim_editor

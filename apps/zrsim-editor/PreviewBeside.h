#pragma once

#include <QWidget>

class QPushButton;
class QHBoxLayout;

namespace zrsimprp {
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

  void SetPreviewShown(bool shown);
  QPushButton* Toggle() const { return toggle_; }
  // Null until the preview was first shown.
  zrsimprp::PreviewPanel* Panel() const { return panel_; }

 private:
  zrsimprp::SIMPropertiesWidget* properties_;
  QPushButton* toggle_;
  QHBoxLayout* row_;
  zrsimprp::PreviewPanel* panel_ = nullptr;
};

}  // namespace zrsim_editor

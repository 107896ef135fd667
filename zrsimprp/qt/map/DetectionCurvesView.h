#pragma once

#include <QWidget>
#include <memory>

#include "zrsimprp/preview/Preview.h"

namespace zrsimprp {

// The detection curves of a preview: g(x) from 0 to the truncation distance, one curve per value
// column of the Detectability table (and categorical level), each in its own colour with its name.
// A curve whose cells cannot be used is its sentence, written under the chart.
class DetectionCurvesView : public QWidget {
  Q_OBJECT

 public:
  explicit DetectionCurvesView(QWidget* parent = nullptr);

  void ShowPreview(std::shared_ptr<const Preview> preview);
  QSize sizeHint() const override { return {280, 170}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::shared_ptr<const Preview> preview_;
};

}  // namespace zrsimprp

#pragma once

#include <memory>

#include "zrsimprp/preview/DrawnSurvey.h"
#include "zrsimprp/qt/map/MapCanvas.h"

namespace zrsimprp {

// The density map with a drawn survey over it: the lines in blue, the animals that were not seen as
// small grey dots and those seen as red squares with a light rim, so they stand out on any colour
// of the surface.
class SurveyMapCanvas : public MapCanvas {
  Q_OBJECT

 public:
  explicit SurveyMapCanvas(QWidget* parent = nullptr);

  // Null takes the survey away.
  void ShowSurvey(std::shared_ptr<const DrawnSurvey> survey);
  const std::shared_ptr<const DrawnSurvey>& Survey() const { return survey_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::shared_ptr<const DrawnSurvey> survey_;
};

}  // namespace zrsimprp

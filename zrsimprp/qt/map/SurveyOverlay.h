#pragma once

#include <QTransform>
#include <memory>

#include "zrsimprp/preview/DrawnSurvey.h"

class QPainter;

namespace zrsimprp {

class MapCanvas;

// A drawn survey over a density map: the lines in white, the animals that were not seen as small
// dark dots and those seen as red squares with a light rim, so they stand out on any colour of the
// surface.
class SurveyOverlay {
 public:
  static void Paint(QPainter& painter, const QTransform& to_widget, const DrawnSurvey& survey);
  // Shows the survey over the canvas's map; null takes it away.
  static void ShowOn(MapCanvas& canvas, std::shared_ptr<const DrawnSurvey> survey);
};

}  // namespace zrsimprp

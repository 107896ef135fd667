#pragma once

#include <QImage>
#include <QPainterPath>
#include <QPalette>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <QTransform>
#include <memory>
#include <vector>

#include "zrsimprp/map/MapModel.h"

class QPainter;

namespace zrsimprp {

// Paints a map model: the surface in viridis, the strata outlines and labels, the hotspot marks, the
// colour scale with its values, a scale bar and the model's sentences. It computes nothing about the
// surface; what it keeps (the outlines as paths, the surface as an image) is only the model redrawn
// in Qt's terms, made once per model so that repainting is cheap.
class MapPainter {
 public:
  void SetModel(std::shared_ptr<const MapModel> model);
  const std::shared_ptr<const MapModel>& Model() const { return model_; }
  // A heading over the map (for a picture that stands on its own); none by default.
  void SetTitle(const QString& title) { title_ = title; }

  // Draws into `area` with the palette's colours (light or dark).
  void Paint(QPainter& painter, const QRectF& whole, const QPalette& palette);
  // The map point under a widget point of the last Paint, or false off the map.
  bool MapPointAt(const QPointF& at, MapPoint& point) const;
  // Map coordinates to widget coordinates as the last Paint placed the map; false when none was drawn.
  bool ToWidget(QTransform& transform) const {
    transform = to_widget_;
    return painted_map_;
  }

  // A person's view of the map: `zoom` 1 and no offset show the whole region; the offset (widget
  // pixels) moves the zoomed map. Zooming keeps the map point under `anchor` where it is.
  void ZoomAbout(const QPointF& anchor, double factor);
  void Pan(const QPointF& pixels);
  void ShowWholeRegion();
  double Zoom() const { return zoom_; }
  // The stratum (position in the model's strata) under a widget point of the last Paint, or -1.
  int StratumAt(const QPointF& at) const;
  // The stratum drawn outlined in the highlight colour; -1 for none.
  void SetHighlighted(int stratum) { highlighted_ = stratum; }
  int Highlighted() const { return highlighted_; }

 private:
  void PaintSurface(QPainter& painter);
  void PaintStrata(QPainter& painter, const QRectF& area, const QPalette& palette);
  void DrawStrata(QPainter& painter, const QPalette& palette);
  void PaintLabels(QPainter& painter, const QPalette& palette);
  void PaintHotspots(QPainter& painter, const QPalette& palette);
  void PaintHighlight(QPainter& painter, const QPalette& palette);
  void PaintColourScale(QPainter& painter, const QRectF& bar, const QPalette& palette);
  void PaintScaleBar(QPainter& painter, const QRectF& frame, const QPalette& palette);
  // Returns the height the sentences took.
  qreal PaintSentences(QPainter& painter, const QRectF& area, const QPalette& palette, bool centred);

  std::shared_ptr<const MapModel> model_;
  QString title_;
  // In map coordinates, made once per layer: an edit of a density or the formula keeps them.
  std::shared_ptr<const LayerShapes> strata_;
  std::vector<QPainterPath> strata_paths_;  // one per stratum, for filling (holes left open)
  std::vector<QPolygonF> rings_;            // every ring, for the outlines
  // The strata drawn once for the current size, transform and colours, then only copied.
  QImage strata_layer_;
  QTransform strata_layer_transform_;
  QRgb strata_layer_ink_ = 0;
  bool strata_layer_filled_ = false;
  QImage surface_;
  QTransform to_widget_;  // map coordinates -> widget, from the last Paint
  QRectF map_frame_;
  bool painted_map_ = false;
  double zoom_ = 1;
  QPointF offset_;
  int highlighted_ = -1;
};

}  // namespace zrsimprp

#include "zrsimprp/qt/map/MapPainter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QString>
#include <QTextOption>
#include <algorithm>
#include <cmath>
#include <limits>

#include "zrsimprp/map/ColourStops.h"
#include "zrsimprp/map/MapNumber.h"
#include "zrsimprp/map/ScaleBar.h"
#include "zrsimprp/map/ScaleTicks.h"
#include "zrsimprp/map/ViridisScale.h"

namespace zrsimprp {

namespace {

constexpr qreal kMargin = 8;
constexpr qreal kScaleWidth = 14;
constexpr qreal kScaleLabelWidth = 56;
// Up to this many distinct values, the colour scale names each of them.
constexpr size_t kNamedStops = 8;
// Past this many strata the labels would hide the map.
constexpr size_t kMaxLabels = 60;

QString Text(const std::string& text) { return QString::fromStdString(text); }

QPainterPath StratumPath(const StratumGeometry& stratum) {
  QPainterPath path;
  path.setFillRule(Qt::OddEvenFill);
  for (const MapPolygon& polygon : stratum.polygons) {
    for (const auto& ring : polygon.rings) {
      if (ring.size() < 2) continue;
      path.moveTo(ring.front().x, ring.front().y);
      for (size_t i = 1; i < ring.size(); ++i) path.lineTo(ring[i].x, ring[i].y);
      path.closeSubpath();
    }
  }
  return path;
}

// Distinct, calm colours for telling strata apart (a qualitative palette).
QColor StratumColour(size_t index) {
  static const QColor kColours[] = {
      QColor(0x4e, 0x79, 0xa7), QColor(0xf2, 0x8e, 0x2b), QColor(0x59, 0xa1, 0x4f), QColor(0xe1, 0x57, 0x59),
      QColor(0x76, 0xb7, 0xb2), QColor(0xed, 0xc9, 0x48), QColor(0xb0, 0x7a, 0xa1), QColor(0xff, 0x9d, 0xa7),
      QColor(0x9c, 0x75, 0x5f), QColor(0xba, 0xb0, 0xac)};
  return kColours[index % (sizeof kColours / sizeof kColours[0])];
}

QImage SurfaceImage(const MapModel& model) {
  const StrataRaster& raster = *model.raster;
  QImage image(raster.Columns(), raster.Rows(), QImage::Format_ARGB32);
  QRgb lut[256];
  for (int i = 0; i < 256; ++i) {
    const ViridisScale::Rgb rgb = ViridisScale::At(i / 255.0);
    lut[i] = qRgb(rgb.r, rgb.g, rgb.b);
  }
  for (int32_t row = 0; row < raster.Rows(); ++row) {
    // Image rows run north to south; grid rows south to north.
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(raster.Rows() - 1 - row));
    const float* values = model.values.data() + raster.Index(0, row);
    // Cells of one stratum mostly share a value: a run costs one look-up on the scale.
    float last_value = std::numeric_limits<float>::quiet_NaN();
    QRgb last_colour = qRgba(0, 0, 0, 0);
    for (int32_t col = 0; col < raster.Columns(); ++col) {
      const float value = values[col];
      if (value != last_value) {
        last_value = value;
        last_colour =
            std::isnan(value)
                ? qRgba(0, 0, 0, 0)
                : lut[std::clamp(static_cast<int>(model.colour_stops.Position(value) * 255.0 + 0.5), 0, 255)];
      }
      line[col] = last_colour;
    }
  }
  return image;
}

}  // namespace

void MapPainter::SetModel(std::shared_ptr<const MapModel> model) {
  model_ = std::move(model);
  surface_ = QImage();
  const std::shared_ptr<const LayerShapes> strata = model_ ? model_->strata : nullptr;
  if (strata != strata_) {
    strata_ = strata;
    strata_paths_.clear();
    rings_.clear();
    strata_layer_ = QImage();
    if (strata_) {
      strata_paths_.reserve(strata_->strata.size());
      for (const StratumGeometry& stratum : strata_->strata) {
        strata_paths_.push_back(StratumPath(stratum));
        for (const MapPolygon& polygon : stratum.polygons) {
          for (const auto& ring : polygon.rings) {
            QPolygonF line;
            line.reserve(static_cast<qsizetype>(ring.size() + 1));
            for (const MapPoint& point : ring) line.append(QPointF(point.x, point.y));
            if (!ring.empty()) line.append(QPointF(ring.front().x, ring.front().y));
            rings_.push_back(std::move(line));
          }
        }
      }
    }
  }
  if (model_ && model_->HasSurface()) surface_ = SurfaceImage(*model_);
}

void MapPainter::ZoomAbout(const QPointF& anchor, double factor) {
  const double zoom = std::clamp(zoom_ * factor, 1.0, 1000.0);
  if (zoom == zoom_) return;
  // The point under the anchor keeps its place: the offset scales about the frame's centre.
  const QPointF centre = map_frame_.center();
  const QPointF from_centre = anchor - centre - offset_;
  offset_ = anchor - centre - from_centre * (zoom / zoom_);
  zoom_ = zoom;
  if (zoom_ == 1) offset_ = QPointF();
}

void MapPainter::Pan(const QPointF& pixels) {
  if (zoom_ == 1) return;
  offset_ += pixels;
}

void MapPainter::ShowWholeRegion() {
  zoom_ = 1;
  offset_ = QPointF();
}

int MapPainter::StratumAt(const QPointF& at) const {
  MapPoint point;
  if (!MapPointAt(at, point)) return -1;
  const QPointF mapped(point.x, point.y);
  for (size_t i = 0; i < strata_paths_.size(); ++i) {
    if (strata_paths_[i].contains(mapped)) return static_cast<int>(i);
  }
  return -1;
}

void MapPainter::PaintHighlight(QPainter& painter, const QPalette& palette) {
  if (highlighted_ < 0 || static_cast<size_t>(highlighted_) >= strata_paths_.size()) return;
  QPen pen(palette.color(QPalette::Highlight), 3);
  pen.setCosmetic(true);
  painter.save();
  painter.setTransform(to_widget_, true);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(strata_paths_[static_cast<size_t>(highlighted_)]);
  painter.restore();
}

bool MapPainter::MapPointAt(const QPointF& at, MapPoint& point) const {
  if (!painted_map_ || !map_frame_.contains(at)) return false;
  bool invertible = false;
  const QPointF mapped = to_widget_.inverted(&invertible).map(at);
  if (!invertible) return false;
  point = {mapped.x(), mapped.y()};
  return true;
}

void MapPainter::Paint(QPainter& painter, const QRectF& whole, const QPalette& palette) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.fillRect(whole, palette.color(QPalette::Base));
  QRectF area = whole;
  if (!title_.isEmpty()) {
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette.color(QPalette::Text));
    const qreal height = QFontMetricsF(bold).height() + 4;
    painter.drawText(QRectF(area.left() + kMargin, area.top() + kMargin, area.width() - 2 * kMargin, height),
                     Qt::AlignLeft | Qt::AlignVCenter, title_);
    bold.setBold(false);
    painter.setFont(bold);
    area.setTop(area.top() + kMargin + height);
  }
  painted_map_ = false;
  if (!model_ || !model_->Drawable()) {
    if (model_) PaintSentences(painter, area.adjusted(kMargin, kMargin, -kMargin, -kMargin), palette, true);
    painter.restore();
    return;
  }

  const QFontMetricsF metrics(painter.font());
  const bool surface = model_->HasSurface();
  const qreal text_width = area.width() - 2 * kMargin;
  const int legend_flags = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop;
  const qreal legend_height =
      model_->legend.empty()
          ? 0
          : painter.boundingRect(QRectF(0, 0, text_width, 10000), legend_flags, Text(model_->legend))
                    .height() +
                4;
  const qreal scale_bar_height = metrics.height() + 8;
  QRectF frame = area.adjusted(kMargin, kMargin, -kMargin, -(kMargin + scale_bar_height + legend_height));
  if (surface) frame.setRight(frame.right() - kScaleWidth - kScaleLabelWidth - kMargin);
  const qreal notes = PaintSentences(painter, frame, palette, false);
  frame.setTop(frame.top() + notes);
  if (frame.width() < 20 || frame.height() < 20) {
    painter.restore();
    return;
  }

  const MapExtent& extent = model_->extent;
  const double width = std::max(extent.Width(), 1e-12);
  const double height = std::max(extent.Height(), 1e-12);
  const double scale = std::min(frame.width() / width, frame.height() / height);
  const double left = frame.left() + (frame.width() - width * scale) / 2;
  // Top-aligned, so that the scale bar and the legend sit right under the map.
  const double top = frame.top();
  // y grows northwards on the map and downwards on the screen.
  to_widget_ = QTransform(scale, 0, 0, -scale, left - extent.min_x * scale, top + extent.max_y * scale);
  map_frame_ = QRectF(left, top, width * scale, height * scale);
  painted_map_ = true;
  const bool whole_region = zoom_ == 1 && offset_.isNull();
  if (!whole_region) {
    const QPointF centre = map_frame_.center();
    to_widget_ = to_widget_ * QTransform::fromTranslate(-centre.x(), -centre.y()) *
                 QTransform::fromScale(zoom_, zoom_) *
                 QTransform::fromTranslate(centre.x() + offset_.x(), centre.y() + offset_.y());
  }

  painter.save();
  // A zoomed or moved map stays inside its frame, clear of the scale and the sentences.
  if (!whole_region) painter.setClipRect(map_frame_);
  PaintSurface(painter);
  PaintStrata(painter, area, palette);
  PaintHighlight(painter, palette);
  PaintLabels(painter, palette);
  PaintHotspots(painter, palette);
  painter.restore();
  if (surface) {
    const qreal bar_height = std::max<qreal>(std::min<qreal>(80, frame.height()), map_frame_.height());
    const QRectF bar(frame.right() + kMargin, map_frame_.center().y() - bar_height / 2, kScaleWidth,
                     bar_height);
    PaintColourScale(painter, bar, palette);
  }
  PaintScaleBar(painter,
                QRectF(area.left() + kMargin, map_frame_.bottom() + 4, area.width() / 2, scale_bar_height),
                palette);
  if (!model_->legend.empty()) {
    painter.setPen(palette.color(QPalette::Text));
    const QRectF legend(area.left() + kMargin, map_frame_.bottom() + 4 + scale_bar_height, text_width,
                        legend_height);
    painter.drawText(legend, legend_flags, Text(model_->legend));
  }
  painter.restore();
}

void MapPainter::PaintSurface(QPainter& painter) {
  if (surface_.isNull()) return;
  const StrataRaster& raster = *model_->raster;
  const QRectF grid(raster.OriginX(), raster.OriginY(), raster.Columns() * raster.Spacing(),
                    raster.Rows() * raster.Spacing());
  const QRectF target = to_widget_.mapRect(grid);
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
  painter.drawImage(target, surface_);
  painter.restore();
}

void MapPainter::PaintStrata(QPainter& painter, const QRectF& area, const QPalette& palette) {
  const QRect pixels = area.toAlignedRect();
  const QRgb ink = palette.color(QPalette::Text).rgba();
  const QTransform transform = to_widget_ * QTransform::fromTranslate(-pixels.left(), -pixels.top());
  if (strata_layer_.size() != pixels.size() || strata_layer_transform_ != transform ||
      strata_layer_ink_ != ink || strata_layer_filled_ != model_->colour_by_stratum) {
    strata_layer_ = QImage(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    strata_layer_.fill(Qt::transparent);
    QPainter layer(&strata_layer_);
    layer.setRenderHint(QPainter::Antialiasing, true);
    layer.setTransform(transform);
    DrawStrata(layer, palette);
    strata_layer_transform_ = transform;
    strata_layer_ink_ = ink;
    strata_layer_filled_ = model_->colour_by_stratum;
  }
  painter.drawImage(pixels.topLeft(), strata_layer_);
}

void MapPainter::DrawStrata(QPainter& painter, const QPalette& palette) {
  if (model_->colour_by_stratum) {
    painter.setPen(Qt::NoPen);
    for (size_t i = 0; i < strata_paths_.size(); ++i) {
      QColor fill = StratumColour(i);
      fill.setAlpha(170);
      painter.setBrush(fill);
      painter.drawPath(strata_paths_[i]);
    }
  }
  // A cosmetic one-pixel pen takes the painter's fast line path, which matters at thousands of rings.
  QPen outline(palette.color(QPalette::Text), 1);
  outline.setCosmetic(true);
  painter.setPen(outline);
  painter.setBrush(Qt::NoBrush);
  for (const QPolygonF& ring : rings_) painter.drawPolyline(ring);
}

void MapPainter::PaintLabels(QPainter& painter, const QPalette& palette) {
  if (model_->labels.size() > kMaxLabels) return;
  const QFontMetricsF metrics(painter.font());
  for (const MapLabel& label : model_->labels) {
    if (label.text.empty()) continue;
    const QPointF at = to_widget_.map(QPointF(label.at.x, label.at.y));
    const QString text = Text(label.text);
    QRectF box = metrics.boundingRect(text).adjusted(-3, -1, 3, 1);
    box.moveCenter(at);
    QColor halo = palette.color(QPalette::Base);
    halo.setAlpha(200);
    painter.setPen(Qt::NoPen);
    painter.setBrush(halo);
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(box, Qt::AlignCenter, text);
  }
}

void MapPainter::PaintHotspots(QPainter& painter, const QPalette& palette) {
  const double scale = std::abs(to_widget_.m11());
  for (const HotspotMark& mark : model_->hotspots) {
    const QPointF centre = to_widget_.map(QPointF(mark.centre.x, mark.centre.y));
    const QColor colour = mark.inside ? QColor(0xff, 0xff, 0xff) : QColor(0xe1, 0x2d, 0x39);
    for (const auto& [pen_colour, width] :
         {std::pair<QColor, qreal>{QColor(0, 0, 0, 160), 3.2}, std::pair<QColor, qreal>{colour, 1.6}}) {
      QPen pen(pen_colour, width);
      if (!mark.inside) pen.setStyle(Qt::DashLine);
      painter.setPen(pen);
      painter.setBrush(Qt::NoBrush);
      const qreal radius = mark.sigma * scale;
      painter.drawEllipse(centre, radius, radius);
      painter.drawLine(centre + QPointF(-5, 0), centre + QPointF(5, 0));
      painter.drawLine(centre + QPointF(0, -5), centre + QPointF(0, 5));
    }
    painter.setPen(palette.color(QPalette::Text));
    painter.drawText(centre + QPointF(6, -6), QString::number(mark.row));
  }
}

void MapPainter::PaintColourScale(QPainter& painter, const QRectF& bar, const QPalette& palette) {
  QLinearGradient gradient(bar.bottomLeft(), bar.topLeft());
  for (int i = 0; i <= 10; ++i) {
    const ViridisScale::Rgb rgb = ViridisScale::At(i / 10.0);
    gradient.setColorAt(i / 10.0, QColor(rgb.r, rgb.g, rgb.b));
  }
  painter.setPen(QPen(palette.color(QPalette::Text), 1));
  painter.setBrush(gradient);
  painter.drawRect(bar);
  const QFontMetricsF metrics(painter.font());
  // A few typed values are named themselves; otherwise round values, where they sit on the scale, as
  // far as their labels do not overlap.
  const ColourStops& stops = model_->colour_stops;
  const std::vector<double> ticks = stops.Exact() && stops.Values().size() <= kNamedStops
                                        ? stops.Values()
                                        : ScaleTicks::Between(model_->value_min, model_->value_max, 5);
  qreal last_y = bar.bottom() + metrics.height();
  for (const double value : ticks) {
    const qreal y = bar.bottom() - stops.Position(value) * bar.height();
    if (last_y - y < metrics.height()) continue;
    last_y = y;
    painter.drawLine(QPointF(bar.right(), y), QPointF(bar.right() + 3, y));
    painter.drawText(QRectF(bar.right() + 5, y - metrics.height() / 2, kScaleLabelWidth, metrics.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, Text(MapNumber::Text(value)));
  }
}

void MapPainter::PaintScaleBar(QPainter& painter, const QRectF& frame, const QPalette& palette) {
  const double scale = std::abs(to_widget_.m11());
  if (!(scale > 0)) return;
  const ScaleBar bar = ScaleBar::Choose(
      1.0 / scale, std::min<qreal>(160, frame.width() * 0.6),
      model_->geographic ? ScaleBar::Units::kDegrees
                         : (model_->metres ? ScaleBar::Units::kMetres : ScaleBar::Units::kUnknown));
  if (bar.length <= 0) return;
  const qreal pixels = bar.length * scale;
  const qreal y = frame.top() + frame.height() - 3;
  painter.setPen(QPen(palette.color(QPalette::Text), 1.5));
  painter.drawLine(QPointF(frame.left(), y), QPointF(frame.left() + pixels, y));
  painter.drawLine(QPointF(frame.left(), y - 4), QPointF(frame.left(), y));
  painter.drawLine(QPointF(frame.left() + pixels, y - 4), QPointF(frame.left() + pixels, y));
  painter.drawText(QPointF(frame.left() + pixels + 6, y + 1), Text(bar.label));
}

qreal MapPainter::PaintSentences(QPainter& painter, const QRectF& area, const QPalette& palette,
                                 bool centred) {
  if (model_->notices.empty()) return 0;
  QString text;
  for (const std::string& notice : model_->notices) {
    if (!text.isEmpty()) text += QLatin1Char('\n');
    text += Text(notice);
  }
  const int flags = Qt::TextWordWrap | (centred ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignTop);
  const QRectF needed = painter.boundingRect(area.adjusted(6, 4, -6, -4), flags, text);
  QRectF box = centred ? needed.adjusted(-6, -4, 6, 4)
                       : QRectF(area.left(), area.top(), area.width(), needed.height() + 8);
  QColor back = palette.color(QPalette::AlternateBase);
  painter.setPen(QPen(palette.color(QPalette::Mid), 1));
  painter.setBrush(back);
  painter.drawRoundedRect(box, 4, 4);
  painter.setPen(palette.color(QPalette::Text));
  painter.drawText(box.adjusted(6, 4, -6, -4), flags, text);
  return centred ? 0 : box.height() + 4;
}

}  // namespace zrsimprp

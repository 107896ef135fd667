#include "zrsim/PreviewPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "zrsim/PngWriter.h"
#include "zrsimprp/map/StrataRaster.h"

namespace zrsim {

namespace {

constexpr int kMargin = 10;

struct Canvas {
  int width = 0;
  int height = 0;
  std::vector<uint8_t> rgb;

  void Set(int x, int y, uint8_t r, uint8_t g, uint8_t b) {
    if (x < 0 || y < 0 || x >= width || y >= height) return;
    const size_t at = (static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)) * 3;
    rgb[at] = r;
    rgb[at + 1] = g;
    rgb[at + 2] = b;
  }
};

}  // namespace

std::string PreviewPicture::Write(const std::string& path, const zrsimprp::LayerShapes& strata,
                                  const zrsimprp::DrawnSurvey& survey) {
  zrsimprp::MapExtent extent;
  for (const auto& stratum : strata.strata) {
    for (const auto& polygon : stratum.polygons) {
      for (const auto& ring : polygon.rings) {
        for (const auto& point : ring) extent.Include(point.x, point.y);
      }
    }
  }
  if (extent.empty || !(extent.Width() > 0) || !(extent.Height() > 0)) {
    return "the strata have no extent to draw.";
  }
  const double scale = (kWidth - 2 * kMargin) / extent.Width();
  Canvas canvas;
  canvas.width = kWidth;
  canvas.height = std::clamp(static_cast<int>(std::ceil(extent.Height() * scale)) + 2 * kMargin,
                             2 * kMargin + 1, 4 * kWidth);
  canvas.rgb.assign(static_cast<size_t>(canvas.width) * static_cast<size_t>(canvas.height) * 3, 255);
  const auto pixel_x = [&](double x) {
    return kMargin + static_cast<int>(std::floor((x - extent.min_x) * scale));
  };
  const auto pixel_y = [&](double y) {
    return canvas.height - 1 - kMargin - static_cast<int>(std::floor((y - extent.min_y) * scale));
  };
  // One grid cell per pixel tells which stratum each pixel shows, holes included.
  const auto raster = zrsimprp::StrataRaster::Make(strata, extent, 1 / scale);
  for (int32_t row = 0; row < raster->Rows(); ++row) {
    for (int32_t col = 0; col < raster->Columns(); ++col) {
      const int32_t owner = raster->Owner(col, row);
      if (owner < 0) continue;
      const uint8_t tint = owner % 2 == 0 ? 228 : 210;
      canvas.Set(kMargin + col, canvas.height - 1 - kMargin - row, tint, 236, tint);
    }
  }
  for (const auto& line : survey.lines) {
    const int x = pixel_x(line.x);
    for (int y = pixel_y(line.y1); y <= pixel_y(line.y0); ++y) canvas.Set(x, y, 40, 80, 200);
  }
  for (const auto& animal : survey.animals) {
    if (!animal.detected) canvas.Set(pixel_x(animal.x), pixel_y(animal.y), 110, 110, 110);
  }
  for (const auto& animal : survey.animals) {
    if (!animal.detected) continue;
    const int x = pixel_x(animal.x);
    const int y = pixel_y(animal.y);
    for (int dy = -1; dy <= 1; ++dy) {
      for (int dx = -1; dx <= 1; ++dx) canvas.Set(x + dx, y + dy, 210, 30, 30);
    }
  }
  return PngWriter::Write(path, canvas.width, canvas.height, canvas.rgb);
}

}  // namespace zrsim

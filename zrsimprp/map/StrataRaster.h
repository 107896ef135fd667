#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "zrsimprp/host/LayerGeometrySource.h"
#include "zrsimprp/map/MapExtent.h"

namespace zrsimprp {

// The grid of the typed spacing laid over the strata: which stratum holds each cell's centre (holes
// and the gaps between the parts of a multipolygon hold none). Built once per layer and spacing and
// shared, read-only, by every surface computed on it.
class StrataRaster {
 public:
  static constexpr int32_t kOutside = -1;

  // Cells of `spacing` from the lower-left corner of `extent`, enough to cover it. Each stratum's rows
  // are filled between the crossings of its own edges (even-odd), so the cost is the edges' row
  // crossings plus the cells inside, never cells times edges.
  static std::shared_ptr<const StrataRaster> Make(const LayerShapes& shapes, const MapExtent& extent,
                                                  double spacing);

  // The number of cells Make would lay over `extent` (as a double, so that tiny spacings do not wrap).
  static double CellCount(const MapExtent& extent, double spacing);
  // How many times the strata's edges cross the rows' centre lines: Make's work besides the cells.
  static double CrossingCount(const LayerShapes& shapes, const MapExtent& extent, double spacing);

  int32_t Columns() const { return columns_; }
  int32_t Rows() const { return rows_; }
  double Spacing() const { return spacing_; }
  double OriginX() const { return origin_x_; }  // lower-left corner of cell (0, 0)
  double OriginY() const { return origin_y_; }
  double CentreX(int32_t col) const { return origin_x_ + (col + 0.5) * spacing_; }
  double CentreY(int32_t row) const { return origin_y_ + (row + 0.5) * spacing_; }
  // Row 0 is the southernmost row.
  int32_t Owner(int32_t col, int32_t row) const { return owners_[Index(col, row)]; }
  const std::vector<int32_t>& Owners() const { return owners_; }
  size_t Index(int32_t col, int32_t row) const {
    return static_cast<size_t>(row) * static_cast<size_t>(columns_) + static_cast<size_t>(col);
  }
  // The cell holding the point, or false when the point lies off the grid.
  bool CellAt(double x, double y, int32_t& col, int32_t& row) const;

 private:
  StrataRaster(double origin_x, double origin_y, double spacing, int32_t columns, int32_t rows);
  void FillStratum(const StratumGeometry& stratum, int32_t owner);

  double origin_x_;
  double origin_y_;
  double spacing_;
  int32_t columns_;
  int32_t rows_;
  std::vector<int32_t> owners_;
};

// The stratum (index into shapes.strata) whose polygons hold the point, or -1. Even-odd over all rings
// of a stratum, so holes are outside.
int32_t StratumAt(const LayerShapes& shapes, double x, double y);

}  // namespace zrsimprp

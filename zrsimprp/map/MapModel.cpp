#include "zrsimprp/map/MapModel.h"

#include <cmath>
#include <limits>

#include "zrsimprp/map/MapNumber.h"

namespace zrsimprp {

double MapModel::ValueAt(double x, double y) const {
  int32_t col = 0;
  int32_t row = 0;
  if (!HasSurface() || !raster->CellAt(x, y, col, row)) return std::numeric_limits<double>::quiet_NaN();
  return values[raster->Index(col, row)];
}

int32_t MapModel::StratumAtPoint(double x, double y) const {
  if (!strata || !extent.Contains(x, y)) return -1;
  return StratumAt(*strata, x, y);
}

std::string MapModel::Describe(double x, double y) const {
  std::string text = "x " + MapNumber::Coordinate(x) + "   y " + MapNumber::Coordinate(y);
  const int32_t stratum = StratumAtPoint(x, y);
  if (stratum >= 0 && static_cast<size_t>(stratum) < labels.size()) {
    text += "   stratum " + labels[static_cast<size_t>(stratum)].text;
  }
  const double value = ValueAt(x, y);
  if (std::isfinite(value)) {
    text += "   relative density " + MapNumber::Text(value);
  } else if (stratum < 0) {
    text += "   outside the strata";
  }
  return text;
}

}  // namespace zrsimprp

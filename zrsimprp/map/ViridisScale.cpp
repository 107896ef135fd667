#include "zrsimprp/map/ViridisScale.h"

#include <algorithm>
#include <cmath>

namespace zrsimprp {

namespace {

// A degree-6 polynomial fit of viridis per channel (coefficients of t^0 … t^6); within a few levels
// in 255 of the tabulated map, which the eye does not tell apart.
constexpr double kRed[] = {0.2777273272234177, 0.1050930431085774, -0.3308618287255563, -4.634230498983486,
                           6.228269936347081,  4.776384997670288,  -5.435455855934631};
constexpr double kGreen[] = {0.005407344544966578, 1.404613529898575,  0.214847559468213, -5.799100973351585,
                             14.17993336680509,    -13.74514537774601, 4.645852612178535};
constexpr double kBlue[] = {0.3340998053353061, 1.384590162594685,  0.09509516302823659, -19.33244095627987,
                            56.69055260068105,  -65.35303263337234, 26.3124352495832};

uint8_t Channel(const double (&coefficients)[7], double t) {
  double value = 0;
  for (int i = 6; i >= 0; --i) value = value * t + coefficients[i];
  return static_cast<uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

}  // namespace

ViridisScale::Rgb ViridisScale::At(double t) {
  if (!(t >= 0)) t = 0;  // NaN too
  t = std::min(t, 1.0);
  return {Channel(kRed, t), Channel(kGreen, t), Channel(kBlue, t)};
}

}  // namespace zrsimprp

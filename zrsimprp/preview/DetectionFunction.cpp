#include "zrsimprp/preview/DetectionFunction.h"

#include <cmath>

#include "zrsimprp/host/Conversions.h"

namespace zrsimprp {

namespace {

constexpr double kPi = 3.14159265358979323846;

double Simpson(double a, double fa, double b, double fb, double fm) {
  return (b - a) / 6 * (fa + 4 * fm + fb);
}

// Adaptive Simpson: each half is refined until it agrees with the whole to within its share of the
// tolerance (Richardson's correction added), so the sharp shoulder of a steep hazard rate is
// followed where it is and the flat tail costs little.
template <class F>
double Adaptive(const F& f, double a, double fa, double b, double fb, double m, double fm, double whole,
                double tolerance, int depth) {
  const double lm = (a + m) / 2;
  const double rm = (m + b) / 2;
  const double flm = f(lm);
  const double frm = f(rm);
  const double left = Simpson(a, fa, m, fm, flm);
  const double right = Simpson(m, fm, b, fb, frm);
  const double difference = left + right - whole;
  // A value that is not a number can never meet the tolerance: it ends the refinement at once.
  if (depth <= 0 || !std::isfinite(difference) || std::fabs(difference) <= 15 * tolerance) {
    return left + right + difference / 15;
  }
  return Adaptive(f, a, fa, m, fm, lm, flm, left, tolerance / 2, depth - 1) +
         Adaptive(f, m, fm, b, fb, rm, frm, right, tolerance / 2, depth - 1);
}

}  // namespace

bool DetectionFunction::KeyOf(const std::string& text, Key& key) {
  if (TextEquals(text, "Half-Normal")) {
    key = Key::kHalfNormal;
    return true;
  }
  if (TextEquals(text, "Hazard Rate")) {
    key = Key::kHazardRate;
    return true;
  }
  return false;
}

double DetectionFunction::At(double x) const {
  if (key_ == Key::kHalfNormal) return std::exp(-x * x / (2 * sigma_ * sigma_));
  if (x <= 0) return 1.0;
  return 1.0 - std::exp(-std::pow(x / sigma_, -shape_));
}

double DetectionFunction::AverageDetectability(double w) const {
  if (!(w > 0)) return 1.0;
  if (key_ == Key::kHalfNormal) {
    return sigma_ * std::sqrt(kPi / 2) * std::erf(w / (sigma_ * std::sqrt(2.0))) / w;
  }
  return HazardIntegral(w) / w;
}

double DetectionFunction::HazardIntegral(double w) const {
  const auto g = [this](double x) { return At(x); };
  // Start from sixteen panels so that a shoulder narrower than the whole range is never stepped over.
  constexpr int kPanels = 16;
  double sum = 0;
  for (int i = 0; i < kPanels; ++i) {
    const double a = w * i / kPanels;
    const double b = w * (i + 1) / kPanels;
    const double m = (a + b) / 2;
    const double fa = g(a);
    const double fb = g(b);
    const double fm = g(m);
    sum += Adaptive(g, a, fa, b, fb, m, fm, Simpson(a, fa, b, fb, fm), 1e-13 * w / kPanels, 30);
  }
  return sum;
}

}  // namespace zrsimprp

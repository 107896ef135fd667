#pragma once

#include <string>

namespace zrsimprp {

// A detection function g(x): the probability of seeing an animal at perpendicular distance x from
// the line. Half-normal g(x) = exp(-x²/(2σ²)); hazard rate g(x) = 1 - exp(-(x/σ)^(-b)).
class DetectionFunction {
 public:
  enum class Key { kHalfNormal, kHazardRate };

  DetectionFunction(Key key, double sigma, double shape) : key_(key), sigma_(sigma), shape_(shape) {}

  // "Half-Normal" or "Hazard Rate" (case ignored); false for any other text.
  static bool KeyOf(const std::string& text, Key& key);

  Key key() const { return key_; }
  double sigma() const { return sigma_; }
  double shape() const { return shape_; }

  double At(double x) const;
  // The average detectability within the truncation distance w: (1/w) ∫₀ʷ g(x) dx. Closed form for the
  // half-normal (σ√(π/2)·erf(w/(σ√2))/w); adaptive Simpson integration for the hazard rate.
  double AverageDetectability(double w) const;

 private:
  double HazardIntegral(double w) const;

  Key key_;
  double sigma_;
  double shape_;
};

}  // namespace zrsimprp

#include "zrsimprp/preview/PortableRandom.h"

#include <cmath>

namespace zrsimprp {

namespace {

uint64_t SplitMix(uint64_t& x) {
  x += 0x9E3779B97F4A7C15ULL;
  uint64_t z = x;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

uint64_t RotateLeft(uint64_t x, int k) { return (x << k) | (x >> (64 - k)); }

// Below this mean a count is found by walking the cumulative probabilities; above it, by rejection.
constexpr double kSearchLimit = 10.0;

}  // namespace

PortableRandom::PortableRandom(uint64_t seed) {
  uint64_t x = seed;
  for (uint64_t& word : state_) word = SplitMix(x);
}

uint64_t PortableRandom::Next() {
  const uint64_t result = RotateLeft(state_[1] * 5, 7) * 9;
  const uint64_t t = state_[1] << 17;
  state_[2] ^= state_[0];
  state_[3] ^= state_[1];
  state_[1] ^= state_[2];
  state_[0] ^= state_[3];
  state_[2] ^= t;
  state_[3] = RotateLeft(state_[3], 45);
  return result;
}

double PortableRandom::Uniform() { return static_cast<double>(Next() >> 11) * 0x1.0p-53; }

uint64_t PortableRandom::Below(uint64_t n) {
  if (n <= 1) return 0;
  // Rejecting the top partial block of 2^64 keeps every value equally likely.
  const uint64_t limit = (0 - n) % n;
  for (;;) {
    const uint64_t r = Next();
    if (r >= limit) return r % n;
  }
}

uint64_t PortableRandom::Poisson(double mean) {
  if (!(mean > 0)) return 0;
  return mean < kSearchLimit ? PoissonBySearch(mean) : PoissonByRejection(mean);
}

uint64_t PortableRandom::PoissonBySearch(double mean) {
  const double u = Uniform();
  double p = std::exp(-mean);
  double cumulative = p;
  uint64_t k = 0;
  // The tail beyond a few hundred is below double precision for these means.
  while (u >= cumulative && k < 1000) {
    ++k;
    p *= mean / static_cast<double>(k);
    cumulative += p;
  }
  return k;
}

// Hörmann's transformed rejection with squeeze (PTRS, 1993): exact, about 1.2 uniforms per pair.
uint64_t PortableRandom::PoissonByRejection(double mean) {
  const double slam = std::sqrt(mean);
  const double loglam = std::log(mean);
  const double b = 0.931 + 2.53 * slam;
  const double a = -0.059 + 0.02483 * b;
  const double inv_alpha = 1.1239 + 1.1328 / (b - 3.4);
  const double vr = 0.9277 - 3.6224 / (b - 2);
  for (;;) {
    const double u = Uniform() - 0.5;
    const double v = Uniform();
    const double us = 0.5 - std::fabs(u);
    const double k = std::floor((2 * a / us + b) * u + mean + 0.43);
    if (us >= 0.07 && v <= vr) return static_cast<uint64_t>(k);
    if (k < 0 || (us < 0.013 && v > us)) continue;
    if (std::log(v) + std::log(inv_alpha) - std::log(a / (us * us) + b) <=
        -mean + k * loglam - std::lgamma(k + 1)) {
      return static_cast<uint64_t>(k);
    }
  }
}

}  // namespace zrsimprp

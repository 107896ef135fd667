#pragma once

#include <cstdint>

namespace zrsimprp {

// A seeded random stream that gives the same numbers on every compiler, library and machine:
// xoshiro256** seeded through SplitMix64, with its own uniform, range and Poisson draws. The
// standard library's distributions are not used on purpose: their output is left to each
// implementation, so a seed would draw a different survey elsewhere.
class PortableRandom {
 public:
  explicit PortableRandom(uint64_t seed);

  uint64_t Next();
  // Uniform on [0, 1), 53 random bits.
  double Uniform();
  // Uniform on [0, n) for n > 0, without modulo bias.
  uint64_t Below(uint64_t n);
  // A Poisson count of mean `mean` (0 for a mean that is not above 0).
  uint64_t Poisson(double mean);

 private:
  uint64_t PoissonBySearch(double mean);
  uint64_t PoissonByRejection(double mean);

  uint64_t state_[4];
};

}  // namespace zrsimprp

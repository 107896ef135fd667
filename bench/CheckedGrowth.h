#pragma once

#include <benchmark/benchmark.h>

namespace zrsimprp::bench {

// The settings of a size sweep whose growth must stay linear, applied before its Range(): sizes
// doubling, Google Benchmark's own complexity fit (which picks the best of O(1), O(lg N), O(N),
// O(N lg N), O(N^2) and O(N^3) by itself) and five repetitions of each size, so that
// scripts/complexity_exponent.py can fit the exponent to each size's least disturbed run.
inline void CheckedGrowth(benchmark::internal::Benchmark* sweep) {
  sweep->RangeMultiplier(2)->Complexity(benchmark::oAuto)->Repetitions(5)->Unit(benchmark::kMillisecond);
}

}  // namespace zrsimprp::bench

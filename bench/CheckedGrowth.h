#pragma once

#include <benchmark/benchmark.h>

namespace zrsimprp::bench {

// The settings of a size sweep whose growth must stay linear, applied before its Range(): sizes
// doubling, Google Benchmark's O(N) fit (its RMS says how well a straight line fits) and five
// repetitions of each size, so that scripts/complexity_exponent.py can fit the exponent to each
// size's least disturbed run. Its own automatic choice of model is not used: it minimises absolute
// error, so the largest size alone decides it and one disturbed run there reads as O(N lg N).
// Run with --benchmark_enable_random_interleaving=true (scripts/run-bench.sh does), so that a
// size's repetitions are spread over the run instead of sharing one busy moment of the machine.
inline void CheckedGrowth(benchmark::internal::Benchmark* sweep) {
  sweep->RangeMultiplier(2)->Complexity(benchmark::oN)->Repetitions(5)->Unit(benchmark::kMillisecond);
}

}  // namespace zrsimprp::bench

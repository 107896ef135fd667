#pragma once

#include <benchmark/benchmark.h>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

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

// For a sweep that builds a page afresh in every iteration, called first in each iteration: hands the
// memory that earlier iterations freed back to the system, outside the timing, so that every size pays
// for the fresh pages it touches, as the first opening of a project does.
// Without it the sizes were not measured alike. glibc keeps freed memory for reuse up to a trim
// threshold that follows the largest block freed so far, so with the sizes interleaved every size below
// the largest reused warm pages while the largest alone touched fresh ones: the Analyses page with
// 20,000 data filters took 104 ns an entry and with 40,000 150 ns, the difference all page faults.
inline void StartCold(benchmark::State& state) {
#if defined(__GLIBC__)
  state.PauseTiming();
  malloc_trim(0);
  state.ResumeTiming();
#else
  (void)state;
#endif
}

}  // namespace zrsimprp::bench

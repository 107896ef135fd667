#!/usr/bin/env bash
# Runs every benchmark program of a build and prints its table.
set -euo pipefail
build=$1
status=0
for program in "$build"/bench/bench_*; do
  [ -x "$program" ] || continue
  echo "== $(basename "$program")"
  QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$program" --benchmark_min_time=0.2 || status=1
  echo
done
exit $status

#!/usr/bin/env bash
# Runs every benchmark program of a build to the end, then measures the editor's start-up
# (scripts/bench-editor.sh), prints the fitted growth exponent of every size sweep
# (scripts/complexity_exponent.py) and the README's speed table from this one run
# (scripts/bench-table.py with the rows of bench/readme-table.json). The run's JSON files stay in
# BUILD_DIR/bench-results.
#   usage: scripts/run-bench.sh BUILD_DIR
# Repetitions run interleaved in random order, so that no size of a sweep meets a busy moment of the
# machine in all its runs.
# Fails when a program fails, a sweep grows as fast as N^1.5, loading or selecting a project grows
# faster than linearly (exponent above 1.05) or the table misses a figure.
set -euo pipefail
build=${1:?usage: scripts/run-bench.sh BUILD_DIR}
here=$(cd "$(dirname "$0")" && pwd)
results="$build/bench-results"
rm -rf "$results"
mkdir -p "$results"
status=0
ran=0
failed=()

for program in "$build"/bench/bench_*; do
  [ -x "$program" ] || continue
  name=$(basename "$program")
  echo "== $name"
  ran=$((ran + 1))
  if ! QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$program" --benchmark_min_time=0.2 --benchmark_enable_random_interleaving=true \
    --benchmark_out="$results/$name.json" --benchmark_out_format=json 2>&1 | tee "$results/$name.log"; then
    failed+=("$name")
    status=1
  fi
  echo
done

echo "== editor start-up"
if [ -x "$build/apps/zrsim-editor/zrsim-editor" ]; then
  if ! BENCH_SUMMARY="$results/measures.tsv" bash "$here/bench-editor.sh" "$build"; then
    failed+=("bench-editor.sh")
    status=1
  fi
else
  echo "not measured: the build has no editor (it needs Qt 6 Widgets)"
fi
echo

echo "== Growth of every size sweep (1 is linear; none may reach 1.5)"
if ! python3 "$here/complexity_exponent.py" --limit 1.5 "$results"/bench_*.json; then
  failed+=("complexity_exponent.py: a sweep grows as fast as N^1.5")
  status=1
fi
echo
echo "== Loading and selecting a project (at most 1.05)"
if ! python3 "$here/complexity_exponent.py" --limit 1.05 \
  --only 'BM_(InitializeBy|AnalysesBy|LoadGeoPackageBy|SelectSurveyBy|ComputeStrataBy)' "$results"/bench_*.json; then
  failed+=("complexity_exponent.py: loading or selecting grows faster than linearly")
  status=1
fi
echo

echo "== The README's speed table (CPU time unless the row says otherwise), from this run"
if ! python3 "$here/bench-table.py" "$here/../bench/readme-table.json" "$results"; then
  failed+=("bench-table.py: a figure is missing")
  status=1
fi
echo
echo "Benchmark programs run: $ran, failed: ${failed[*]:-none}"
exit $status

#!/usr/bin/env bash
# Runs every benchmark program of a build and prints its table, then measures the editor's start-up
# (scripts/bench-editor.sh), and ends with a short table of the headline figures.
#   usage: scripts/run-bench.sh BUILD_DIR
set -euo pipefail
build=${1:?usage: scripts/run-bench.sh BUILD_DIR}
here=$(cd "$(dirname "$0")" && pwd)
logs=$(mktemp -d)
trap 'rm -rf "$logs"' EXIT
summary="$logs/summary.tsv"
: >"$summary"
status=0
ran=0
failed=()

for program in "$build"/bench/bench_*; do
  [ -x "$program" ] || continue
  name=$(basename "$program")
  echo "== $name"
  ran=$((ran + 1))
  if ! QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$program" --benchmark_min_time=0.2 2>&1 |
    tee "$logs/$name.log"; then
    failed+=("$name")
    status=1
  fi
  echo
done

echo "== editor start-up"
if [ -x "$build/apps/zrsim-editor/zrsim-editor" ]; then
  if ! BENCH_SUMMARY="$summary" bash "$here/bench-editor.sh" "$build"; then
    failed+=("bench-editor.sh")
    status=1
  fi
else
  echo "not measured: the build has no editor (it needs Qt 6 Widgets)"
fi
echo

# What follows `pattern` on the last line of a program's log that matches it; "not measured" when none.
figure() {
  local log="$logs/$1.log" pattern=$2
  local line=""
  [ -f "$log" ] && line=$(grep -E "$pattern" "$log" | tail -n 1 || true)
  if [ -n "$line" ]; then
    echo "$line" | sed -E "s|.*$pattern||"
  else
    echo "not measured"
  fi
}

echo "== Headline figures"
{
  printf 'Qt widget / floor, 1,000 strata, every tab\t%s\n' "$(figure bench_qt_widget_floor 'widget/floor: ')"
  printf 'Definition load+write growth 100 -> 10,000 strata\t%s\n' \
    "$(figure bench_e2e_headless 'process time\): .*growth exponent 100 -> 10000 strata: ')"
  cat "$summary"
  printf 'Benchmark programs run\t%d, failed: %s\n' "$ran" "${failed[*]:-none}"
} | awk -F '\t' '{ printf "  %-52s %s\n", $1, $2 }'
exit $status

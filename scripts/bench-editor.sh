#!/usr/bin/env bash
# The editor's start-up: whole process from start to the window's first frame, and peak memory, off
# screen, on the sample project and on a project of 1,000 strata (written by zrsim-make-sample
# --strata). Each project is opened RUNS times (default 7); the table shows the median start-up and
# the median of the runs' peak resident memory.
#   usage: scripts/bench-editor.sh BUILD_DIR [RUNS]
# With BENCH_SUMMARY=FILE set, the table's rows are also appended to FILE as "name<TAB>value" lines.
set -euo pipefail

build=${1:?usage: scripts/bench-editor.sh BUILD_DIR [RUNS]}
runs=${2:-${RUNS:-7}}
editor="$build/apps/zrsim-editor/zrsim-editor"
maker="$build/projectdb/zrsim-make-sample"
strata=1000
strata_name="1,000 strata"

for program in "$editor" "$maker"; do
  if [ ! -x "$program" ]; then
    echo "bench-editor: $program is missing; build the editor and zrsim-make-sample first" >&2
    exit 1
  fi
done
if ! [[ "$runs" =~ ^[1-9][0-9]*$ ]]; then
  echo "bench-editor: RUNS must be a whole number from 1 up, not '$runs'" >&2
  exit 1
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

sample="$build/samples/sample.gpkg"
if [ ! -f "$sample" ]; then
  sample="$work/sample.gpkg"
  "$maker" "$sample"
fi
"$maker" --strata "$strata" "$work/strata-$strata.gpkg"

# Peak memory of a child, in KiB: GNU time where it is installed, else the kernel's own count through
# Python's getrusage, else nothing.
if [ -x /usr/bin/time ]; then
  memory_tool=time
elif command -v python3 >/dev/null 2>&1; then
  memory_tool=python
else
  memory_tool=none
fi

# Runs the editor once: prints "MILLISECONDS KIB" (KIB is "-" when unknown).
run_once() {
  local project=$1 out="$work/out" err="$work/err" usage="$work/usage"
  rm -f "$usage"
  local status=0
  case $memory_tool in
    time)
      QT_QPA_PLATFORM=offscreen /usr/bin/time -v -o "$usage" \
        "$editor" --project "$project" --exit-after-first-frame >"$out" 2>"$err" || status=$?
      ;;
    python)
      QT_QPA_PLATFORM=offscreen python3 -c '
import resource, subprocess, sys
status = subprocess.call(sys.argv[2:])
with open(sys.argv[1], "w") as usage:
    usage.write("Maximum resident set size (kbytes): %d\n" % resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)
sys.exit(status)' "$usage" "$editor" --project "$project" --exit-after-first-frame >"$out" 2>"$err" || status=$?
      ;;
    *)
      QT_QPA_PLATFORM=offscreen "$editor" --project "$project" --exit-after-first-frame >"$out" 2>"$err" ||
        status=$?
      ;;
  esac
  local milliseconds
  milliseconds=$(tr -d '[:space:]' <"$out")
  if [ "$status" -ne 0 ] || ! [[ "$milliseconds" =~ ^[0-9]+$ ]]; then
    echo "bench-editor: the editor failed on $project (status $status):" >&2
    cat "$out" "$err" >&2
    return 1
  fi
  local kib="-"
  if [ -f "$usage" ]; then
    kib=$(sed -n 's/.*Maximum resident set size (kbytes): *\([0-9]*\).*/\1/p' "$usage")
    [ -n "$kib" ] || kib="-"
  fi
  echo "$milliseconds $kib"
}

median() { sort -n | awk '{ v[NR] = $1 } END { if (NR == 0) print "-"; else if (NR % 2) print v[(NR + 1) / 2]; else print (v[NR / 2] + v[NR / 2 + 1]) / 2 }'; }

measure() {
  local name=$1 project=$2 times="$work/times" kibs="$work/kibs"
  : >"$times"
  : >"$kibs"
  # One run first, not counted: it brings the programs and fonts into the file cache.
  run_once "$project" >/dev/null
  for _ in $(seq "$runs"); do
    read -r milliseconds kib < <(run_once "$project")
    echo "$milliseconds" >>"$times"
    [ "$kib" = "-" ] || echo "$kib" >>"$kibs"
  done
  local start_ms peak
  start_ms=$(median <"$times")
  peak=$(median <"$kibs")
  [ "$peak" = "-" ] || peak=$(awk -v k="$peak" 'BEGIN { printf "%.1f", k / 1024 }')
  printf '%-22s %28s %14s\n' "$name" "$start_ms" "$peak"
  if [ -n "${BENCH_SUMMARY:-}" ]; then
    printf 'editor first frame, %s (ms)\t%s\n' "$name" "$start_ms" >>"$BENCH_SUMMARY"
    printf 'editor peak RSS, %s (MiB)\t%s\n' "$name" "$peak" >>"$BENCH_SUMMARY"
  fi
}

echo "Editor start-up, off screen, $runs runs per project (peak memory by $memory_tool)"
printf '%-22s %28s %14s\n' "project" "start to first frame, ms" "peak RSS, MiB"
measure "sample (3 strata)" "$sample"
measure "$strata_name" "$work/strata-$strata.gpkg"

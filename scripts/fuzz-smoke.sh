#!/usr/bin/env bash
# Runs every fuzz target found in the fuzz build for the given number of seconds each.
set -euo pipefail
build=$1
seconds=$2
found=0
for target in "$build"/fuzz/*_fuzz; do
  [ -x "$target" ] || continue
  found=1
  name=$(basename "$target")
  corpus="$build/fuzz/corpus-$name"
  mkdir -p "$corpus"
  seeds="$(dirname "$0")/../fuzz/seeds/$name"
  extra=()
  [ -d "$seeds" ] && extra+=("$seeds")
  echo "== $name for ${seconds}s"
  "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 "$corpus" "${extra[@]}"
done
if [ "$found" -eq 0 ]; then
  echo "no fuzz targets were built" >&2
  exit 1
fi

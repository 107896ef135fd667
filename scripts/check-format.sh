#!/usr/bin/env bash
# Fails when a C++ source of the repository is not as clang-format 14 writes it with the repository's
# .clang-format; `scripts/check-format.sh --fix` rewrites them instead.
set -euo pipefail
cd "$(dirname "$0")/.."
formatter=$(command -v clang-format-14 || true)
if [ -z "$formatter" ]; then
  echo "clang-format-14 is missing: run scripts/install-deps.sh" >&2
  exit 1
fi
mapfile -t sources < <(git ls-files '*.h' '*.cpp' | grep -v '^tests/data/')
if [ "${1:-}" = "--fix" ]; then
  "$formatter" -i "${sources[@]}"
  exit 0
fi
if ! "$formatter" --dry-run --Werror "${sources[@]}"; then
  echo "Some sources are not formatted; scripts/check-format.sh --fix formats them." >&2
  exit 1
fi
echo "Formatting: ${#sources[@]} sources as clang-format 14 writes them."

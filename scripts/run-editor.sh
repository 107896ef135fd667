#!/usr/bin/env bash
# Starts the properties form on the sample project when there is a display; otherwise draws every
# tab of the form into PNG files and says where they are.
#   usage: scripts/run-editor.sh BUILD_DIR SCREENSHOT_DIR
set -euo pipefail

build_dir=${1:-build}
screenshot_dir=${2:-out/screenshots}
editor="$build_dir/apps/zrsim-editor/zrsim-editor"

if [ ! -x "$editor" ]; then
  echo "The editor was not built: $editor is missing." >&2
  echo "It needs Qt 6 Widgets (make deps) and a configured build with ZRSIMPRP_BUILD_WIDGETS=ON." >&2
  exit 1
fi

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  echo "Starting the simulation properties form on the sample project..."
  exec "$editor"
fi

mkdir -p "$screenshot_dir"
echo "No display found: drawing every tab of the form into $screenshot_dir"
QT_QPA_PLATFORM=offscreen "$editor" --screenshot "$screenshot_dir"
echo
echo "Screenshots of the form (one per tab) are in: $(cd "$screenshot_dir" && pwd)"

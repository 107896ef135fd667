#!/bin/bash
# Starts the editor on a virtual display with the accessibility bus on, then walks its tree.
# Usage: walk-editor.sh EDITOR PROJECT WALKER
set -u
editor=$1
project=$2
walker=$3
python=/usr/bin/python3
for tool in xvfb-run dbus-run-session /usr/libexec/at-spi-bus-launcher; do
  if ! command -v "$tool" > /dev/null 2>&1; then
    echo "skipped: $tool is not installed"
    exit 77
  fi
done
if ! "$python" -c 'import pyatspi' > /dev/null 2>&1; then
  echo "skipped: the Python AT-SPI bindings (python3-pyatspi) are not installed"
  exit 77
fi
if [ ! -f "$project" ]; then
  echo "skipped: no sample project at $project"
  exit 77
fi
export EDITOR_BIN="$editor" PROJECT_FILE="$project" WALKER="$walker" PYTHON="$python"
exec xvfb-run -a dbus-run-session -- bash -c '
  /usr/libexec/at-spi-bus-launcher --launch-immediately > /dev/null 2>&1 &
  bus=$!
  # A program started before the accessibility bus answers never registers on it: wait for the bus.
  for _ in $(seq 1 120); do
    dbus-send --session --dest=org.a11y.Bus --print-reply /org/a11y/bus org.a11y.Bus.GetAddress \
      > /dev/null 2>&1 && break
    sleep 0.5
  done
  # On a loaded machine the first start can still miss the bus: a second start is allowed once.
  for attempt in 1 2; do
    QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_ACCESSIBILITY=1 QT_QPA_PLATFORM=xcb \
      "$EDITOR_BIN" --project "$PROJECT_FILE" > /dev/null 2>&1 &
    app=$!
    "$PYTHON" "$WALKER" zrsim-editor
    status=$?
    kill $app 2> /dev/null
    wait $app 2> /dev/null
    [ $status -ne 2 ] && break
  done
  kill $bus 2> /dev/null
  exit $status'

#!/usr/bin/env bash
# Installs the Debian 12 packages the build needs, only those that are missing.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-charts-dev libqt6opengl6-dev qt6-tools-dev
  libsqlite3-dev libgdal-dev libgtest-dev libgmock-dev libbenchmark-dev
  clang-14 libclang-rt-14-dev clang-format-14
  libmuparser-dev
  fonts-dejavu-core xvfb xauth xdotool
  at-spi2-core python3-pyatspi dbus-x11
  gdal-bin python3-gdal sqlite3 dpkg-dev
  python3
)

missing=()
for package in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$package")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then
    sudo_cmd=(sudo)
  else
    echo "These packages are missing and this user is not root: ${missing[*]}" >&2
    exit 1
  fi
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"

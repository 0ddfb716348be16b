#!/usr/bin/env bash
# Installs the Debian packages the build, tests and screenshots need, and only
# those that are missing, so a machine that has everything needs no network.
# desktop-file-utils and appstream validate the installed launcher and
# software-centre record in the tests; poppler-utils reads printed reports back.
set -euo pipefail

packages=(
  g++ cmake ninja-build ccache
  qt6-base-dev qt6-charts-dev libqt6opengl6-dev libgl-dev qt6-qpa-plugins
  libsqlite3-dev libgtest-dev libgmock-dev libbenchmark-dev
  wamerican xvfb
  desktop-file-utils appstream poppler-utils
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg -s "$p" >/dev/null 2>&1; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing: ${missing[*]}"
sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  sudo_cmd=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"

#!/usr/bin/env bash
# Installs the Debian 12 packages that Vendrix needs to build, test and run.
# Safe to run again: apt-get skips what is already installed.
set -euo pipefail

PACKAGES=(
  build-essential cmake ninja-build pkg-config git clang-format
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite qt6-tools-dev-tools
  qt6-serialport-dev qt6-charts-dev qt6-svg-dev
  libqt6opengl6-dev libgl-dev libxkbcommon-dev
  libsqlite3-dev sqlite3 libssl-dev libqrcodegencpp-dev
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth fonts-dejavu-core zbar-tools poppler-utils python3
)

SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ "${#missing[@]}" -eq 0 ]; then
  echo "Dependencias ya instaladas."
  exit 0
fi

echo "Instalando: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -q
$SUDO apt-get install -y -q --no-install-recommends "${missing[@]}"

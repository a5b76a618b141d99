#!/usr/bin/env bash
# Installs every Debian package SW needs to build, test and run; only what is
# missing, so running it again costs a moment and changes nothing.
set -euo pipefail

PACKAGES=(
  build-essential cmake ninja-build pkg-config git
  clang libclang-rt-14-dev
  libgmp-dev libecm-dev libsqlite3-dev libcli11-dev libfftw3-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  qt6-base-dev libqt6printsupport6 qt6-qpa-plugins libgl-dev
  qt6-translations-l10n
  xvfb xauth
  pari-gp
  libpq-dev postgresql
  libopenmpi-dev openmpi-bin
)

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if ((${#missing[@]} == 0)); then
  echo "setup: all packages present"
  exit 0
fi

SUDO=""
if [[ $(id -u) -ne 0 ]]; then SUDO="sudo"; fi
echo "setup: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"

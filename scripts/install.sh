#!/usr/bin/env bash
# Installs what petrodb needs to build and test, only what is missing.
set -euo pipefail
packages=(g++ cmake ninja-build pkg-config ccache libsqlite3-dev sqlite3 libpq-dev
          googletest libgtest-dev libgmock-dev libbenchmark-dev postgresql locales
          libsegyio-dev librsvg2-bin libxml2-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
if [ ${#missing[@]} -gt 0 ]; then
  echo "installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
# A comma-decimal locale, so the tests can show that numbers in statements do
# not follow the host's locale. Optional: without it that one test skips.
if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
  $SUDO localedef -i de_DE -f UTF-8 de_DE.UTF-8 2>/dev/null || true
fi

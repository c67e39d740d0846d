#!/usr/bin/env bash
# Installs what petrodb needs to build and test, only what is missing.
set -euo pipefail
packages=(g++ cmake ninja-build pkg-config ccache libsqlite3-dev sqlite3 libpq-dev
          googletest libgtest-dev libgmock-dev libbenchmark-dev postgresql)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi
echo "installing: ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"

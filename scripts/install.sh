#!/usr/bin/env bash
# Installs what petrodb needs to build and test, only what is missing (Debian or
# Ubuntu, with apt-get). As root it installs directly; otherwise through sudo;
# with neither it lists what to install and stops.
set -euo pipefail
packages=(g++ cmake ninja-build pkg-config ccache libsqlite3-dev sqlite3 libpq-dev
          googletest libgtest-dev libgmock-dev libbenchmark-dev postgresql locales
          libsegyio-dev librsvg2-bin libxml2-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done

# How to run a command as root: directly, through sudo, or not at all.
as_root=()
can_root=true
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then as_root=(sudo); else can_root=false; fi
fi

if [ ${#missing[@]} -gt 0 ]; then
  if ! $can_root || ! command -v apt-get >/dev/null 2>&1; then
    {
      echo "install.sh: these packages are missing: ${missing[*]}"
      if ! command -v apt-get >/dev/null 2>&1; then
        echo "This machine has no apt-get: install their equivalents with its package manager."
      else
        echo "Installing them needs root, and this user is not root and has no sudo. As root, run:"
        echo "  apt-get update && apt-get install -y --no-install-recommends ${missing[*]}"
      fi
      echo "then run this script again."
    } >&2
    exit 1
  fi
  echo "installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
# A comma-decimal locale, so the tests can show that numbers in statements do
# not follow the host's locale. Optional: without it that one test skips.
if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
  if $can_root; then
    "${as_root[@]}" localedef -i de_DE -f UTF-8 de_DE.UTF-8 2>/dev/null || true
  else
    echo "install.sh: no de_DE.UTF-8 locale (one test will skip); as root: localedef -i de_DE -f UTF-8 de_DE.UTF-8" >&2
  fi
fi

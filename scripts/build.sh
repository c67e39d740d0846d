#!/usr/bin/env bash
# Configures (once) and builds petrodb in build/: everything, or the targets named.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc 2>/dev/null || echo 2)
if [ ! -f build/build.ninja ]; then
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
fi
cmake --build build -j "$jobs" ${1:+--target "$@"}

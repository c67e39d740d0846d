#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install.sh
bash scripts/build.sh
jobs=$(nproc 2>/dev/null || echo 2)
ctest --test-dir build --output-on-failure -j "$jobs" "$@"

#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: each suite on SQLite
# project files and again on a throwaway PostgreSQL server (started and stopped
# by the test run itself), and the example host built against an installation
# of the build in a temporary prefix (the test "consumer").
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install.sh
bash scripts/build.sh
# The cluster is stopped even when the run is interrupted.
trap 'bash scripts/pg-cluster.sh stop-from build/pg-cluster.dir' EXIT
jobs=$(nproc 2>/dev/null || echo 2)
ctest --test-dir build --output-on-failure -j "$jobs" "$@"

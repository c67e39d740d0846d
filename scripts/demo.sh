#!/usr/bin/env bash
# Installs what is missing, builds the host and the library (nothing else), and
# runs `petrodb demo` on a new local project.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install.sh
bash scripts/build.sh petrodb_cli petrodb
./build/bin/petrodb demo "$@"

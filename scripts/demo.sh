#!/usr/bin/env bash
# Installs what is missing, builds, and runs `petrodb demo` on a new local project.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install.sh
bash scripts/build.sh
./build/bin/petrodb demo "$@"

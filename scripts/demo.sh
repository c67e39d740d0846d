#!/usr/bin/env bash
# Installs what is missing, builds, and runs `petrodb demo` on a new local project.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install.sh
bash scripts/build.sh petrodb_cli  # the host, the library and the template project only
./build/bin/petrodb demo "$@"

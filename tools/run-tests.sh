#!/usr/bin/env bash
# Installs what is missing, builds with the ci preset and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake --workflow --preset ci

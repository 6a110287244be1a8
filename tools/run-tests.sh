#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test twice: optimised
# (ci preset) and under AddressSanitizer and UBSan (asan preset).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake --workflow --preset ci
cmake --workflow --preset asan

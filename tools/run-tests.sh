#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test: optimised (ci
# preset), under AddressSanitizer and UBSan (asan preset), and the integration
# label against a MariaDB server that tools/integration.sh starts and stops.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake --workflow --preset ci
cmake --workflow --preset asan
CELDORA_SKIP_BUILD=1 bash tools/integration.sh build/ci

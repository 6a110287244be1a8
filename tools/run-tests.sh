#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test: optimised (ci
# preset), under AddressSanitizer and UBSan (asan preset), the integration
# label against a MariaDB server that tools/integration.sh starts and stops,
# and a short run of the monthly report's fuzz targets (tools/fuzz.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake --workflow --preset ci
cmake --workflow --preset asan
CELDORA_SKIP_BUILD=1 bash tools/integration.sh build/ci
bash tools/fuzz.sh

#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test: optimised (ci
# preset, the unit label), the Qt windows of the gui label on Qt's offscreen
# platform (once, in the ci build only: under the sanitizers Qt's own
# allocations would be reported), under AddressSanitizer and UBSan (asan
# preset), the integration label against a MariaDB server that
# tools/integration.sh starts and stops, and a short run of the monthly
# report's fuzz targets (tools/fuzz.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake --workflow --preset ci
QT_QPA_PLATFORM=offscreen ctest --test-dir build/ci -L gui --output-on-failure
cmake --workflow --preset asan
CELDORA_SKIP_BUILD=1 bash tools/integration.sh build/ci
bash tools/fuzz.sh

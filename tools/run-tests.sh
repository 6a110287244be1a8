#!/usr/bin/env bash
# Installs what is missing, then builds and runs every test: optimised (ci
# preset), under AddressSanitizer and UBSan (asan preset), the integration
# label against a MariaDB server that tools/integration.sh starts and stops,
# and a short run of the monthly report's fuzz targets (tools/fuzz.sh).
# The presets run the unit label; the Qt windows of the gui label run on Qt's
# offscreen platform, no display needed, after each of the two builds.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake --workflow --preset ci
QT_QPA_PLATFORM=offscreen ctest --test-dir build/ci -L gui --output-on-failure
cmake --workflow --preset asan
QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --test-dir build/asan -L gui --output-on-failure
CELDORA_SKIP_BUILD=1 bash tools/integration.sh build/ci
bash tools/fuzz.sh
bash tools/test-package.sh build/ci

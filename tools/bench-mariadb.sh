#!/usr/bin/env bash
# Runs bench_informe with its MariaDB comparison against a throwaway server.
#
#   sudo bash tools/bench-mariadb.sh [BUILD_DIR] [LINEAS...]   (default: build/ci)
#
# Builds bench_informe, starts a private server with tools/servidor-mariadb.sh
# (stopped and removed on every way out) and runs the benchmark with
# CELDORA_BENCH_MARIADB set to an address allowed to create the databases it
# works in. Exits with the benchmark's code.
set -euo pipefail

log() { echo "bench-mariadb: $*"; }
fail() { echo "bench-mariadb: $*" >&2; exit 1; }

source "$(dirname "${BASH_SOURCE[0]}")/comun.sh"
build_dir="$(carpeta_build "${1:-build/ci}")"
shift || true
cd "$repo_root"

[ "$(id -u)" -eq 0 ] || fail "run as root: the script installs packages and runs the server as root"
[ -f "$build_dir/build.ninja" ] || [ -f "$build_dir/Makefile" ] ||
  fail "$build_dir is not a configured build folder (cmake --preset ci, or pass the folder)"

log "building bench_informe in $build_dir"
cmake --build "$build_dir" --target bench_informe

# A month's report is stored in one row, and a row travels in one packet:
# the server's default limit of 16 MB is some 190,000 lines. The benchmark's
# server takes the largest one, for runs of a million lines.
export CELDORA_MARIADB_OPCIONES="${CELDORA_MARIADB_OPCIONES:---max-allowed-packet=1G}"
source "$(dirname "${BASH_SOURCE[0]}")/servidor-mariadb.sh"

export CELDORA_BENCH_MARIADB="$CELDORA_TEST_MARIADB_ADMIN"
set +e
"$build_dir/bench/bench_informe" "$@"
bench_rc=$?
set -e
exit "$bench_rc"

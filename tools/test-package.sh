#!/usr/bin/env bash
# Checks that Celdora is usable from outside its tree, as installed files and
# as Debian packages:
#
#   sudo bash tools/test-package.sh [BUILD_DIR]      (default: build/ci)
#
#  1. installs the build to a temporary prefix;
#  2. checks that no installed header reaches a header of SQLite, MariaDB,
#     ODBC, OpenSSL or Qt, directly or through another installed header,
#     except those of the platform library that wraps it (and that the check
#     catches one planted where it does not belong);
#  3. builds examples/consumidor against the prefix with find_package(Celdora)
#     and with pkg-config, runs both on a new SQLite company file, and
#     configures it once more with Celdora's tree through add_subdirectory;
#  4. makes the .deb packages with CPack and runs lintian on them (errors
#     fail, warnings are printed);
#  5. installs them with dpkg -i (apt-get -f install when dpkg asks for
#     dependencies), runs `celdora demo` from the installed package in a
#     temporary folder, builds the consumer against the installed package,
#     and removes the packages again.
#
# The build folder is reused as it is (configured with the ci preset when it
# is not configured yet); only what the install rules copy is built. Every
# file the script makes lives in one temporary folder, removed on every way
# out together with the packages it installed.
set -euo pipefail

log() { echo "test-package: $*"; }
fail() { echo "test-package: FAILED: $*" >&2; exit 1; }

repo_root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build_arg="${1:-build/ci}"
if [ -d "$build_arg" ]; then
  build_dir="$(cd "$build_arg" && pwd)"
else
  build_dir="$repo_root/$build_arg"
fi
cd "$repo_root"

run_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null 2>&1 || fail "run as root (or with sudo): the packages are installed with dpkg"
  run_root=(sudo)
fi
for p in celdora libceldora-dev; do
  if dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "ok installed"; then
    fail "$p is installed already; remove it first (dpkg --purge $p), this script installs and removes its own"
  fi
done

# as_root_dpkg COMMAND...: runs dpkg or apt-get as root. Either refuses to
# start while another holds the package database's lock (an installation
# running beside this one); then it is tried again until the lock is free,
# for five minutes at most. Any other failure is returned at once.
as_root_dpkg() {
  local deadline=$((SECONDS + 300)) output rc
  while :; do
    rc=0
    output="$("${run_root[@]}" "$@" 2>&1)" || rc=$?
    if [ $rc -ne 0 ] && grep -q 'lock' <<<"$output" && [ $SECONDS -lt $deadline ]; then
      sleep 2
      continue
    fi
    [ -z "$output" ] || printf '%s\n' "$output"
    return $rc
  done
}

work="$(mktemp -d "${TMPDIR:-/tmp}/celdora-package.XXXXXX")"
installed_packages=()
cleanup() {
  local rc=$?
  if [ ${#installed_packages[@]} -gt 0 ]; then
    log "removing ${installed_packages[*]}"
    as_root_dpkg dpkg --purge "${installed_packages[@]}" >/dev/null || rc=1
  fi
  rm -rf "$work"
  exit $rc
}
trap cleanup EXIT
trap 'exit 130' INT TERM

if command -v ccache >/dev/null 2>&1; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
  consumer_cxx="ccache g++"
else
  consumer_cxx="g++"
fi

# --- 1. the build and the temporary prefix ---------------------------------------

if [ ! -f "$build_dir/CMakeCache.txt" ]; then
  [ "$build_arg" = build/ci ] || fail "$build_dir is not a configured build folder"
  cmake --preset ci >/dev/null
fi
cmake --build "$build_dir" --target installables
prefix="$work/prefix"
cmake --install "$build_dir" --prefix "$prefix" >/dev/null
log "installed to a temporary prefix"

for f in bin/celdora share/celdora/schema/sqlite.sql share/celdora/schema/mariadb.sql \
         share/celdora/schema/sqlserver.sql share/celdora/schema/access.sql \
         share/celdora/schema/demo.sql share/doc/celdora/README.md \
         include/celdora/core/cAcction.h include/celdora/host/Ado.h \
         lib/cmake/Celdora/CeldoraConfig.cmake lib/cmake/Celdora/CeldoraConfigVersion.cmake \
         lib/pkgconfig/celdora.pc; do
  [ -e "$prefix/$f" ] || fail "the install lacks $f"
done

# --- 2. vendor headers -------------------------------------------------------------

# The platform folder allowed to include a header: its wrapping library's.
vendor_owner() {
  case "$1" in
    sqlite3.h|sqlite3ext.h) echo platform/sqlite ;;
    mysql.h|mysql/*|mariadb/*|errmsg.h|mysqld_error.h|ma_*.h) echo platform/mariadb ;;
    sql.h|sqlext.h|sqltypes.h|sqlucode.h|sqlspi.h|odbcinst.h|odbcinstext.h) echo platform/odbc ;;
    openssl/*) echo platform/crypto ;;
    Q[A-Z]*|Qt*/*|qt*.h) echo platform/qt ;;
  esac
}

# check_vendor_headers INCLUDE_CELDORA: prints every header that reaches a
# vendor header outside its wrapping library, and fails if there is one.
check_vendor_headers() {
  local root="$1" header name target owner bad=0
  declare -A direct=()
  while IFS= read -r header; do
    name="${header#"$root"/}"
    direct["$name"]="$(sed -n 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*[<"]\([^>"]*\)[>"].*/\1/p' "$header")"
  done < <(find "$root" -name '*.h' | sort)
  for name in "${!direct[@]}"; do
    # Every header reached from this one, through the installed headers.
    declare -A seen=(["$name"]=1)
    local queue=("$name") current
    while [ ${#queue[@]} -gt 0 ]; do
      current="${queue[0]}"
      queue=("${queue[@]:1}")
      for target in ${direct[$current]}; do
        target="${target#celdora/}"
        if [ -n "${direct[$target]+x}" ]; then
          if [ -z "${seen[$target]+x}" ]; then seen["$target"]=1; queue+=("$target"); fi
          continue
        fi
        owner="$(vendor_owner "$target")"
        if [ -n "$owner" ] && [ "${name%/*}" != "$owner" ]; then
          echo "  $name reaches <$target> (through $current); only $owner may" >&2
          bad=1
        fi
      done
    done
    unset seen
  done
  return $bad
}

check_vendor_headers "$prefix/include/celdora" || fail "installed headers reach vendor headers"
# The check must catch a header that reaches SQLite from the system's folders.
planted="$work/planted"
cp -r "$prefix/include/celdora" "$planted"
printf '#pragma once\n#include <sqlite3.h>\n' >"$planted/platform/sqlite/Interno.h"
printf '#pragma once\n#include "platform/sqlite/Interno.h"\n' >>"$planted/core/cAcction.h"
if check_vendor_headers "$planted" 2>/dev/null; then
  fail "the vendor header check missed core/cAcction.h reaching <sqlite3.h>"
fi
log "no installed header reaches a vendor header outside its platform library"

# --- 3. the consumer against the prefix --------------------------------------------

consumer_src="$repo_root/examples/consumidor"

# run_consumer PROGRAM: runs it on a new company file and checks its answers.
run_consumer() {
  local program="$1" db out
  db="$(mktemp -u "$work/empresa.XXXXXX.db")"
  out="$("$program" "$db")" || fail "$program exited with $?"
  [ -f "$db" ] || fail "$program did not create $db"
  for expected in "isSet: -1" "ExisteCFD(1): -1" "PermitirAcceso(NVCA316x, grupos 3 y 7): -1"; do
    grep -qxF "$expected" <<<"$out" || fail "$program did not print '$expected'; it printed:
$out"
  done
  # A second run binds the existing file instead of creating it.
  "$program" "$db" | grep -q "empresa de demostración creada" &&
    fail "$program created the company again over an existing file"
  return 0
}

cmake -S "$consumer_src" -B "$work/consumidor-cmake" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/consumidor-cmake" >/dev/null
run_consumer "$work/consumidor-cmake/consumidor"
log "consumer built with find_package(Celdora) and run"

mkdir -p "$work/consumidor-pc"
PKG_CONFIG_PATH="$prefix/lib/pkgconfig" make -s -C "$work/consumidor-pc" -f "$consumer_src/Makefile" \
  CXX="$consumer_cxx" >/dev/null
run_consumer "$work/consumidor-pc/consumidor"
log "consumer built with pkg-config and run"

# The same names in a parent project that builds Celdora's tree itself.
cmake -S "$consumer_src" -B "$work/consumidor-subdir" -G Ninja \
  -DCONSUMIDOR_CELDORA_FUENTES="$repo_root" >/dev/null
log "consumer configured with Celdora through add_subdirectory"

# --- 4. the Debian packages ------------------------------------------------------------

cpack --config "$build_dir/CPackConfig.cmake" -B "$work/deb" >/dev/null
mapfile -t debs < <(find "$work/deb" -maxdepth 1 -name '*.deb' | sort)
[ ${#debs[@]} -eq 2 ] || fail "expected two packages, CPack made: ${debs[*]:-none}"
for deb in "${debs[@]}"; do
  log "$(basename "$deb"): $(dpkg-deb -f "$deb" Depends)"
done

# Lintian refuses nothing for running as root here; its own warning about
# that is not about the packages.
lintian_out="$(lintian --fail-on error "${debs[@]}" 2>&1)" || {
  echo "$lintian_out" >&2
  fail "lintian reports errors"
}
lintian_out="$(grep -v 'running with root privileges' <<<"$lintian_out" || true)"
if [ -n "$lintian_out" ]; then
  log "lintian (no errors):"
  sed 's/^/  /' <<<"$lintian_out"
else
  log "lintian: clean"
fi

# --- 5. installed on this machine ---------------------------------------------------------

export DEBIAN_FRONTEND=noninteractive
installed_packages=(celdora libceldora-dev)
if ! as_root_dpkg dpkg -i "${debs[@]}"; then
  log "dpkg asks for dependencies: apt-get -f install"
  as_root_dpkg apt-get -f install -y -q
fi
for p in "${installed_packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" | grep -q "install ok installed" || fail "$p is not installed"
done

demo="$work/demo"
mkdir -p "$demo"
(cd "$demo" && celdora demo) || fail "celdora demo failed"
[ "$(command -v celdora)" = /usr/bin/celdora ] || fail "celdora is not the installed one"
[ -s "$demo/celdora-demo.db" ] || fail "celdora demo did not create celdora-demo.db"
(cd "$demo" && celdora call ExisteCFD 1) | grep -qF "Verdadero (-1)" ||
  fail "celdora call ExisteCFD 1 on the demo did not answer Verdadero (-1)"
log "celdora demo ran from the installed package"

cmake -S "$consumer_src" -B "$work/consumidor-deb" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$work/consumidor-deb" >/dev/null
run_consumer "$work/consumidor-deb/consumidor"
log "consumer built against the installed package and run"

as_root_dpkg dpkg --purge "${installed_packages[@]}" >/dev/null
installed_packages=()
[ ! -e /usr/bin/celdora ] || fail "/usr/bin/celdora is still there after removing the package"
log "packages removed; all checks passed"

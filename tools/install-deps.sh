#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, only those that
# are missing. Run as root (or with sudo available).
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  libgtest-dev libgmock-dev
  libsqlite3-dev sqlite3
  libmariadb-dev
  unixodbc-dev libsqliteodbc
  libssl-dev
  qt6-base-dev qt6-translations-l10n xvfb xauth fonts-dejavu-core
  clang-14 libclang-rt-14-dev
  dpkg-dev make file lintian
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: everything is installed"
  exit 0
fi

echo "install-deps: installing ${missing[*]}"
run_root=()
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then run_root=(sudo); else
    echo "install-deps: run as root to install: ${missing[*]}" >&2; exit 1
  fi
fi
export DEBIAN_FRONTEND=noninteractive
"${run_root[@]}" apt-get update -q
"${run_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"

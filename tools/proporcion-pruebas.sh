#!/usr/bin/env bash
# How large the tests are beside the code they test: non-blank lines of the
# tracked .h and .cpp files that are not only a // comment, under tests/
# against everything else (bench/ counts as neither). We keep the ratio
# between 0.25 and 0.40; the script fails outside that band.
#
#   bash tools/proporcion-pruebas.sh
set -euo pipefail
cd "$(dirname "$0")/.."

contar() { if [ $# -eq 0 ]; then echo 0; else grep -h -v -E '^\s*$|^\s*//' "$@" | wc -l; fi; }

mapfile -t fuentes < <(git ls-files --cached --others --exclude-standard | sort -u | grep -E '\.(h|cpp)$' | grep -v '^bench/')
pruebas=() codigo=()
for f in "${fuentes[@]}"; do
  [ -f "$f" ] || continue
  case "$f" in tests/*) pruebas+=("$f") ;; *) codigo+=("$f") ;; esac
done
lp=$(contar "${pruebas[@]}")
lc=$(contar "${codigo[@]}")
awk -v p="$lp" -v c="$lc" 'BEGIN {
  r = p / c
  printf "tests %d lines, code %d lines, ratio %.2f\n", p, c, r
  if (r < 0.25 || r > 0.40) { print "outside the band 0.25 to 0.40"; exit 1 }
}'

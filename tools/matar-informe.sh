#!/usr/bin/env bash
# Kills a monthly report's generation with SIGKILL at spread moments and
# checks, after each kill, what the next user finds.
#
#   bash tools/matar-informe.sh [BUILD_DIR] [LINEAS] [VECES] [DESDE_MS]
#                               (default: build/ci 200000 10 0)
#
# It builds the tool, creates the demo company on SQLite and adds LINEAS
# unreported log lines to December 2026 (a month the demo leaves empty).
# Uninterrupted runs of `celdora informe generar` on a copy give the length
# of a generation; then each of VECES tries works on a fresh copy, starts the
# generation and kills it at a random moment inside its own slice of that
# length, so that the moments cover the whole run (from DESDE_MS on; a
# negative DESDE_MS counts back from the end, to aim at the last moments,
# where the file is written and the transaction commits). After each kill:
#
#   - PRAGMA integrity_check answers ok (the hot journal the kill left is
#     rolled back by the first connection that reads the file);
#   - every log line holds its uf_Reportado and uf_Datos of before;
#   - no report of December is stored;
#   - the report file: absent, cut short, or whole.
#
# A kill after the commit finds the database as a whole generation leaves
# it, and a try whose process ended before its moment is counted apart.
# CELDORA_SEMILLA fixes the moments to repeat a run (the seed used is
# printed). Exits 1 when a database was neither as it was before nor as a
# whole generation leaves it.
set -euo pipefail

log() { echo "matar-informe: $*"; }
fail() { echo "matar-informe: $*" >&2; exit 1; }

source "$(dirname "${BASH_SOURCE[0]}")/comun.sh"
build_dir="$(carpeta_build "${1:-build/ci}")"
lineas="${2:-200000}"
veces="${3:-10}"
desde="${4:-0}"
cd "$repo_root"

command -v sqlite3 >/dev/null || fail "the sqlite3 shell is missing (bash tools/install-deps.sh)"
[ -f "$build_dir/build.ninja" ] || [ -f "$build_dir/Makefile" ] ||
  fail "$build_dir is not a configured build folder (cmake --preset ci, or pass the folder)"
log "building celdora in $build_dir"
cmake --build "$build_dir" --target celdora >/dev/null
celdora="$build_dir/app/celdora"

work="$(mktemp -d "${TMPDIR:-/tmp}/celdora-matar.XXXXXX")"
trap 'rm -rf "$work"' EXIT
original="$work/original.db"

log "creating the demo company with $lineas lines in December 2026"
"$celdora" --db "sqlite:$original" demo >/dev/null
sqlite3 "$original" <<SQL
BEGIN;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $lineas)
INSERT INTO ut_CFD (Sys_PK, uf_IVenta, uf_IDCXC, uf_CFDFolio, uf_FechaHora, uf_Tipo, uf_CanceladoSAT)
SELECT 1000 + i, 0, 0, 1, '2026-12-05 10:00:00', 1, 0 FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $lineas)
INSERT INTO ut_CFDBitacora (Sys_PK, uf_CFD, uf_Datos, uf_Reportado)
SELECT 1000 + i, 1000 + i,
       '| XAXX010101000 |A|' || i || '||05/12/2026 10:00:00|' || (100 + i % 5000) || '.5|' || (i % 700) || '|' ||
       CASE WHEN i % 10 = 0 THEN ' 0 ' ELSE '1' END || '|I||||', 0
FROM n;
COMMIT;
SQL

# What a generation may change, in one line each.
huella() {
  sqlite3 "$1" "SELECT Sys_PK, uf_Reportado, uf_Datos FROM ut_CFDBitacora ORDER BY Sys_PK" | sha1sum | cut -c1-40
}
informes_diciembre() { sqlite3 "$1" "SELECT COUNT(*) FROM ut_CFDInforme WHERE uf_Mes=12 AND uf_Anio=2026"; }
antes="$(huella "$original")"
nombre="1$(sqlite3 "$original" "SELECT Texto FROM gv_Configuracion WHERE Clave='NVCA101'")122026.txt"

ahora_ms() { echo $(($(date +%s%N) / 1000000)); }

# Starts the generation on a fresh copy, its output in a file; sets pid.
iniciar() {
  rm -rf "$work/run.db" "$work/run.db-journal" "$work/carpeta"
  mkdir -p "$work/carpeta"
  cp "$original" "$work/run.db"
  "$celdora" --db "sqlite:$work/run.db" informe generar --mes 12 --anio 2026 --carpeta "$work/carpeta" --no \
    </dev/null >"$work/salida.txt" 2>&1 &
  pid=$!
}

# The shortest of three, since other work on the machine only adds time.
log "three uninterrupted generations first"
duracion=0
for _ in 1 2 3; do
  inicio="$(ahora_ms)"
  iniciar
  wait "$pid" || { cat "$work/salida.txt" >&2; fail "the uninterrupted generation failed"; }
  tomado=$(($(ahora_ms) - inicio))
  [ "$duracion" -gt 0 ] && [ "$duracion" -le "$tomado" ] || duracion="$tomado"
done
[ "$(informes_diciembre "$work/run.db")" = 1 ] || fail "the uninterrupted generation stored no report"
completo="$(stat -c %s "$work/carpeta/$nombre")"
despues="$(huella "$work/run.db")"
log "it took $duracion ms and wrote $completo bytes"

semilla="${CELDORA_SEMILLA:-$$}"
RANDOM="$semilla"
[ "$desde" -ge 0 ] || desde=$((duracion + desde))
[ "$desde" -ge 0 ] && [ "$desde" -lt "$duracion" ] || desde=0
log "seed $semilla; $veces kills spread from $desde to $duracion ms"
tramo=$(((duracion - desde) / veces))
[ "$tramo" -gt 0 ] || tramo=1
malas=0
declare -A cuenta=()
for ((i = 0; i < veces; i++)); do
  momento=$((desde + i * tramo + (RANDOM * 32768 + RANDOM) % tramo))
  iniciar
  sleep "$(printf '%d.%03d' $((momento / 1000)) $((momento % 1000)))"
  if kill -KILL "$pid" 2>/dev/null; then
    wait "$pid" 2>/dev/null || true
    muerto=1
  else
    wait "$pid" 2>/dev/null || true
    muerto=0
  fi
  journal=no
  [ -e "$work/run.db-journal" ] && journal=yes
  archivo="absent"
  if [ -e "$work/carpeta/$nombre" ]; then
    tamano="$(stat -c %s "$work/carpeta/$nombre")"
    if [ "$tamano" -eq "$completo" ]; then archivo="whole"; else archivo="cut at $tamano bytes"; fi
  fi
  integridad="$(sqlite3 "$work/run.db" "PRAGMA integrity_check")"
  informes="$(informes_diciembre "$work/run.db")"
  if [ "$muerto" -eq 0 ]; then
    estado="ended before the kill (report stored: $informes)"
    clase="ended before"
  elif [ "$integridad" = ok ] && [ "$informes" = 0 ] && [ "$(huella "$work/run.db")" = "$antes" ]; then
    estado="database as before"
    clase="as before, file ${archivo%% at *}"
  elif [ "$integridad" = ok ] && [ "$informes" = 1 ] && [ "$(huella "$work/run.db")" = "$despues" ]; then
    # Killed between the commit and the end of the process.
    estado="committed: database as after a whole generation"
    clase="after the commit, file ${archivo%% at *}"
  else
    estado="DATABASE HALF CHANGED (integrity: $integridad, December reports: $informes)"
    clase="changed"
    malas=$((malas + 1))
  fi
  cuenta[$clase]=$((${cuenta[$clase]:-0} + 1))
  printf 'matar-informe: kill %2d at %5d ms: journal %-3s, %s; file %s\n' $((i + 1)) "$momento" "$journal" \
    "$estado" "$archivo"
done

for clase in "${!cuenta[@]}"; do log "$clase: ${cuenta[$clase]} of $veces"; done
[ "$malas" -eq 0 ] || fail "$malas kills left the database half changed"
log "every kill left the database as before or as a whole generation"

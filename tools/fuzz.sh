#!/usr/bin/env bash
# Builds the monthly report's libFuzzer targets with clang, under
# AddressSanitizer and UBSan, and runs them in one of two ways:
#
#   bash tools/fuzz.sh [BUILD_DIR]
#       The check that CI runs. Each target first replays every kept input
#       (fuzz/semillas/TARGET), then runs a fixed number of generated inputs
#       from a fixed seed, starting from the kept inputs in a fresh corpus
#       folder. The same commit always runs the same inputs and prints the
#       same result. Environment: CELDORA_FUZZ_ENTRADAS (default 100000 per
#       target), CELDORA_FUZZ_SEMILLA (default 1).
#
#   bash tools/fuzz.sh --explorar [SEGUNDOS] [BUILD_DIR]
#       Exploration at random for SEGUNDOS per target (default 600), with a
#       corpus that grows in BUILD_DIR/corpus between runs. An input it finds
#       is printed with its path: copy it into fuzz/semillas/TARGET with the
#       fix, so that the CI check replays it from then on.
#
# A crash, a sanitizer report or a broken promise of the format stops the run
# with libFuzzer's report and the input that caused it, and the script fails.
# BUILD_DIR defaults to build/fuzz.
set -euo pipefail
cd "$(dirname "$0")/.."

explorar=0
segundos=600
if [ "${1:-}" = "--explorar" ]; then
  explorar=1
  shift
  if [[ "${1:-}" =~ ^[0-9]+$ ]]; then segundos="$1"; shift; fi
fi
build_dir="${1:-build/fuzz}"
entradas="${CELDORA_FUZZ_ENTRADAS:-100000}"
semilla="${CELDORA_FUZZ_SEMILLA:-1}"
objetivos=(fuzz_formatear_linea fuzz_leer_informe)

command -v clang++-14 >/dev/null || { echo "fuzz: clang++-14 is missing (bash tools/install-deps.sh)" >&2; exit 1; }

# Coverage instrumentation for the libraries the targets link, so that the
# fuzzer also learns its way through the values and the dialog models.
CC=clang-14 CXX=clang++-14 cmake -S . -B "$build_dir" -G Ninja \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCELDORA_BUILD_TESTS=OFF \
  -DCELDORA_SANITIZE=ON \
  -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link" >/dev/null
cmake --build "$build_dir" --target "${objetivos[@]}"
build_dir="$(cd "$build_dir" && pwd)"
semillas="$PWD/fuzz/semillas"

if [ "$explorar" = 1 ]; then
  for objetivo in "${objetivos[@]}"; do
    corpus="$build_dir/corpus/$objetivo"
    mkdir -p "$corpus" "$build_dir/hallazgos"
    echo "fuzz: exploring $objetivo for ${segundos}s"
    (cd "$build_dir/hallazgos" && "$build_dir/fuzz/$objetivo" -max_total_time="$segundos" \
      -print_final_stats=1 "$corpus" "$semillas/$objetivo") || {
      echo "fuzz: $objetivo found an input; it is in $build_dir/hallazgos (crash-* or leak-*)." >&2
      echo "fuzz: fix the fault, then copy the input into fuzz/semillas/$objetivo" >&2
      exit 1
    }
  done
  echo "fuzz: no crash and no sanitizer report"
  exit 0
fi

# The check: a private corpus folder per run, so that nothing of an earlier
# run changes what this one does. Only the lines that do not depend on the
# machine's speed are printed; the whole log is printed on a failure.
trabajo="$(mktemp -d)"
trap 'rm -rf "$trabajo"' EXIT
# The fuzzer also learns from the values its target compares, pointers
# among them: with addresses laid out at random, the same seed would take
# other paths from one run to the next. Without that randomness it does not.
fijo=()
if setarch "$(uname -m)" -R true 2>/dev/null; then
  fijo=(setarch "$(uname -m)" -R)
else
  echo "fuzz: addresses cannot be fixed here; the inputs may differ between runs" >&2
fi
# The stack's addresses also depend on the environment and on the command
# line, so each target runs with an empty environment, under the same name
# and on inputs named the same, wherever the repository lives.
for objetivo in "${objetivos[@]}"; do
  ln -s "$build_dir/fuzz/$objetivo" "$trabajo/$objetivo"
  registro="$trabajo/$objetivo.log"
  mkdir "$trabajo/guardadas-$objetivo"
  cp "$semillas/$objetivo"/* "$trabajo/guardadas-$objetivo/"
  mapfile -t guardadas < <(cd "$trabajo" && find "guardadas-$objetivo" -type f | sort)
  if ! (cd "$trabajo" && env -i PATH=/usr/bin:/bin "${fijo[@]}" "./$objetivo" "${guardadas[@]}") >"$registro" 2>&1; then
    cat "$registro" >&2
    echo "fuzz: $objetivo failed on a kept input" >&2
    exit 1
  fi
  cp -r "$trabajo/guardadas-$objetivo" "$trabajo/corpus-$objetivo"
  if ! (cd "$trabajo" && env -i PATH=/usr/bin:/bin "${fijo[@]}" "./$objetivo" -seed="$semilla" -runs="$entradas" -reload=0 \
        "corpus-$objetivo") >"$registro" 2>&1; then
    cat "$registro" >&2
    mkdir -p "$build_dir/hallazgos"
    cp "$trabajo"/crash-* "$trabajo"/leak-* "$trabajo"/timeout-* "$build_dir/hallazgos/" 2>/dev/null || true
    echo "fuzz: $objetivo failed; the input is in $build_dir/hallazgos: keep it in fuzz/semillas/$objetivo with the fix" >&2
    exit 1
  fi
  final="$(grep -E '^#[0-9]+[[:space:]]+DONE' "$registro" | sed -E 's/[[:space:]]+(exec\/s|rss):.*//')"
  echo "fuzz: $objetivo: ${#guardadas[@]} kept inputs replayed; $entradas inputs from seed $semilla: ${final:-no summary}"
done
echo "fuzz: no crash and no sanitizer report"

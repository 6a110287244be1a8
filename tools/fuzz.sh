#!/usr/bin/env bash
# Builds the monthly report's libFuzzer targets with clang, under
# AddressSanitizer and UBSan, and runs each one for a short while on its
# seeds (fuzz/semillas) and the corpus it grows. A crash, a sanitizer report
# or a broken promise of the format stops the run with libFuzzer's report
# and the input that caused it, and the script fails.
#
#   bash tools/fuzz.sh [BUILD_DIR]      (default: build/fuzz)
#
# Environment: CELDORA_FUZZ_SEGUNDOS, seconds for each target (default 30).
set -euo pipefail
cd "$(dirname "$0")/.."

build_dir="${1:-build/fuzz}"
segundos="${CELDORA_FUZZ_SEGUNDOS:-30}"
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

for objetivo in "${objetivos[@]}"; do
  corpus="$build_dir/corpus/$objetivo"
  mkdir -p "$corpus"
  echo "fuzz: $objetivo for ${segundos}s"
  (cd "$build_dir" && "./fuzz/$objetivo" -max_total_time="$segundos" -print_final_stats=1 \
    "corpus/$objetivo" "$OLDPWD/fuzz/semillas/$objetivo")
done
echo "fuzz: no crash and no sanitizer report"

#!/usr/bin/env bash
# Installs what is missing, builds the tool and creates the demo company on
# SQLite (build/celdora-demo.db, made anew each time), printing its summary.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/install-deps.sh
cmake --preset ci >/dev/null
cmake --build --preset ci --target celdora
./build/ci/app/celdora demo build/celdora-demo.db --reemplazar
# What a user does first: open the control panel on that company.
echo
echo "Abra el panel de control de la empresa con:"
echo "  ./build/ci/app/celdora --db sqlite:build/celdora-demo.db panel          (en Qt si hay pantalla)"
echo "  ./build/ci/app/celdora --db sqlite:build/celdora-demo.db panel --console"

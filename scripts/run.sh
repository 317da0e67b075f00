#!/usr/bin/env bash
# Installs what is missing, builds the program and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-packages.sh
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release
cmake --build build-release --target velmora
exec build-release/src/velmora

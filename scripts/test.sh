#!/usr/bin/env bash
# Installs what is missing, builds from scratch and runs every test twice: once in a
# plain build and once under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-packages.sh
jobs=$(nproc)

rm -rf build-test build-sanitize
cmake -S . -B build-test -G Ninja -DCMAKE_BUILD_TYPE=Debug
cmake --build build-test -j "$jobs"
(cd build-test && ctest --output-on-failure -j "$jobs")

cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVELMORA_SANITIZE=ON
cmake --build build-sanitize -j "$jobs"
(cd build-sanitize && ctest --output-on-failure -j "$jobs")

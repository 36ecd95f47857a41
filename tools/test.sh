#!/usr/bin/env bash
# Builds everything under AddressSanitizer and UndefinedBehaviorSanitizer and runs every test,
# then every fuzz target for a short while (tools/fuzz.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/deps.sh
cmake -S . -B build-tests -DCMAKE_BUILD_TYPE=Debug -DZELVANI_SANITIZE=ON >/dev/null
cmake --build build-tests -j"$(nproc)"
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build-tests --output-on-failure -j"$(nproc)"
# Every reader of outside data, fuzzed for 30 seconds each from its seeds.
bash tools/fuzz.sh all 30

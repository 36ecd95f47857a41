#!/usr/bin/env bash
# Builds everything and runs every test twice: on Qt 5 under AddressSanitizer and
# UndefinedBehaviorSanitizer, then on Qt 6 (a plain debug build, which also installs both
# builds into one Maya module and checks it).
# Then every fuzz target runs for a short while (tools/fuzz.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/deps.sh
export QT_QPA_PLATFORM=offscreen
jobs="$(nproc)"

echo "== Qt 5, sanitizers"
cmake -S . -B build-tests -DCMAKE_BUILD_TYPE=Debug -DZELVANI_QT_VERSION=5 -DZELVANI_SANITIZE=ON >/dev/null
cmake --build build-tests -j"$jobs"
ctest --test-dir build-tests --output-on-failure -j"$jobs"

echo "== Qt 6"
cmake -S . -B build-tests-qt6 -DCMAKE_BUILD_TYPE=Debug -DZELVANI_QT_VERSION=6 \
    -DZELVANI_OTHER_QT_BUILD="$PWD/build-tests" >/dev/null
cmake --build build-tests-qt6 -j"$jobs"
ctest --test-dir build-tests-qt6 --output-on-failure -j"$jobs"

# Every reader of outside data, fuzzed for 30 seconds each from its seeds.
echo "== Fuzzing"
bash tools/fuzz.sh all 30

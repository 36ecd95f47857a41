#!/usr/bin/env bash
# Builds the sandbox and starts it on its demo scene; arguments go to the sandbox.
# It runs on Qt 5 (as Maya 2022-2024 do); a first argument `--qt 6` builds and starts the
# Qt 6 one (as Maya 2025 and later) in build-qt6 instead.
set -euo pipefail
cd "$(dirname "$0")/.."
qt=5
build=build
if [ "${1:-}" = "--qt" ]; then
    qt="${2:?--qt needs 5 or 6}"
    shift 2
    [ "$qt" = 6 ] && build=build-qt6
fi
bash tools/deps.sh
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DZELVANI_QT_VERSION="$qt" >/dev/null
cmake --build "$build" -j"$(nproc)"
exec "$build"/sandbox/zelvani-sandbox "$@"

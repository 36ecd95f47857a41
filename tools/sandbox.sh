#!/usr/bin/env bash
# Builds the sandbox and starts it on its demo scene; arguments go to the sandbox.
set -euo pipefail
cd "$(dirname "$0")/.."
bash tools/deps.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build -j"$(nproc)"
exec build/sandbox/zelvani-sandbox "$@"
